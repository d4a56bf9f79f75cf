#pragma once

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>
#include <iostream>

namespace tarvin {

/// Does something in a process of its own, as another user. What is expected there counts for this
/// test. Takes the administrator; where the test is not run by one, says so and does nothing. The
/// test has one thread by now.
inline void asUser(unsigned number, const std::function<void()>& action) {
    if (::geteuid() != 0) {
        std::cout << "Not tried: only the administrator can become another user\n";
        return;
    }
    std::cout.flush();
    const pid_t child = ::fork();
    if (child == 0) {
        const bool isOther = ::setgroups(0, nullptr) == 0 &&
                             ::setresgid(number, number, number) == 0 &&
                             ::setresuid(number, number, number) == 0;
        EXPECT_TRUE(isOther);
        try {
            if (isOther) {
                action();
            }
        } catch (const std::exception& error) {
            // Or it would go on with the tests that follow.
            ADD_FAILURE() << error.what();
        }
        std::cout.flush();
        ::_exit(::testing::Test::HasFailure() ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << "user " << number;
}

}  // namespace tarvin
