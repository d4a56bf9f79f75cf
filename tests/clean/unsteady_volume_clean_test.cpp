// Clean-ups on a volume whose inode numbers or dates change from answer to answer.

#include "clean/clean_up_fixture.h"
#include "support/file_content.h"
#include "support/mount.h"

#include <sys/mount.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>
#include <utility>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

struct UnsteadyAnswers {
    bool inodes;
    bool dates;
};

std::ostream& operator<<(std::ostream& out, const UnsteadyAnswers& jitter) {
    return out << (jitter.inodes ? "inodes" : "") << (jitter.dates ? "dates" : "");
}

class UnsteadyCleanUp : public EqualFiles, public ::testing::TestWithParam<UnsteadyAnswers> {
 protected:
    static constexpr MoveOutcome moved = MoveOutcome::moved;
    static constexpr MoveOutcome changed = MoveOutcome::changed;
    static constexpr MoveOutcome lastCopy = MoveOutcome::lastCopy;
    static constexpr const char* mayBeSame = "its copy on another volume may be the same file";

    UnsteadyCleanUp() {
        if (GetParam().inodes) {
            fileSystem_.jitterInodes();
        }
        if (GetParam().dates) {
            fileSystem_.jitterDates();
        }
    }

    MoveReport clean(const std::vector<std::string>& paths, CleanUp::Settings settings = {}) {
        ComparedFiles files;
        files.addSet(paths);
        return cleanUp(files.marked(), user_, fileSystem_, std::move(settings));
    }
};

TEST_P(UnsteadyCleanUp, MovesDuplicates) {
    EXPECT_EQ(clean({one_, two_, three_}), (MoveReport{{"two.txt", moved}, {"three.txt", moved}}));
    EXPECT_EQ(contentOf(one_), "same");
    EXPECT_EQ(user_.trashed(), 2U);
    EXPECT_EQ(user_.trashInfos(), 2U);
}

TEST_P(UnsteadyCleanUp, KeepsAFileWithOtherBytes) {
    std::ofstream(two_) << "evil";
    EXPECT_EQ(clean({one_, two_, three_}),
              (MoveReport{{"two.txt", lastCopy}, {"three.txt", moved}}));
    EXPECT_EQ(contentOf(two_), "evil");
    EXPECT_EQ(user_.trashed(), 1U);
}

TEST_P(UnsteadyCleanUp, KeepsAFileThatGrew) {
    ComparedFiles files;
    files.addSet({one_, two_});
    std::ofstream(two_, std::ios::app) << "more";
    EXPECT_EQ(cleanUp(files.marked(), user_, fileSystem_), (MoveReport{{"two.txt", changed}}));
    expectNothingMoved();
}

