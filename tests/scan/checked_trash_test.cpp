#include "scan/checked_trash.h"

#include "model/deletion_walk.h"
#include "model/file_store.h"
#include "support/faulty_file_system.h"
#include "support/recording_trash.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using Outcomes = std::vector<std::pair<std::string, MoveOutcome>>;

/// A set of three equal files as a scan has seen them, and a Trash that moves nothing.
class CheckedTrashTest : public ::testing::Test {
 protected:
    void SetUp() override {
        for (const char* name : {"a/one.txt", "b/two.txt", "c/three.txt"}) {
            add(folder_.writeFile(name, "same"));
        }
        trash_.beginSet(set_);
    }

    void add(const std::string& path) {
        struct stat status{};
        ASSERT_EQ(::stat(path.c_str(), &status), 0);
        const std::chrono::nanoseconds modified = std::chrono::seconds(status.st_mtim.tv_sec) +
                                                  std::chrono::nanoseconds(status.st_mtim.tv_nsec);
        set_.addFiles(FileStore::standalone(path, static_cast<std::uint64_t>(status.st_size),
                                            Timestamp(modified)));
        inner_.addExisting(path);
    }

    [[nodiscard]] std::string path(std::size_t number) const {
        return set_.files()[number]->filePath();
    }

    /// What becomes of one file when it is asked for.
    MoveOutcome move(std::size_t number) {
        outcomes_.clear();
        const bool moved = trash_.trashItemAtPath(path(number));
        EXPECT_EQ(outcomes_.size(), 1U);
        EXPECT_EQ(outcomes_.front().first, path(number));
        EXPECT_EQ(moved, outcomes_.front().second == MoveOutcome::moved);
        return outcomes_.front().second;
    }

    TemporaryFolder folder_;
    FaultyFileSystem fileSystem_;
    RecordingTrash inner_;
    Set set_;
    bool stopped_ = false;
    Outcomes outcomes_;
    CheckedTrash trash_{fileSystem_, inner_,
                        [this](const File& file, MoveOutcome outcome) {
                            outcomes_.emplace_back(file.filePath(), outcome);
                        },
                        [this] { return stopped_; }};
};

TEST_F(CheckedTrashTest, TakesAFileThatIsAsItWasCompared) {
    EXPECT_TRUE(trash_.fileExistsAtPath(path(1)));
    EXPECT_EQ(move(1), MoveOutcome::moved);
    EXPECT_EQ(inner_.moves(), (std::vector<std::string>{path(1)}));
}

TEST_F(CheckedTrashTest, TakesNothingThatIsNotOfTheSet) {
    const std::string other = folder_.writeFile("other.txt", "same");
    inner_.addExisting(other);
    EXPECT_FALSE(trash_.fileExistsAtPath(other));
    EXPECT_FALSE(trash_.trashItemAtPath(other));
    EXPECT_TRUE(inner_.attempts().empty());
}

TEST_F(CheckedTrashTest, LeavesAFileOfAnotherSize) {
    std::ofstream(path(1), std::ios::app) << "more";
    EXPECT_EQ(move(1), MoveOutcome::changed);
    EXPECT_TRUE(inner_.attempts().empty());
}

TEST_F(CheckedTrashTest, LeavesAFileThatWasWrittenAgain) {
    std::filesystem::last_write_time(
        path(1), std::filesystem::file_time_type::clock::now() + std::chrono::hours(1));
    EXPECT_EQ(move(1), MoveOutcome::changed);
}

TEST_F(CheckedTrashTest, LeavesWhatHasBecomeAFolder) {
    std::filesystem::remove(path(1));
    std::filesystem::create_directory(path(1));
    EXPECT_EQ(move(1), MoveOutcome::changed);
    EXPECT_TRUE(inner_.attempts().empty());
}

TEST_F(CheckedTrashTest, LeavesWhatHasBecomeALink) {
    std::filesystem::remove(path(1));
    std::filesystem::create_symlink(path(0), path(1));
    EXPECT_EQ(move(1), MoveOutcome::changed);
    EXPECT_TRUE(inner_.attempts().empty());
}

TEST_F(CheckedTrashTest, TellsOfAFileThatIsGone) {
    std::filesystem::remove(path(1));
    EXPECT_EQ(move(1), MoveOutcome::gone);
    std::filesystem::remove_all(folder_.pathOf("c"));
    EXPECT_EQ(move(2), MoveOutcome::gone);
}

TEST_F(CheckedTrashTest, LeavesTheLastCopy) {
    std::filesystem::remove(path(0));
    std::ofstream(path(2), std::ios::app) << "more";
    EXPECT_EQ(move(1), MoveOutcome::lastCopy);
    EXPECT_TRUE(inner_.attempts().empty());
}

TEST_F(CheckedTrashTest, AnyOtherFileOfTheSetWillDo) {
    std::filesystem::remove(path(0));
    EXPECT_EQ(move(1), MoveOutcome::moved);
}

TEST_F(CheckedTrashTest, AFileWhoseFolderBecameALinkToTheOthersIsNoOther) {
    // One and the same file on two ways.
    std::filesystem::remove_all(folder_.pathOf("a"));
    std::filesystem::remove(path(2));
    folder_.makeLink("a", "b");
    std::filesystem::rename(path(1), folder_.pathOf("b/one.txt"));
    std::filesystem::create_hard_link(folder_.pathOf("b/one.txt"), folder_.pathOf("b/two.txt"));
    std::filesystem::remove(folder_.pathOf("b/one.txt"));
    EXPECT_EQ(move(1), MoveOutcome::lastCopy);
}

