#include "cli/program_run.h"
#include "support/dead_mount.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <string>

namespace tarvin {
namespace {

#ifdef TARVIN_SANITIZED
constexpr std::chrono::milliseconds promptly{5000};
#else
constexpr std::chrono::milliseconds promptly{1000};
#endif

/// A tree with a folder whose file system never responds.
class DeadMountTest : public ::testing::Test {
 protected:
    void SetUp() override {
        folder_.writeFile("tree/1.txt", "same");
        folder_.writeFile("tree/2.txt", "same");
        if (!dead_.isMounted()) {
            GTEST_SKIP() << "Mounting is refused here";
        }
    }

    [[nodiscard]] ProgramRun scan() const {
        // LeakSanitizer would wait for the stuck thread.
        return ProgramRun(
            {"scan", "--progress", "always", "tree"},
            {.folder = folder_.path(), .environment = {{"ASAN_OPTIONS", "detect_leaks=0"}}});
    }

    TemporaryFolder folder_;
    DeadMount dead_{folder_.makeFolder("tree/dead")};
};

TEST_F(DeadMountTest, IsReportedAfterSecondsAndStopEndsTheScan) {
    ProgramRun run = scan();
    run.waitForError("Waiting for: " + folder_.pathOf("tree/dead"));
    const auto stopped = std::chrono::steady_clock::now();
    run.send(SIGINT);
    const ProgramResult result = run.wait();
    EXPECT_LT(std::chrono::steady_clock::now() - stopped, promptly);
    EXPECT_EQ(result.status, 130);
    EXPECT_NE(result.output.find("Scan stopped early; the result is incomplete.\n"),
              std::string::npos)
        << result.output;
}

TEST_F(DeadMountTest, ReleasedWithAnErrorIsUnreadable) {
    ProgramRun run = scan();
    run.waitForError("Waiting for: ");
    dead_.release();
    const ProgramResult result = run.wait();
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(
        result.errors.find("tarvin: cannot read folder '" + folder_.pathOf("tree/dead") + "': "),
        std::string::npos)
        << result.errors;
    EXPECT_NE(result.output.find("Set(1)"), std::string::npos) << result.output;
}

}  // namespace
}  // namespace tarvin
