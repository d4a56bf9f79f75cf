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

TEST(Messages, AStoreErrorWithoutAPathNamesTheActionOnly) {
    testing::internal::CaptureStderr();
    printStoreError("write journal", {"", "Input/output error"});
    printNoHomeFolder("read totals");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "tarvin: cannot write journal: Input/output error\n"
              "tarvin: cannot read totals: no home folder\n");
}

TEST(Messages, ARecordErrorNamesTheTotalsOrTheJournal) {
    testing::internal::CaptureStderr();
    printRecordError({"/d/data.plist", "Permission denied"}, "/d/data.plist");
    printRecordError({"/d", "Permission denied"}, "/d/data.plist");
    printRecordError({"/d/clean-ups.sqlite", "Permission denied"}, "/d/data.plist");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "tarvin: cannot store totals in '/d/data.plist': Permission denied\n"
              "tarvin: cannot store totals in '/d': Permission denied\n"
              "tarvin: cannot write journal '/d/clean-ups.sqlite': Permission denied\n");
}

}  // namespace
}  // namespace tarvin
