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

add_library(tambrix_warnings INTERFACE)
target_include_directories(tambrix_warnings INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(MSVC)
  target_compile_options(tambrix_warnings INTERFACE /W4 /permissive- /utf-8)
else()
  target_compile_options(tambrix_warnings INTERFACE
    -Wall -Wextra -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
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

# Precompiled headers of the standard library and of Qt where a target links it.
function(tambrix_precompile target)
  if(NOT TAMBRIX_PCH)
    return()
  endif()
  target_precompile_headers(${target} PRIVATE
    <algorithm> <array> <chrono> <filesystem> <functional> <memory> <optional> <string> <vector>)
  if("${ARGN}" MATCHES "Qt6::Widgets|_shell|_controls|_screens|_app")
    target_precompile_headers(${target} PRIVATE <QtWidgets>)
  elseif("${ARGN}" MATCHES "Qt6::Core|_data|_platform")
    target_precompile_headers(${target} PRIVATE <QtCore>)
  endif()
endfunction()

# tambrix_room(NAME [QT] SOURCES file... [LINKS target...])
# QT: the room's classes carry Q_OBJECT.
function(tambrix_room name)
  cmake_parse_arguments(ROOM "QT" "" "SOURCES;LINKS" ${ARGN})
  add_library(tambrix_${name} STATIC ${ROOM_SOURCES})
  target_link_libraries(tambrix_${name} PUBLIC tambrix_warnings ${ROOM_LINKS})
  tambrix_precompile(tambrix_${name} ${ROOM_LINKS})
  if(ROOM_QT)
    set_target_properties(tambrix_${name} PROPERTIES AUTOMOC ON)
  endif()
endfunction()
