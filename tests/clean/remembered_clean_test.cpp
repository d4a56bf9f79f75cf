// Clean-ups of the results of scans that did not read what earlier ones had compared.

#include "clean/clean_up_fixture.h"
#include "scan/scan_run.h"
#include "support/fake_platform.h"
#include "support/file_content.h"
#include "support/secret_change.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace tarvin {
namespace {

class RememberedCleanUp : public testing::Test {
 protected:
    static constexpr MoveOutcome moved = MoveOutcome::moved;
    static constexpr MoveOutcome lastCopy = MoveOutcome::lastCopy;

    /// Scans the folder twice. Between the scans something may happen.
    void scanTwice(const std::function<void()>& between = {}) {
        scan();
        EXPECT_GT(opened_, 0U);
        if (between) {
            between();
        }
        scan();
        modal_->markAllExtension();
    }

    void scan() {
        FaultyFileSystem fileSystem;
        fileSystem.setVolumeName("volume");
        fileSystem.setListingOrder(ListingOrder::sorted);
        FakePlatform platform(fileSystem);
        // The files are new, so their dates have settled an hour from now.
        platform.clock().set(systemPlatform().clock().now() + std::chrono::hours(1));
        ScanRun run(platform, observer_);
        run.setMemory(memory_.path());
        run.start({{folder_.path(), "", "", true, true}}, {});
        run.waitForMemory();
        modal_ = run.result().modal;
        // Without the memory, which is read ahead.
        opened_ = fileSystem.openedFiles().size() - 1;
    }

    MoveReport clean() { return cleanUp(*modal_, user_, systemFileSystem()); }

    class Observer final : public ScanObserver {};

    TemporaryFolder folder_;
    TemporaryFolder memory_;
    std::string one_ = folder_.writeFile("one.txt", "same");
    std::string three_ = folder_.writeFile("three.txt", "same");
    std::string two_ = folder_.writeFile("two.txt", "same");
    TemporaryFolder home_;
    CleaningUser user_{home_.path()};
    Observer observer_;
    std::shared_ptr<Modal> modal_;
    std::size_t opened_ = 0;
};

TEST_F(RememberedCleanUp, MovesWhatTheScanDidNotRead) {
    scanTwice();
    EXPECT_EQ(opened_, 0U);
    EXPECT_EQ(clean(), (MoveReport{{"three.txt", moved}, {"two.txt", moved}}));
    EXPECT_EQ(contentOf(one_), "same");
    EXPECT_EQ(user_.trashed(), 2U);
}

TEST_F(RememberedCleanUp, KeepsAFileChangedSinceAScanThatDidNotReadIt) {
    scanTwice();
    EXPECT_EQ(opened_, 0U);
    changeSecretly(three_, "evil");
    EXPECT_EQ(clean(), (MoveReport{{"three.txt", lastCopy}, {"two.txt", moved}}));
    EXPECT_EQ(contentOf(three_), "evil");
    EXPECT_EQ(contentOf(one_), "same");
}

TEST_F(RememberedCleanUp, KeepsTheLastCopyIfTheOthersHaveChangedSince) {
    scanTwice();
    changeSecretly(one_, "evil");
    EXPECT_EQ(clean(), (MoveReport{{"three.txt", moved}, {"two.txt", lastCopy}}));
    EXPECT_EQ(contentOf(one_), "evil");
    EXPECT_EQ(contentOf(two_), "same");
}

TEST_F(RememberedCleanUp, KeepsAFileChangedBetweenTheScans) {
    scanTwice([this] { changeSecretly(three_, "evil"); });
    EXPECT_EQ(clean(), (MoveReport{{"two.txt", moved}}));
    EXPECT_EQ(contentOf(three_), "evil");
    EXPECT_EQ(contentOf(one_), "same");
}

TEST_F(RememberedCleanUp, MovesAFileMadeEqualBetweenTheScans) {
    changeSecretly(three_, "evil");
    scanTwice([this] { changeSecretly(three_, "same"); });
    EXPECT_EQ(clean(), (MoveReport{{"three.txt", moved}, {"two.txt", moved}}));
    EXPECT_EQ(contentOf(one_), "same");
}

}  // namespace
}  // namespace tarvin
