# What an installation holds: libraries, headers, data, and how other projects find them.

include(CMakePackageConfigHelpers)

install(TARGETS dravonset-toolkit dravonset-ps EXPORT DravonsetTargets)
install(EXPORT DravonsetTargets NAMESPACE Dravonset:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Dravonset)
set(left_out)
if(NOT DRAVONSET_HAVE_X11)
    list(APPEND left_out PATTERN toolkit/x11 EXCLUDE)
endif()
if(NOT DRAVONSET_HAVE_ZLIB)
    list(APPEND left_out PATTERN toolkit/zlib EXCLUDE)
endif()
install(DIRECTORY toolkit ps DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/dravonset
    FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE ${left_out})
install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/dravonset)

configure_package_config_file(cmake/DravonsetConfig.cmake.in ${PROJECT_BINARY_DIR}/DravonsetConfig.cmake
    INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Dravonset)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/DravonsetConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/DravonsetConfig.cmake ${PROJECT_BINARY_DIR}/DravonsetConfigVersion.cmake
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Dravonset)

configure_file(cmake/dravonset.pc.in ${PROJECT_BINARY_DIR}/dravonset.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/dravonset.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
