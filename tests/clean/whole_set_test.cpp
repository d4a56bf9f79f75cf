// Sets in which the user marked every file, with a change between two of their moves.

#include "clean/clean_up_fixture.h"
#include "support/file_content.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <utility>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// Three equal files, all marked. After the first has been moved, the others are changed.
class WholeSet : public ::testing::Test {
 protected:
    static constexpr MoveOutcome moved = MoveOutcome::moved;
    static constexpr MoveOutcome changed = MoveOutcome::changed;

    /// Calls `change` before step `at` of the second file.
    MoveReport runWith(std::function<void()> change, MoveStep at = MoveStep::checkFile) {
        return runWith(std::move(change), at, {one_, two_, three_});
    }
    MoveReport runWith(std::function<void()> change, MoveStep at,
                       const std::vector<std::string>& paths) {
        ComparedFiles files;
        const std::shared_ptr<Set> set = files.addSet(paths);
        Modal& modal = files.marked();
        set->files().front()->setState(CheckState::on);
        CleanUp::Settings settings;
        settings.wholeSets = CleanUp::WholeSets::goIfMarked;
        settings.beforeStep = [at, change = std::move(change), moves = 0](MoveStep step) mutable {
            if (step == at && ++moves == 2) {
                change();
            }
        };
        return cleanUp(modal, user_, fileSystem_, std::move(settings),
                       CleanUp::Settings().folderMaxAge);
    }

    static MoveReport outcomes(MoveOutcome first, MoveOutcome second, MoveOutcome third) {
        return {{"one.txt", first}, {"two.txt", second}, {"three.txt", third}};
    }

    /// Expects `count` files in the Trash, with the original bytes and .trashinfo files.
    void expectInTrash(std::size_t count) {
        EXPECT_EQ(user_.trashed(), count);
        EXPECT_EQ(user_.trashInfos(), count);
        for (const auto& entry : fs::directory_iterator(user_.trash() + "/files")) {
            EXPECT_EQ(contentOf(entry.path()), "same") << entry.path();
        }
    }

    TemporaryFolder folder_{quickFolder()};
    std::string one_ = folder_.writeFile("a/one.txt", "same");
    std::string two_ = folder_.writeFile("b/two.txt", "same");
    std::string three_ = folder_.writeFile("c/three.txt", "same");
    TemporaryFolder home_{quickFolder()};
    CleaningUser user_{home_.path()};
    FaultyFileSystem fileSystem_;
};

TEST_F(WholeSet, KeepsAChangedFile) {
    EXPECT_EQ(runWith([this] { std::ofstream(two_, std::ios::app) << "more"; }),
              outcomes(moved, changed, moved));
    EXPECT_EQ(contentOf(two_), "samemore");
    expectInTrash(2);
}

TEST_F(WholeSet, KeepsAReplacedFile) {
    EXPECT_EQ(runWith([this] {
                  const auto date = fs::last_write_time(three_);
                  std::ofstream(three_ + ".new") << "evil";
                  fs::last_write_time(three_ + ".new", date);
                  fs::rename(three_ + ".new", three_);
              }),
              outcomes(moved, moved, changed));
    EXPECT_EQ(contentOf(three_), "evil");
    expectInTrash(2);
}

TEST_F(WholeSet, KeepsAFileReplacedByASymlink) {
    EXPECT_EQ(runWith([this] {
                  fs::remove(two_);
                  fs::create_symlink(three_, two_);
              }),
              outcomes(moved, changed, moved));
    expectInTrash(2);
}

TEST_F(WholeSet, SkipsAMissingFile) {
    EXPECT_EQ(runWith([this] { fs::remove(two_); }), outcomes(moved, MoveOutcome::gone, moved));
    expectInTrash(2);
}

TEST_F(WholeSet, MovesBackAFileExchangedBeforeItsMove) {
    EXPECT_EQ(runWith(
                  [this] {
                      fs::remove(two_);
                      std::ofstream(two_) << "somebody's own";
                  },
                  MoveStep::moveToTrash),
              outcomes(moved, changed, moved));
    EXPECT_EQ(contentOf(two_), "somebody's own");
    expectInTrash(2);
}

TEST_F(WholeSet, KeepsAnInaccessibleFile) {
    EXPECT_EQ(runWith([this] { fileSystem_.failCall(FileCall::attributesAt, 1, EIO, "two.txt"); }),
              outcomes(moved, MoveOutcome::refused, moved));
    EXPECT_EQ(contentOf(two_), "same");
    expectInTrash(2);
}

TEST_F(WholeSet, MovesAFileWithChangedPermissions) {
    EXPECT_EQ(runWith([this] { fs::permissions(two_, fs::perms::owner_read); }),
              outcomes(moved, moved, moved));
    expectInTrash(3);
}

// Its current bytes have not been compared.
TEST_F(WholeSet, KeepsAFileWithOtherBytesAndTheSameDate) {
    runWith([this] {
        const auto date = fs::last_write_time(two_);
        std::ofstream(two_) << "evil";
        fs::last_write_time(two_, date);
    });
    EXPECT_EQ(contentOf(two_), "evil");
    EXPECT_FALSE(fs::exists(one_));
}

// Moving the first hard link changes the change date of the second one.
TEST_F(WholeSet, MovesOtherHardLinksOfAFile) {
    const std::string link = folder_.pathOf("b/link.txt");
    fs::create_hard_link(two_, link);
    EXPECT_EQ(runWith([] {}, MoveStep::checkFile, {two_, link}),
              (MoveReport{{"two.txt", moved}, {"link.txt", moved}}));
    expectInTrash(2);
}

}  // namespace
}  // namespace tarvin
