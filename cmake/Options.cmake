# What is built, and how every target of the project is compiled.

option(DRAVONSET_TOOLS "Build the command line tool qsdps" ${PROJECT_IS_TOP_LEVEL})
option(DRAVONSET_TESTS "Build the tests" ${PROJECT_IS_TOP_LEVEL})
option(DRAVONSET_BENCH "Build the benchmarks" OFF)
option(DRAVONSET_WERROR "Treat compiler warnings as errors" OFF)
option(DRAVONSET_SANITIZE "Build with the address and undefined behaviour sanitizers" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

# Compiles a target of this project with the house warnings and, where asked for, the sanitizers.
function(dravonset_target_defaults target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
    if(DRAVONSET_WERROR)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    if(DRAVONSET_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
        target_link_options(${target} PRIVATE -fsanitize=address,undefined)
    endif()
endfunction()
