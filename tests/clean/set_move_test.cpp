#include "clean/set_move.h"

#include "clean/clean_up_fixture.h"
#include "support/file_content.h"
#include "support/mount.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// A set of three equal files; the second and third are marked.
class SetMoveTest : public EqualFiles, public ::testing::Test {
 protected:
    SetMoveTest() : set_(files_.addSet({one_, two_, three_})) {}

    MoveReport run() { return run({}); }

    MoveReport run(CleanUp::Settings settings) {
        return cleanUp(files_.marked(), user_, fileSystem_, std::move(settings));
    }

    static void append(const std::string& path) { std::ofstream(path, std::ios::app) << "more"; }

    /// Writes other bytes of the same size and restores the modification date.
    static void forge(const std::string& path, const std::string& bytes = "evil") {
        const auto date = fs::last_write_time(path);
        std::ofstream(path) << bytes;
        fs::last_write_time(path, date);
    }

    ComparedFiles files_;
    std::shared_ptr<Set> set_;
};

constexpr MoveOutcome moved = MoveOutcome::moved;
constexpr MoveOutcome changed = MoveOutcome::changed;
constexpr MoveOutcome gone = MoveOutcome::gone;
constexpr MoveOutcome lastCopy = MoveOutcome::lastCopy;

MoveReport outcomes(MoveOutcome second, MoveOutcome third) {
    return {{"two.txt", second}, {"three.txt", third}};
}

TEST_F(SetMoveTest, MovesUnchangedFiles) {
    EXPECT_EQ(run(), outcomes(moved, moved));
    EXPECT_EQ(contentOf(one_), "same");
    EXPECT_FALSE(fs::exists(two_));
    EXPECT_EQ(user_.trashed(), 2U);
    EXPECT_EQ(user_.trashInfos(), 2U);
}

TEST_F(SetMoveTest, KeepsAFileOfAnotherSize) {
    append(two_);
    EXPECT_EQ(run(), outcomes(changed, moved));
}

TEST_F(SetMoveTest, KeepsAFileWithAnotherDate) {
    fs::last_write_time(two_, fs::last_write_time(two_) + std::chrono::hours(1));
    EXPECT_EQ(run(), outcomes(changed, moved));
}

TEST_F(SetMoveTest, KeepsAFileWithOtherBytesAndTheSameDate) {
    forge(two_);
    EXPECT_EQ(run(), outcomes(lastCopy, moved));
    EXPECT_EQ(contentOf(two_), "evil");
}

TEST_F(SetMoveTest, MovesAFileWithChangedPermissions) {
    fs::permissions(two_, fs::perms::owner_read);
    EXPECT_EQ(run(), outcomes(moved, moved));
}

TEST_F(SetMoveTest, KeepsAFileReplacedByACopy) {
    const auto date = fs::last_write_time(two_);
    fs::copy_file(one_, two_ + ".new");
    fs::last_write_time(two_ + ".new", date);
    fs::rename(two_ + ".new", two_);
    EXPECT_EQ(run(), outcomes(changed, moved));
}

TEST_F(SetMoveTest, KeepsAFileReplacedByASymlinkOrFolder) {
    fs::remove(two_);
    fs::create_symlink(one_, two_);
    fs::remove(three_);
    fs::create_directory(three_);
    EXPECT_EQ(run(), outcomes(changed, changed));
    expectNothingMoved();
}

TEST_F(SetMoveTest, ReportsMissingFilesAsGone) {
    fs::remove(two_);
    fs::remove_all(folder_.pathOf("c"));
    EXPECT_EQ(run(), outcomes(gone, gone));
}

TEST_F(SetMoveTest, KeepsAFileWhoseFolderWasReplaced) {
    fs::rename(folder_.pathOf("b"), folder_.pathOf("old"));
    folder_.writeFile("b/two.txt", "same");
    EXPECT_EQ(run(), outcomes(changed, moved));
}

TEST_F(SetMoveTest, MovesAFileWhoseScanRootBecameASymlinkToIt) {
    fs::rename(folder_.pathOf("b"), folder_.pathOf("old"));
    folder_.makeLink("b", "old");
    // A scan root may be a symlink, and it still leads to the scanned folder.
    EXPECT_EQ(run(), outcomes(moved, moved));
    EXPECT_EQ(contentOf(one_), "same");
}

TEST_F(SetMoveTest, KeepsTheLastCopy) {
    fs::remove(one_);
    append(three_);
    EXPECT_EQ(run(), outcomes(lastCopy, changed));
    expectNothingMoved();
}

