#include "cli/messages.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

TEST(Messages, GoToStandardErrorUnderTheProgramsName) {
    testing::internal::CaptureStderr();
    printError("something is wrong");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "tarvin: something is wrong\n");
}

TEST(Messages, APathIsQuotedWhereNeeded) {
    testing::internal::CaptureStderr();
    printPathError("read", "/plain path", "gone");
    printPathError("read", "/\x1B[31m\n", "gone");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "tarvin: cannot read '/plain path': gone\n"
              "tarvin: cannot read $'/\\x1b[31m\\n': gone\n");
}

}  // namespace
}  // namespace tarvin
