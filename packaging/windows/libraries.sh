# Part of packaging/windows/build: the libraries, built for Windows into $cache/prefix. All are
# static: the program is then one file that starts without anything beside it but its texts.

# shellcheck shell=bash
prefix=$cache/prefix
host=x86_64-w64-mingw32

# configureForWindows SOURCE BUILD [CMAKE-ARGUMENT...]
configureForWindows() {
    cmake -G Ninja -S "$1" -B "$2" "${@:3}" \
        -DCMAKE_TOOLCHAIN_FILE="$here/mingw.cmake" \
        -DCMAKE_FIND_ROOT_PATH="$prefix" -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF \
        -DQT_HOST_PATH=/usr \
        -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_BUILD_MULTIARCH)/cmake"
}

# buildLibrary NAME SOURCE [CMAKE-ARGUMENT...]
buildLibrary() {
    local build=$cache/build/$1
    rm -rf "$build"
    configureForWindows "$2" "$build" -DCMAKE_INSTALL_PREFIX="$prefix" "${@:3}"
    cmake --build "$build"
    cmake --install "$build"
    rm -rf "$build"
}

# The sources that everybody compiles are one file, which the package makes from its parts.
buildSqlite() {
    local build=$cache/build/sqlite
    mkdir -p "$build" "$prefix/include" "$prefix/lib"
    (
        cd "$build"
        "$(sourceOf sqlite3)/configure" --disable-tcl
        make sqlite3.c
        $host-gcc-posix -O2 -DSQLITE_ENABLE_COLUMN_METADATA -c sqlite3.c
        $host-ar rcs "$prefix/lib/libsqlite3.a" sqlite3.o
        cp sqlite3.h "$prefix/include"
    )
    rm -rf "$build"
}

buildQtBase() {
    buildLibrary qtbase "$(sourceOf qt6-base)" \
        -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF \
        -DFEATURE_dbus=OFF -DFEATURE_tabletevent=OFF -DFEATURE_opengl=OFF -DINPUT_opengl=no \
        -DFEATURE_sql_odbc=OFF -DFEATURE_sql_mysql=OFF -DFEATURE_sql_psql=OFF \
        -DFEATURE_system_sqlite=ON -DSQLite3_INCLUDE_DIR="$prefix/include" \
        -DSQLite3_LIBRARY="$prefix/lib/libsqlite3.a"
}

buildSerialPort() {
    buildLibrary qtserialport "$(sourceOf qt6-serialport)" \
        -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF
}

# The package builds a shared library only; and a static one must not ask for DLL imports.
buildQCustomPlot() {
    local source=$cache/build/qcustomplot-source
    rm -rf "$source"
    mkdir -p "$cache/build"
    cp -r "$(sourceOf qcustomplot)" "$source"
    sed -i 's/add_library(${LIB_NAME} SHARED/add_library(${LIB_NAME} STATIC/
            /add_definitions(-DQCUSTOMPLOT_COMPILE_LIBRARY)/d' "$source/CMakeLists.txt"
    buildLibrary qcustomplot "$source"
    rm -rf "$source"
}

buildLibraries() {
    step sqlite buildSqlite
    step qtbase buildQtBase
    step qtserialport buildSerialPort
    step qcustomplot buildQCustomPlot
    if [[ $tests == ON ]]; then
        step googletest buildLibrary googletest /usr/src/googletest
    fi
}
