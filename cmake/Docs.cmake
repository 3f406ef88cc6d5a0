# The target docs: the reference of the public headers, in reference/html of the build folder.
find_package(Doxygen QUIET)
if(NOT DOXYGEN_FOUND)
    add_custom_target(docs COMMAND ${CMAKE_COMMAND} -E echo "The reference needs Doxygen, which was not found"
        COMMAND ${CMAKE_COMMAND} -E false)
    return()
endif()

set(DRAVONSET_REFERENCE_DIR ${PROJECT_BINARY_DIR}/reference)
configure_file(docs/Doxyfile.in ${PROJECT_BINARY_DIR}/Doxyfile @ONLY)
file(MAKE_DIRECTORY ${DRAVONSET_REFERENCE_DIR})
add_custom_target(docs COMMAND Doxygen::doxygen ${PROJECT_BINARY_DIR}/Doxyfile
    COMMENT "Writing the reference to ${DRAVONSET_REFERENCE_DIR}/html" VERBATIM)
if(DRAVONSET_TESTS)
    add_test(NAME reference COMMAND ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR} --target docs)
endif()
