# How everything is compiled: language, warnings, sanitizers, where results go, and the compiler cache.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
# The same for libraries and programs, so that they share what is precompiled.
add_compile_options(-fPIC)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
# Programs find their libraries beside themselves (../lib), so that a build can be moved.
set(CMAKE_BUILD_RPATH_USE_ORIGIN ON)

add_compile_options(-Wall -Wextra -Werror)
# Nobody replaces functions of our libraries from outside, so calls inside one need not go through its symbol table.
add_compile_options(-fno-semantic-interposition)
add_link_options(-Wl,-Bsymbolic-functions)
if(ZOLCAD_SANITIZE)
    add_compile_options(-fsanitize=${ZOLCAD_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${ZOLCAD_SANITIZE})
    if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
        add_compile_options(-fsanitize-ignorelist=${CMAKE_SOURCE_DIR}/fuzz/ignored-by-sanitizers)
    endif()
elseif(ZOLCAD_LINK_UNFINISHED)
    # While a layer is being written: what is missing is missed only when it is called.
    add_link_options(-Wl,-z,lazy -Wl,--unresolved-symbols=ignore-all)
else()
    add_link_options(-Wl,--no-undefined)
endif()

# Paths are taken relative to the project, so that builds of several checkouts share what the cache holds.
find_program(ZOLCAD_CCACHE ccache)
if(ZOLCAD_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER
        ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
        CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_PCH_EXTSUM=1 ${ZOLCAD_CCACHE})
endif()

find_package(RapidJSON REQUIRED)
add_library(rapidjson INTERFACE)
target_include_directories(rapidjson SYSTEM INTERFACE ${RAPIDJSON_INCLUDE_DIRS})

# zol_library(<target> <pkg-config module>...): a library of the system.
find_package(PkgConfig REQUIRED)
function(zol_library target)
    pkg_check_modules(${target} REQUIRED IMPORTED_TARGET ${ARGN})
    add_library(${target} INTERFACE)
    target_link_libraries(${target} INTERFACE PkgConfig::${target})
endfunction()
zol_library(font_libraries harfbuzz fribidi fontconfig)
zol_library(picture_libraries cairo cairo-png cairo-pdf cairo-ft freetype2 zlib)
