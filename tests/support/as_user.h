#pragma once

#include "support/skip.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>
#include <iostream>

namespace tarvin {

/// Runs `action` in a separate process, as the user `number`; a failed expectation there fails the
/// test. Requires root, else the test is skipped. Requires that the test has no other thread: the
/// process is forked.
inline void asUser(unsigned number, const std::function<void()>& action) {
    if (::geteuid() != 0) {
        skipTest("only root can become another user");
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
            // Uncaught, it would run the remaining tests in the child process.
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
