# cpack in a build folder: an archive of all that is installed.
set(CPACK_GENERATOR TGZ)
set(CPACK_PACKAGE_FILE_NAME dravonset-${PROJECT_VERSION}-${CMAKE_SYSTEM_NAME}-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