TEST_F(SetMoveTest, KeepsTheLastCopyIfTheOthersHaveOtherBytes) {
    forge(one_);
    forge(three_, "vile");
    EXPECT_EQ(run(), outcomes(lastCopy, lastCopy));
    expectNothingMoved();
}

TEST_F(SetMoveTest, MovesBackIfTheSurvivorIsRemovedMeanwhile) {
    fs::remove(three_);
    EXPECT_EQ(run(at(MoveStep::recheck, [this] { fs::remove(one_); })), outcomes(lastCopy, gone));
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

TEST_F(SetMoveTest, MovesBackIfTheSurvivorIsChangedMeanwhile) {
    fs::remove(three_);
    EXPECT_EQ(run(at(MoveStep::moveToTrash, [this] { forge(one_); })), outcomes(lastCopy, gone));
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

TEST_F(SetMoveTest, MovesBackIfTheSurvivorsFolderIsMovedMeanwhile) {
    fs::remove(three_);
    CleanUp::Settings settings = at(MoveStep::recheck, [this] {
        fs::rename(folder_.pathOf("a"), folder_.pathOf("elsewhere"));
    });
    EXPECT_EQ(
        cleanUp(files_.marked(), user_, fileSystem_, std::move(settings), std::chrono::hours(1)),
        outcomes(lastCopy, gone));
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

TEST_F(SetMoveTest, FindsAnotherSurvivorForARemovedOne) {
    EXPECT_EQ(run(at(MoveStep::recheck, [this] { fs::remove(one_); })), outcomes(moved, lastCopy));
    EXPECT_EQ(contentOf(three_), "same");
}

// The folder of the first survivor is still open, and the file still in it.
TEST_F(SetMoveTest, FindsAnotherSurvivorIfTheFolderOfTheFirstIsMoved) {
    Modal& modal = files_.marked();
    set_->files().back()->setState(CheckState::off);
    CleanUp::Settings settings = at(MoveStep::recheck, [this] {
        fs::rename(folder_.pathOf("a"), folder_.pathOf("elsewhere"));
    });
    EXPECT_EQ(cleanUp(modal, user_, fileSystem_, std::move(settings), std::chrono::hours(1)),
              (MoveReport{{"two.txt", moved}}));
    EXPECT_EQ(contentOf(three_), "same");
}

TEST_F(SetMoveTest, MovesBackAFileExchangedBeforeTheMove) {
    const MoveReport report = run(at(MoveStep::moveToTrash, [this] {
        fs::remove(two_);
        std::ofstream(two_) << "somebody's own";
    }));
    EXPECT_EQ(report, outcomes(changed, moved));
    EXPECT_EQ(contentOf(two_), "somebody's own");
    EXPECT_EQ(user_.trashed(), 1U);
}

TEST_F(SetMoveTest, LeavesAFileInTheTrashThatCannotBeMovedBack) {
    fs::remove(three_);
    CleanUp::Settings settings;
    settings.beforeStep = [this](MoveStep step) {
        if (step == MoveStep::recheck) {
            fs::remove(one_);
        } else if (step == MoveStep::moveBack) {
            std::ofstream(two_) << "in its place";
        }
    };
    EXPECT_EQ(run(std::move(settings)), outcomes(moved, gone));
    EXPECT_EQ(contentOf(two_), "in its place");
    EXPECT_EQ(user_.trashed(), 1U);
    EXPECT_EQ(user_.trashInfos(), 1U);
}

TEST_F(SetMoveTest, CountsAHardLinkAsASurvivor) {
    const std::string link = folder_.pathOf("b/link.txt");
    fs::create_hard_link(two_, link);
    ComparedFiles linked;
    linked.addSet({two_, link});
    EXPECT_EQ(cleanUp(linked.marked(), user_, fileSystem_), (MoveReport{{"link.txt", moved}}));
    EXPECT_EQ(contentOf(two_), "same");
}

TEST_F(SetMoveTest, DoesNotCountTheSameFileUnderAnotherPath) {
    folder_.makeLink("alias", "b");
    ComparedFiles twice;
    twice.addSet({two_, folder_.pathOf("alias/two.txt")});
    EXPECT_EQ(cleanUp(twice.marked(), user_, fileSystem_), (MoveReport{{"two.txt", lastCopy}}));
    expectNothingMoved();
}

// A bind mount of the file itself: another folder and name, but no second hard link.
TEST_F(SetMoveTest, DoesNotCountABindMountOfTheFile) {
    const std::string mounted = folder_.writeFile("d/mounted.txt", "");
    const Mount mount(two_, mounted, nullptr, MS_BIND);
    if (!mount) {
        return;
    }
    ComparedFiles twice;
    twice.addSet({mounted, two_});
    EXPECT_EQ(cleanUp(twice.marked(), user_, fileSystem_), (MoveReport{{"two.txt", lastCopy}}));
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

TEST_F(SetMoveTest, MovesBackAHardLinkIfTheOtherOneIsChangedMeanwhile) {
    const std::string link = folder_.pathOf("d/link.txt");
    fs::create_directory(folder_.pathOf("d"));
    fs::create_hard_link(two_, link);
    ComparedFiles linked;
    linked.addSet({two_, link});
    // The last call of the recheck: the file that arrived has been found unchanged.
    fileSystem_.beforeCall(FileCall::attributesAtPath, 1, [this] { append(two_); }, "two.txt");
    EXPECT_EQ(cleanUp(linked.marked(), user_, fileSystem_), (MoveReport{{"link.txt", lastCopy}}));
    EXPECT_EQ(contentOf(link), "samemore");
    expectNothingMoved();
}

TEST_F(SetMoveTest, ReportsTheSystemError) {
    std::vector<MoveResult> results;
    fileSystem_.failCall(FileCall::attributesAt, 1, EIO, "two.txt");
    CleanUp::Settings settings;
    settings.report = [&results](const File&, const MoveResult& result) {
        results.push_back(result);
    };
    CleanUp cleanUp(fileSystem_, user_.mover(), user_.journal(), user_.turns(),
                    systemPlatform().clock(), std::move(settings));
    DeletionControl control;
    DeletionWalk walk(files_.marked(), cleanUp, control, {});
    walk.run();
    EXPECT_EQ(results.front(), (MoveResult{MoveOutcome::refused, "Input/output error",
                                           TrashRefusalKind::system, SystemError{EIO}}));
    EXPECT_FALSE(cleanUp.finish().has_value());
}

TEST_F(SetMoveTest, MovesNothingAfterAStop) {
    CleanUp::Settings settings;
    settings.stopped = [] { return true; };
    EXPECT_EQ(run(std::move(settings)), outcomes(MoveOutcome::stopped, MoveOutcome::stopped));
    expectNothingMoved();
}

TEST_F(SetMoveTest, ReportsAStopDuringAComparisonAsStopped) {
    fs::permissions(two_, fs::perms::owner_read);
    CleanUp::Settings settings;
    settings.stopped = [questions = 0]() mutable { return ++questions > 1; };
    EXPECT_EQ(run(std::move(settings)), outcomes(MoveOutcome::stopped, MoveOutcome::stopped));
    expectNothingMoved();
}

TEST_F(SetMoveTest, ReportsAStopInAComparisonOfAWholeSetAsStopped) {
    Modal& modal = files_.marked();
    set_->files().front()->setState(CheckState::on);
    CleanUp::Settings settings;
    settings.wholeSets = CleanUp::WholeSets::goIfMarked;
    // The third poll is in the comparison of the second file.
    settings.beforeStep = [this, files = 0](MoveStep step) mutable {
        if (step == MoveStep::checkFile && ++files == 2) {
            fs::permissions(two_, fs::perms::owner_read);
        }
    };
    settings.stopped = [questions = 0]() mutable { return ++questions > 2; };
    EXPECT_EQ(cleanUp(modal, user_, fileSystem_, std::move(settings)),
              (MoveReport{{"one.txt", moved},
                          {"two.txt", MoveOutcome::stopped},
                          {"three.txt", MoveOutcome::stopped}}));
    EXPECT_EQ(user_.trashed(), 1U);
}

TEST_F(SetMoveTest, MovesBackIfTheRecheckIsStopped) {
    fs::permissions(three_, fs::perms::owner_read);
    CleanUp::Settings settings = at(MoveStep::recheck, [this] { fs::remove(one_); });
    settings.stopped = [questions = 0]() mutable { return ++questions > 1; };
    EXPECT_EQ(run(std::move(settings)), outcomes(MoveOutcome::stopped, MoveOutcome::stopped));
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

TEST_F(SetMoveTest, RefusesWhileAnotherCleanUpHoldsTheLock) {
    const auto turn = user_.turns().tryTake(0);
    ASSERT_TRUE(turn);
    CleanUp::Settings settings;
    settings.patience = std::chrono::milliseconds(1);
    EXPECT_EQ(run(std::move(settings)), outcomes(MoveOutcome::refused, MoveOutcome::refused));
    expectNothingMoved();
}

TEST_F(SetMoveTest, ReleasesTheLockAfterTheSet) {
    EXPECT_EQ(files_.marked().totalFilesSelected(), 2U);
    CleanUp cleanUp(fileSystem_, user_.mover(), user_.journal(), user_.turns(),
                    systemPlatform().clock(), {});
    ASSERT_TRUE(cleanUp.prepare({&set_, 1}));
    {
        const auto moving = cleanUp.begin(*set_);
        EXPECT_TRUE(moving->move(*set_->files()[1]));
        EXPECT_FALSE(user_.turns().tryTake(0));
    }
    EXPECT_TRUE(user_.turns().tryTake(0));
    EXPECT_FALSE(cleanUp.finish().has_value());
}

TEST_F(SetMoveTest, StopEndsTheWaitForTheLock) {
    const auto turn = user_.turns().tryTake(0);
    ASSERT_TRUE(turn);
    CleanUp::Settings settings;
    settings.stopped = [calls = 0]() mutable { return ++calls > 2; };
    EXPECT_EQ(run(std::move(settings)), outcomes(MoveOutcome::stopped, MoveOutcome::stopped));
    expectNothingMoved();
}

TEST_F(SetMoveTest, RecordsMovesThoughALaterPlanFails) {
    CleaningUser user(home_.path(), std::chrono::milliseconds(1));
    ComparedFiles more;
    const auto other = more.addSet(
        {folder_.writeFile("d/four.txt", "else"), folder_.writeFile("d/five.txt", "else")});
    EXPECT_EQ(more.marked().totalFilesSelected(), 1U);
    EXPECT_EQ(files_.marked().totalFilesSelected(), 2U);
    CleanUp cleanUp(fileSystem_, user.mover(), user.journal(), user.turns(),
                    systemPlatform().clock(), {});
    ASSERT_TRUE(cleanUp.prepare({&set_, 1}));
    ASSERT_TRUE(cleanUp.begin(*set_)->move(*set_->files().back()));
    {
        // SQLite's lock of a connection that is about to write.
        const auto writing = LockFile(user.journal().path()).tryTake(0x40000001);
        ASSERT_TRUE(writing);
        EXPECT_FALSE(cleanUp.prepare({&other, 1}));
    }
    EXPECT_TRUE(cleanUp.finish().has_value());
    const auto all = user.journal().cleanUps();
    const CleanUpSummary& summary = std::get<std::vector<CleanUpSummary>>(all).front();
    EXPECT_TRUE(summary.finished);
    EXPECT_EQ(summary.movedFiles, 1U);
}

TEST_F(SetMoveTest, KeepsOneFileOfAFullyMarkedSet) {
    Modal& modal = files_.marked();
    set_->files().front()->setState(CheckState::on);
    EXPECT_EQ(cleanUp(modal, user_, fileSystem_),
              (MoveReport{{"one.txt", moved}, {"two.txt", moved}, {"three.txt", lastCopy}}));
    EXPECT_EQ(contentOf(three_), "same");
}

TEST_F(SetMoveTest, MovesAWholeSetIfAllowed) {
    Modal& modal = files_.marked();
    set_->files().front()->setState(CheckState::on);
    CleanUp::Settings settings;
    settings.wholeSets = CleanUp::WholeSets::goIfMarked;
    EXPECT_EQ(cleanUp(modal, user_, fileSystem_, std::move(settings)),
              (MoveReport{{"one.txt", moved}, {"two.txt", moved}, {"three.txt", moved}}));
}

TEST_F(SetMoveTest, ReadsEachFileOfAWholeSetOnce) {
    Modal& modal = files_.marked();
    set_->files().front()->setState(CheckState::on);
    fs::permissions(two_, fs::perms::owner_read);
    CleanUp::Settings settings;
    settings.wholeSets = CleanUp::WholeSets::goIfMarked;
    EXPECT_EQ(cleanUp(modal, user_, fileSystem_, std::move(settings)),
              (MoveReport{{"one.txt", moved}, {"two.txt", moved}, {"three.txt", moved}}));
    EXPECT_EQ(fileSystem_.bytesRead(two_), 4U);
    EXPECT_EQ(fileSystem_.bytesRead(), 8U);
}

TEST_F(SetMoveTest, KeepsOneFileOfAWholeSetWithAChangedFile) {
    Modal& modal = files_.marked();
    set_->files().front()->setState(CheckState::on);
    append(one_);
    CleanUp::Settings settings;
    settings.wholeSets = CleanUp::WholeSets::goIfMarked;
    EXPECT_EQ(cleanUp(modal, user_, fileSystem_, std::move(settings)),
              (MoveReport{{"one.txt", changed}, {"two.txt", moved}, {"three.txt", lastCopy}}));
}

}  // namespace
}  // namespace tarvin
