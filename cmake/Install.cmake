# What an installation holds: libraries, headers, data, and how other projects find them.

include(CMakePackageConfigHelpers)

set(dravonset_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Dravonset)

# One pkg-config file and one set of exported targets for each library, so that programs need only what they link.
# dravonset_install(NAME DESCRIPTION text REQUIRES modules PRIVATE modules)
function(dravonset_install name)
    cmake_parse_arguments(PARSE_ARGV 1 pc "" "DESCRIPTION" "REQUIRES;PRIVATE")
    install(TARGETS dravonset-${name} EXPORT Dravonset-${name})
    install(EXPORT Dravonset-${name} NAMESPACE Dravonset:: DESTINATION ${dravonset_package_dir})

    # The file finds its prefix from where it lies, so that an installation can be moved.
    file(RELATIVE_PATH pc_prefix ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
    string(REGEX REPLACE "/$" "" pc_prefix "${pc_prefix}")
    set(pc_name dravonset-${name})
    list(JOIN pc_REQUIRES ", " pc_requires)
    list(JOIN pc_PRIVATE ", " pc_private)
    configure_file(cmake/dravonset.pc.in ${PROJECT_BINARY_DIR}/${pc_name}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${pc_name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

dravonset_install(toolkit DESCRIPTION "2D graphics toolkit: ports, palettes, bitmaps, encoders")
dravonset_install(ps DESCRIPTION "PostScript output devices" REQUIRES dravonset-toolkit)
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

configure_package_config_file(cmake/DravonsetConfig.cmake.in ${PROJECT_BINARY_DIR}/DravonsetConfig.cmake
    INSTALL_DESTINATION ${dravonset_package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/DravonsetConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/DravonsetConfig.cmake ${PROJECT_BINARY_DIR}/DravonsetConfigVersion.cmake
    DESTINATION ${dravonset_package_dir})

if(DRAVONSET_TOOLS)
    set(programs qsdps)
    if(DRAVONSET_HAVE_X11)
        list(APPEND programs qsdps-window qsdview)
    endif()
    foreach(program IN LISTS programs)
        install(TARGETS ${program})
        install(FILES docs/${program}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
    endforeach()
endif()
