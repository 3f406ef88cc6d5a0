# What is built, and how every target of the project is compiled.

option(DRAVONSET_TOOLS "Build the command line tool qsdps" ${PROJECT_IS_TOP_LEVEL})
option(DRAVONSET_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(DRAVONSET_BENCH "Build the benchmarks" OFF)
option(DRAVONSET_INSTALL "Install libraries, headers, tools and data" ${PROJECT_IS_TOP_LEVEL})
option(DRAVONSET_WERROR "Treat compiler warnings as errors" OFF)
option(DRAVONSET_SANITIZE "Build with the address and undefined behaviour sanitizers" OFF)
option(DRAVONSET_FUZZERS "Build the fuzzers, and everything else so that they see which way it goes (Clang alone)" OFF)
set(DRAVONSET_X11 AUTO CACHE STRING "Build the X Window System display: AUTO (where Xlib is found), ON or OFF")
set_property(CACHE DRAVONSET_X11 PROPERTY STRINGS AUTO ON OFF)

set(DRAVONSET_HAVE_X11 FALSE)
if(DRAVONSET_X11)
    find_package(X11 QUIET)
    if(X11_FOUND)
        set(DRAVONSET_HAVE_X11 TRUE)
    elseif(NOT DRAVONSET_X11 STREQUAL "AUTO")
        message(FATAL_ERROR "DRAVONSET_X11 is on, but Xlib was not found")
    endif()
endif()

set(DRAVONSET_ZLIB AUTO CACHE STRING "Build the Flate encoder: AUTO (where zlib is found), ON or OFF")
set_property(CACHE DRAVONSET_ZLIB PROPERTY STRINGS AUTO ON OFF)

set(DRAVONSET_HAVE_ZLIB FALSE)
if(DRAVONSET_ZLIB)
    find_package(ZLIB QUIET)
    if(ZLIB_FOUND)
        set(DRAVONSET_HAVE_ZLIB TRUE)
    elseif(NOT DRAVONSET_ZLIB STREQUAL "AUTO")
        message(FATAL_ERROR "DRAVONSET_ZLIB is on, but zlib was not found")
    endif()
endif()

if(BUILD_SHARED_LIBS AND DRAVONSET_TESTS)
    message(STATUS "Tests of what libraries hide are left out: BUILD_SHARED_LIBS is on")
    set(DRAVONSET_TESTS OFF)
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
# A project around this one chooses the build type itself.
if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

# A library that other projects link: Dravonset::NAME, which exports the public names alone. Static unless
# BUILD_SHARED_LIBS is on.
function(dravonset_library name)
    set(target dravonset-${name})
    add_library(${target} ${ARGN})
    add_library(Dravonset::${name} ALIAS ${target})
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${name}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    if(BUILD_SHARED_LIBS)
        target_link_options(${target} PRIVATE LINKER:-z,defs)
        # The libraries lie beside each other, wherever that is.
        set_target_properties(${target} PROPERTIES INSTALL_RPATH "\$ORIGIN")
    endif()
    dravonset_target_defaults(${target})
endfunction()

# Compiles a target of this project with the house warnings and, where asked for, the sanitizers.
function(dravonset_target_defaults target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
    if(DRAVONSET_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(DRAVONSET_SANITIZE)
        # What the sanitizers add to a function makes g++ 12 take buffers that are filled later for forgotten ones.
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
        target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
    if(DRAVONSET_FUZZERS)
        target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link,float-cast-overflow)
        target_link_options(${target} PRIVATE -fsanitize=fuzzer-no-link,float-cast-overflow)
    endif()
endfunction()
