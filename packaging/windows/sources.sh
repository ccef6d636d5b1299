# Part of packaging/windows/build: the libraries' sources, into $cache/sources. The distribution's
# source packages are switched on for these commands alone, in lists of their own.

# shellcheck shell=bash
apt=$cache/apt
aptOptions=(
    -o Dir::Etc::SourceList="$apt/sources.list" -o Dir::Etc::SourceParts=/dev/null
    -o Dir::State::Lists="$apt/lists" -o Dir::Cache="$apt/cache"
    -o APT::Sandbox::User="$(id -un)"
)

listSourcePackages() {
    mkdir -p "$apt/lists/partial" "$apt/cache/archives/partial"
    apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' | sort -u >"$apt/sources.list"
    apt-get "${aptOptions[@]}" update --quiet
}

fetchPackage() {
    step source-lists listSourcePackages
    (cd "$cache/sources" && apt-get "${aptOptions[@]}" source --quiet "$1")
}

unpackSerialPort() {
    if [[ -n $serialPortTarball ]]; then
        mkdir -p "$cache/sources/qt6-serialport-0"
        tar --extract --file "$serialPortTarball" --strip-components=1 \
            --directory "$cache/sources/qt6-serialport-0"
    elif ! fetchPackage qt6-serialport; then
        echo "The source of Qt's serial port module cannot be had: see --qtserialport." >&2
        return 1
    fi
}

# The folder of a library's sources; a Qt module by its name in the distribution, such as qt6-base.
sourceOf() {
    if [[ -n $qtSource && $1 == qt6-* ]]; then
        echo "$qtSource/qt${1#qt6-}"
    else
        echo "$cache/sources/$1"-[0-9]*/
    fi
}

fetchSources() {
    mkdir -p "$cache/sources"
    step source-sqlite3 fetchPackage sqlite3
    step source-qcustomplot fetchPackage qcustomplot
    if [[ -z $qtSource ]]; then
        step source-qt6-base fetchPackage qt6-base
        step source-qt6-serialport unpackSerialPort
    fi
}
