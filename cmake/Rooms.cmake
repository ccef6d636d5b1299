# One folder is one room, one room is one library. A room names what stands below it;
# what it does not name it cannot link.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release)
endif()

# The test programs are many: the quicker linker, where there is one.
if(CMAKE_BUILD_TYPE STREQUAL "Debug" AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
  find_program(TAMBRIX_LLD ld.lld)
  if(TAMBRIX_LLD)
    add_link_options(-fuse-ld=lld)
  endif()
endif()

add_library(tambrix_warnings INTERFACE)
target_include_directories(tambrix_warnings INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(MSVC)
  target_compile_options(tambrix_warnings INTERFACE /W4 /permissive- /utf-8)
else()
  target_compile_options(tambrix_warnings INTERFACE
    -Wall -Wextra -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wredundant-decls)
  # Clang: sizes of Qt are signed, those of the library are not. No modules are in use, and
  # clang-tidy would read every header a second time for them.
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    target_compile_options(tambrix_warnings INTERFACE
      -Wno-sign-conversion "SHELL:-Xclang -fno-cxx-modules")
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(tambrix_warnings INTERFACE -Wsuggest-override -Wlogical-op)
  endif()
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    # GCC 12 takes the standard library's own "literal" + string for overlapping copies at -O3.
    target_compile_options(tambrix_warnings INTERFACE -Wno-restrict)
  endif()
endif()
if(TAMBRIX_SANITIZE)
  target_compile_options(tambrix_warnings INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(tambrix_warnings INTERFACE -fsanitize=address,undefined)
endif()

# tambrix_precompiled(NAME [LINKS target...] [HEADERS <header>...])
# A precompiled header of the library's own headers and of HEADERS, for targets that stand on Qt. It
# is made with no macros but those that all of them have, else the compiler refuses it.
function(tambrix_precompiled name)
  if(NOT TAMBRIX_PCH)
    return()
  endif()
  cmake_parse_arguments(PCH "" "" "LINKS;HEADERS" ${ARGN})
  find_package(Qt6 REQUIRED COMPONENTS Widgets)
  file(CONFIGURE OUTPUT ${name}.cpp CONTENT "")
  add_library(${name} STATIC ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  target_link_libraries(${name} PUBLIC tambrix_warnings Qt6::Core ${PCH_LINKS})
  target_include_directories(${name} SYSTEM PRIVATE
    $<TARGET_PROPERTY:Qt6::Widgets,INTERFACE_INCLUDE_DIRECTORIES>
    $<TARGET_PROPERTY:Qt6::Gui,INTERFACE_INCLUDE_DIRECTORIES>)
  target_precompile_headers(${name} PRIVATE
    <algorithm> <array> <chrono> <filesystem> <functional> <memory> <optional> <string> <vector>
    <QApplication> <QBoxLayout> <QCheckBox> <QDateTime> <QDialog> <QDir> <QFile> <QGridLayout>
    <QGroupBox> <QLabel> <QLineEdit> <QMainWindow> <QMouseEvent> <QPainter> <QPushButton> <QTimer>
    ${PCH_HEADERS})
endfunction()

# Lets a target take a precompiled header.
function(tambrix_precompile target name)
  if(TAMBRIX_PCH)
    target_precompile_headers(${target} REUSE_FROM ${name})
  endif()
endfunction()

tambrix_precompiled(tambrix_precompiled_rooms)

# tambrix_room(NAME [QT] SOURCES file... [LINKS target...])
# QT: the room's classes carry Q_OBJECT.
function(tambrix_room name)
  cmake_parse_arguments(ROOM "QT" "" "SOURCES;LINKS" ${ARGN})
  add_library(tambrix_${name} STATIC ${ROOM_SOURCES})
  target_link_libraries(tambrix_${name} PUBLIC tambrix_warnings ${ROOM_LINKS})
  if("${ROOM_LINKS}" MATCHES "Qt6::|_data|_platform|_shell|_controls")
    tambrix_precompile(tambrix_${name} tambrix_precompiled_rooms)
  endif()
  if(ROOM_QT)
    set_target_properties(tambrix_${name} PROPERTIES AUTOMOC ON)
  endif()
endfunction()
