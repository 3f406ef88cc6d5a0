# Properties of tests that take seconds: they start before all others, so that no processor waits for the last of them, and
# may take long on busy machines and with the sanitizers, but not for ever.
set(DRAVONSET_LONG_TEST COST 100 TIMEOUT 1200)

# Numbers must not follow the locale. Tests of that need one with a decimal comma, which the machine may not have.
set(DRAVONSET_TEST_LOCALES ${PROJECT_BINARY_DIR}/locales)
if(NOT EXISTS ${DRAVONSET_TEST_LOCALES}/de_DE.UTF-8)
    file(MAKE_DIRECTORY ${DRAVONSET_TEST_LOCALES})
    execute_process(COMMAND localedef --no-warnings=ascii -i de_DE -f UTF-8 ${DRAVONSET_TEST_LOCALES}/de_DE.UTF-8
        OUTPUT_QUIET ERROR_QUIET)
endif()

# dravonset_test(NAME [WHOLE] [LONG PATTERN] SOURCES file... LINK target...): a GoogleTest program whose tests ctest knows
# one by one, each in a process of its own, so that what a process has once (registry, locale, font scales) starts fresh
# for every test. With WHOLE they also run one after the other in one process; ProcessState.cpp is to be among the sources
# then. Those whose names are like PATTERN take seconds.
function(dravonset_test name)
    cmake_parse_arguments(PARSE_ARGV 1 test "WHOLE" "LONG" "SOURCES;LINK")
    add_executable(${name} ${test_SOURCES})
    dravonset_target_defaults(${name})
    # Tests themselves need not be fast, and compile in a third of the time.
    target_compile_options(${name} PRIVATE -O0)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR})
    target_link_libraries(${name} PRIVATE ${test_LINK} GTest::gtest_main)
    set(properties
        ENVIRONMENT SOURCE_DATE_EPOCH=1700000000
        ENVIRONMENT_MODIFICATION LOCPATH=set:${DRAVONSET_TEST_LOCALES})
    set(others)
    if(test_LONG)
        gtest_discover_tests(${name} TEST_PREFIX ${name}. TEST_FILTER ${test_LONG} TEST_LIST ${name}-long
            PROPERTIES ${properties} ${DRAVONSET_LONG_TEST})
        set(others TEST_FILTER -${test_LONG})
    endif()
    gtest_discover_tests(${name} TEST_PREFIX ${name}. ${others} PROPERTIES ${properties})
    if(test_WHOLE)
        target_compile_definitions(${name} PRIVATE "DRAVONSET_TEST_LOCALES=\"${DRAVONSET_TEST_LOCALES}\"")
        # The files of its tests lie apart from those of the single tests, which may run at the same time.
        add_test(NAME ${name}.in-one-process COMMAND ${name} --gtest_brief=1)
        set_tests_properties(${name}.in-one-process PROPERTIES ENVIRONMENT TEST_TMPDIR=${CMAKE_CURRENT_BINARY_DIR})
    endif()
endfunction()
