# What an installation holds: libraries, headers, data, and how other projects find them.

include(CMakePackageConfigHelpers)

set(dravonset_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Dravonset)

# Sets `variable` to an installation folder as pkg-config files name it: below the prefix, unless it is absolute.
function(dravonset_pc_dir variable folder)
    set(path "\${prefix}")
    cmake_path(APPEND path "${folder}")
    set(${variable} "${path}" PARENT_SCOPE)
endfunction()

# dravonset_pkg_config(NAME DESCRIPTION text LIBS flags REQUIRES modules PRIVATE modules): writes NAME.pc. It finds its
# prefix from where it lies, so that an installation can be moved.
function(dravonset_pkg_config pc_name)
    cmake_parse_arguments(PARSE_ARGV 1 pc "" "DESCRIPTION;LIBS" "REQUIRES;PRIVATE")
    # Programs link whatever a static library needs.
    if(NOT BUILD_SHARED_LIBS)
        list(APPEND pc_REQUIRES ${pc_PRIVATE})
        set(pc_PRIVATE)
    endif()
    file(RELATIVE_PATH pc_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
    string(REGEX REPLACE "/$" "" pc_prefix "${pc_prefix}")
    dravonset_pc_dir(pc_libdir "${CMAKE_INSTALL_LIBDIR}")
    dravonset_pc_dir(pc_includedir "${CMAKE_INSTALL_INCLUDEDIR}")
    set(pc_libs "${pc_LIBS}")
    list(JOIN pc_REQUIRES ", " pc_requires)
    list(JOIN pc_PRIVATE ", " pc_private)
    configure_file(cmake/dravonset.pc.in ${PROJECT_BINARY_DIR}/${pc_name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${pc_name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

# One set of exported targets and one pkg-config file for each library, so that programs need only what they link.
# dravonset_install(NAME DESCRIPTION text REQUIRES modules PRIVATE modules)
function(dravonset_install name)
    install(TARGETS dravonset-${name} EXPORT Dravonset-${name})
    install(EXPORT Dravonset-${name} NAMESPACE Dravonset:: DESTINATION ${dravonset_package_dir})
    dravonset_pkg_config(dravonset-${name} LIBS "-L\${libdir} -ldravonset-${name}" ${ARGN})
endfunction()

dravonset_install(toolkit DESCRIPTION "2D graphics toolkit: ports, palettes, bitmaps, encoders")
dravonset_install(ps DESCRIPTION "PostScript output devices" REQUIRES dravonset-toolkit)
# What most programs ask for.
dravonset_pkg_config(dravonset DESCRIPTION "PostScript output devices of a 2D graphics toolkit" REQUIRES dravonset-ps)
set(left_out)
if(DRAVONSET_HAVE_X11)
    dravonset_install(x11 DESCRIPTION "Windows of the X Window System as ports" REQUIRES dravonset-toolkit PRIVATE x11)
else()
    list(APPEND left_out PATTERN toolkit/x11 EXCLUDE)
endif()
if(DRAVONSET_HAVE_ZLIB)
    dravonset_install(zlib DESCRIPTION "Flate compression of image data" REQUIRES dravonset-toolkit PRIVATE zlib)
else()
    list(APPEND left_out PATTERN toolkit/zlib EXCLUDE)
endif()
install(DIRECTORY toolkit ps DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/dravonset
    FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE ${left_out})
install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/dravonset)

# Programs find what static libraries need; shared ones know it themselves.
set(dravonset_dependencies)
if(NOT BUILD_SHARED_LIBS)
    set(dravonset_dependencies "set(_dravonset_dependency_x11 X11)\nset(_dravonset_dependency_zlib ZLIB)")
endif()
configure_package_config_file(cmake/DravonsetConfig.cmake.in ${PROJECT_BINARY_DIR}/DravonsetConfig.cmake
    INSTALL_DESTINATION ${dravonset_package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/DravonsetConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/DravonsetConfig.cmake ${PROJECT_BINARY_DIR}/DravonsetConfigVersion.cmake
    DESTINATION ${dravonset_package_dir})

if(DRAVONSET_TOOLS)
    include(cmake/InstallTools.cmake)
endif()
