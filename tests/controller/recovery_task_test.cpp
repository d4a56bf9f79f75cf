#include "controller/recovery_task.h"

#include "controller/product_fixture.h"
#include "store/clean_up_journal.h"
#include "support/waiting.h"

#include <cstdlib>
#include <vector>

namespace tarvin {
namespace {

/// A crashed clean-up with a file of unknown outcome on a drive that is blocked by the test.
class RecoveryOfAHangingDrive : public testing::Test {
 protected:
    RecoveryOfAHangingDrive() {
        platform.setApplicationSupportFolder(folder.pathOf("support"));
        auto opened = CleanUpJournal::open(folder.pathOf("support"));
        auto& journal = std::get<CleanUpJournal>(opened);
        const CleanUpId id = std::get<CleanUpId>(journal.begin({}));
        const std::vector<PlannedMove> moves{{"/far/away/a.txt", 1, 70, {}}};
        EXPECT_TRUE(std::holds_alternative<MoveRow>(journal.plan(id, moves)));
        files.beforeCall(FileCall::attributesAtPath, 1, [this] { drive.wait(); }, "/far/away");
    }
    ~RecoveryOfAHangingDrive() override {
        drive.open();
        EXPECT_TRUE(waitUntil([] { return RecoveryTask::leftBehind() == 0; }));
    }

    /// Starts a recovery and destroys its task while the thread is blocked.
    void leaveRecovery() {
        const RecoveryTask task(platform);
        ASSERT_TRUE(waitUntil([this] { return drive.isReached(); }));
        EXPECT_EQ(RecoveryTask::leftBehind(), 0);
    }

    TemporaryFolder folder;
    FaultyFileSystem files;
    FakePlatform platform{files};
    Barrier drive;
};

TEST_F(RecoveryOfAHangingDrive, IsLeftBehindAndCountedUntilItEnds) {
    leaveRecovery();
    EXPECT_EQ(RecoveryTask::leftBehind(), 1);
    drive.open();
    EXPECT_TRUE(waitUntil([] { return RecoveryTask::leftBehind() == 0; }));
}

TEST_F(RecoveryOfAHangingDrive, ThatAnswersInTimeIsNotLeftBehind) {
    drive.open();
    leaveRecovery();
    EXPECT_EQ(RecoveryTask::leftBehind(), 0);
}

TEST_F(RecoveryOfAHangingDrive, IsNotNeededToReturnTheExitStatus) {
    EXPECT_EQ(RecoveryTask::endOfProcess(7), 7);
}

/// In a separate process: the thread uses objects that are destroyed at the end of a process.
TEST_F(RecoveryOfAHangingDrive, EndsTheProcessWithoutDestroyingWhatItUses) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    struct Witness {
        ~Witness() { std::_Exit(9); }
    };
    const auto end = [this] {
        static const Witness witness;
        leaveRecovery();
        std::exit(RecoveryTask::endOfProcess(7));  // NOLINT(concurrency-mt-unsafe)
    };
    EXPECT_EXIT(end(), testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace tarvin