TEST_P(UnsteadyCleanUp, KeepsTheLastCopyIfTheOthersHaveOtherBytes) {
    std::ofstream(one_) << "evil";
    EXPECT_EQ(clean({one_, two_}), (MoveReport{{"two.txt", lastCopy}}));
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

TEST_P(UnsteadyCleanUp, MovesBackIfTheSurvivorIsRemovedMeanwhile) {
    EXPECT_EQ(clean({one_, two_}, at(MoveStep::recheck, [this] { fs::remove(one_); })),
              (MoveReport{{"two.txt", lastCopy}}));
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

TEST_P(UnsteadyCleanUp, MovesBackIfTheSurvivorIsChangedMeanwhile) {
    EXPECT_EQ(clean({one_, two_}, at(MoveStep::recheck, [this] { std::ofstream(one_) << "evil"; })),
              (MoveReport{{"two.txt", lastCopy}}));
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

TEST_P(UnsteadyCleanUp, MovesBackAFileExchangedBeforeTheMove) {
    EXPECT_EQ(
        clean({one_, two_}, at(MoveStep::moveToTrash, [this] { std::ofstream(two_) << "evil"; })),
        (MoveReport{{"two.txt", lastCopy}}));
    EXPECT_EQ(contentOf(two_), "evil");
    expectNothingMoved();
}

TEST_P(UnsteadyCleanUp, FindsAnotherSurvivorForARemovedOne) {
    EXPECT_EQ(clean({one_, two_, three_}, at(MoveStep::recheck, [this] { fs::remove(one_); })),
              (MoveReport{{"two.txt", moved}, {"three.txt", lastCopy}}));
    EXPECT_EQ(contentOf(three_), "same");
    EXPECT_EQ(user_.trashed(), 1U);
}

TEST_P(UnsteadyCleanUp, MovesOneOfTwoHardLinks) {
    const std::string link = folder_.pathOf("a/link.txt");
    fs::create_hard_link(one_, link);
    EXPECT_EQ(clean({one_, link}), (MoveReport{{"link.txt", moved}}));
    EXPECT_EQ(contentOf(one_), "same");
}

TEST_P(UnsteadyCleanUp, DoesNotCountTheSameFileUnderTheSamePath) {
    EXPECT_EQ(clean({one_, one_}), (MoveReport{{"one.txt", lastCopy}}));
    expectNothingMoved();
}

TEST_P(UnsteadyCleanUp, DoesNotCountTheSameFileUnderAnotherPath) {
    folder_.makeLink("alias", "b");
    EXPECT_EQ(clean({folder_.pathOf("alias/two.txt"), two_}), (MoveReport{{"two.txt", lastCopy}}));
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

// The folder is the same, and its identity hides that no more than the file's.
TEST_P(UnsteadyCleanUp, DoesNotCountTheSameFileInARenumberedFolder) {
    folder_.makeLink("alias", "b");
    const auto identity = systemFileSystem().attributesAtPath(folder_.pathOf("b"))->identity;
    ComparedFiles files;
    files.addSet({folder_.pathOf("alias/two.txt"), two_});
    fileSystem_.setIdentity(folder_.pathOf("b"), {identity.device, 77});
    const MoveReport report = cleanUp(files.marked(), user_, fileSystem_);
    EXPECT_NE(report.front().second, moved);
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

// A bind mount of a file stays where it is, whatever becomes of the other name.
TEST_P(UnsteadyCleanUp, DoesNotCountABindMountOfTheFile) {
    const std::string mounted = folder_.writeFile("d/mounted.txt", "");
    const Mount mount(two_, mounted, nullptr, MS_BIND);
    if (!mount) {
        return;
    }
    EXPECT_EQ(clean({mounted, two_}), (MoveReport{{"two.txt", lastCopy}}));
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

// Two mounts of one server: the second may remember the moved file for a while.
TEST_P(UnsteadyCleanUp, DoesNotCountAFileOnAnotherUnsteadyVolume) {
    ComparedFiles files;
    files.addSet({one_, two_});
    fileSystem_.setIdentity(one_, {99, 5});
    const auto results = resultsOfCleanUp(files.marked(), user_, fileSystem_);
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0].outcome, lastCopy);
    EXPECT_EQ(results[0].reason, mayBeSame);
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

TEST_P(UnsteadyCleanUp, DoesNotTakeOtherBytesOnAnotherUnsteadyVolumeForACopy) {
    ComparedFiles files;
    files.addSet({one_, two_});
    std::ofstream(one_) << "evil";
    fileSystem_.setIdentity(one_, {99, 5});
    const auto results = resultsOfCleanUp(files.marked(), user_, fileSystem_);
    ASSERT_EQ(results.size(), 1U);
    EXPECT_EQ(results[0].outcome, lastCopy);
    EXPECT_EQ(results[0].reason, "");
}

TEST_P(UnsteadyCleanUp, MayCountAnotherFileThanThatOfAnotherVolume) {
    ComparedFiles files;
    files.addSet({one_, two_, three_});
    fileSystem_.setIdentity(one_, {99, 5});
    const auto results = resultsOfCleanUp(files.marked(), user_, fileSystem_);
    ASSERT_EQ(results.size(), 2U);
    EXPECT_EQ(results[0].outcome, moved);
    EXPECT_EQ(results[0].reason, "");
    EXPECT_EQ(results[1].outcome, lastCopy);
    EXPECT_EQ(results[1].reason, mayBeSame);
}

TEST_P(UnsteadyCleanUp, DoesNotCountAFileThatItsFolderDoesNotList) {
    fileSystem_.failCall(FileCall::listEntries, FaultyFileSystem::each, EIO, "/a");
    EXPECT_EQ(clean({one_, two_}), (MoveReport{{"two.txt", lastCopy}}));
    EXPECT_EQ(contentOf(two_), "same");
    expectNothingMoved();
}

TEST_P(UnsteadyCleanUp, KeepsOneFileOfAWholeSet) {
    ComparedFiles files;
    const auto set = files.addSet({one_, two_});
    Modal& modal = files.marked();
    set->files().front()->setState(CheckState::on);
    CleanUp::Settings settings;
    settings.wholeSets = CleanUp::WholeSets::goIfMarked;
    EXPECT_EQ(cleanUp(modal, user_, fileSystem_, std::move(settings)),
              (MoveReport{{"one.txt", moved}, {"two.txt", lastCopy}}));
    EXPECT_EQ(contentOf(two_), "same");
}

INSTANTIATE_TEST_SUITE_P(Volumes, UnsteadyCleanUp,
                         ::testing::Values(UnsteadyAnswers{true, false},
                                           UnsteadyAnswers{false, true},
                                           UnsteadyAnswers{true, true}));

}  // namespace
}  // namespace tarvin