TEST_F(CheckedTrashTest, TheSameNameBehindALinkIsNoOther) {
    Set set;
    const std::string real = folder_.writeFile("real/x.txt", "same");
    folder_.makeLink("alias", "real");
    struct stat status{};
    ASSERT_EQ(::stat(real.c_str(), &status), 0);
    const Timestamp modified(std::chrono::seconds(status.st_mtim.tv_sec) +
                             std::chrono::nanoseconds(status.st_mtim.tv_nsec));
    const std::string alias = folder_.pathOf("alias/x.txt");
    set.addFiles(FileStore::standalone(real, 4, modified));
    set.addFiles(FileStore::standalone(alias, 4, modified));
    trash_.beginSet(set);
    inner_.addExisting(alias);
    EXPECT_FALSE(trash_.trashItemAtPath(alias));
    EXPECT_EQ(outcomes_.back().second, MoveOutcome::lastCopy);
    // With a second name elsewhere, which is not in the set, nothing changes.
    std::filesystem::create_hard_link(real, folder_.pathOf("real/second.txt"));
    EXPECT_FALSE(trash_.trashItemAtPath(alias));
    EXPECT_TRUE(inner_.attempts().empty());
}

TEST_F(CheckedTrashTest, AHardLinkIsAnother) {
    const std::string link = folder_.pathOf("b/link.txt");
    std::filesystem::create_hard_link(path(1), link);
    Set set;
    add(link);
    set.addFiles(set_.files()[1]);
    set.addFiles(set_.files()[3]);
    trash_.beginSet(set);
    EXPECT_EQ(move(1), MoveOutcome::moved);
}

TEST_F(CheckedTrashTest, TellsWhatTheSystemRefuses) {
    inner_.refuse(path(1));
    EXPECT_EQ(move(1), MoveOutcome::refused);
}

TEST_F(CheckedTrashTest, TakesNothingAfterAStop) {
    stopped_ = true;
    EXPECT_EQ(move(1), MoveOutcome::stopped);
    EXPECT_TRUE(inner_.attempts().empty());
}

TEST_F(CheckedTrashTest, LeavesWhatCannotBeLookedAt) {
    fileSystem_.failCall(FileCall::attributesAt, 1, EIO);
    EXPECT_EQ(move(1), MoveOutcome::changed);
    fileSystem_.clearFaults();
    fileSystem_.failCall(FileCall::openRootDirectory, 1, EACCES);
    EXPECT_EQ(move(1), MoveOutcome::changed);
}

/// A Trash that takes files from the disk.
class RemovingTrash final : public Trash {
 public:
    bool fileExistsAtPath(const std::string& path) override {
        return std::filesystem::exists(path);
    }
    bool trashItemAtPath(const std::string& path) override { return std::filesystem::remove(path); }
};

TEST_F(CheckedTrashTest, KeepsTheLastOfASetInWhichEveryFileIsMarked) {
    const auto set = std::make_shared<Set>();
    set->setFiles(set_.files());
    set->setTotalFilesInSet(2);
    set->setTotalFilesInSetSize(8);
    const auto txt = std::make_shared<Extensions>("txt");
    txt->addSet(set);
    Modal modal;
    modal.addExtension(txt);
    // The first by hand, then all by the box of the set: mixed, so the others are marked too.
    modal.changeStateOfExtension(txt, set, set->files()[0]);
    modal.changeStateOfExtension(txt, set, nullptr);
    RemovingTrash disk;
    CheckedTrash trash(fileSystem_, disk, [this](const File& file, MoveOutcome outcome) {
        outcomes_.emplace_back(file.filePath(), outcome);
    });
    DeletionControl control;
    DeletionWalk walk(
        modal, trash, control,
        [&trash](const Set& begun, const DeletionWalk::Progress&) { trash.beginSet(begun); });
    walk.start();
    EXPECT_EQ(walk.wait(), (RemovalResult{2, 8}));
    EXPECT_EQ(outcomes_, (Outcomes{{path(0), MoveOutcome::moved},
                                   {path(1), MoveOutcome::moved},
                                   {path(2), MoveOutcome::lastCopy}}));
    EXPECT_FALSE(std::filesystem::exists(path(0)));
    EXPECT_FALSE(std::filesystem::exists(path(1)));
    EXPECT_TRUE(std::filesystem::exists(path(2)));
    ASSERT_EQ(set->files().size(), 1U);
    EXPECT_EQ(set->files()[0]->filePath(), path(2));
    EXPECT_EQ(set->files()[0]->state(), CheckState::on);
}

TEST_F(CheckedTrashTest, GoesOnWithTheNextSet) {
    Set next;
    const std::string one = folder_.writeFile("d/one.txt", "other");
    add(one);
    next.addFiles(set_.files().back());
    trash_.beginSet(next);
    EXPECT_FALSE(trash_.fileExistsAtPath(path(0)));
    EXPECT_EQ(move(3), MoveOutcome::lastCopy);
}

}  // namespace
}  // namespace tarvin
