// For tests of what happens once in a process.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

/// Runs `body`, with expectations of its own, in a new process of the test program, which runs nothing but the test
/// that calls. Its failures are printed and make one of that test.
template <class Body>
void inAProcessOfItsOwn(Body body)
{
    constexpr const char* Mark = "DRAVONSET_OWN_PROCESS";
    if (std::getenv(Mark) != nullptr) {
        body();
        return;
    }
    const ::testing::TestInfo& test = *::testing::UnitTest::GetInstance()->current_test_info();
    const std::string filter = "--gtest_filter=" + std::string(test.test_suite_name()) + "." + test.name();
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::setenv(Mark, "1", 1);
        ::execl("/proc/self/exe", "test", filter.c_str(), "--gtest_brief=1", static_cast<char*>(nullptr));
        ::_exit(127);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "the process of its own failed";
}
