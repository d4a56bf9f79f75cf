#include "cli/messages.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

TEST(Messages, GoToStandardErrorUnderTheProgramsName) {
    testing::internal::CaptureStderr();
    complain("something is wrong");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "tarvin: something is wrong\n");
}

TEST(Messages, APathIsQuotedWhereNeeded) {
    testing::internal::CaptureStderr();
    complainAbout("/plain path", "gone");
    complainAbout("/\x1B[31m\n", "gone");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "tarvin: /plain path: gone\n"
              "tarvin: $'/\\x1b[31m\\n': gone\n");
}

}  // namespace
}  // namespace tarvin
