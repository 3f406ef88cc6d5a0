# dravonset_test(NAME SOURCES file... LINK target...): a GoogleTest program whose tests ctest knows one by one, each in a
# process of its own, so that what a process has once (registry, locale, font scales) starts fresh for every test.
function(dravonset_test name)
    cmake_parse_arguments(PARSE_ARGV 1 test "" "" "SOURCES;LINK")
    add_executable(${name} ${test_SOURCES})
    dravonset_target_defaults(${name})
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${test_LINK} GTest::gtest_main)
    gtest_discover_tests(${name} TEST_PREFIX ${name}. PROPERTIES ENVIRONMENT SOURCE_DATE_EPOCH=1700000000)
endfunction()
