// Files that a scan finds twice because a FUSE file system shows their folder a second time. The
// metadata of the two paths do not reveal that they are one file.

#include "support/fuse_view.h"

#include "clean/clean_up_fixture.h"
#include "support/file_content.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// The parameter is the mount options: how long the kernel may cache metadata of the view.
class FilesOfAView : public ::testing::TestWithParam<const char*> {
 protected:
    static constexpr MoveOutcome moved = MoveOutcome::moved;
    static constexpr MoveOutcome lastCopy = MoveOutcome::lastCopy;

    [[nodiscard]] std::string real(const std::string& name) const { return folder_.pathOf(name); }

    /// Cleans up the set of these paths; the first stays.
    MoveReport clean(const std::vector<std::string>& paths, CleanUp::Settings settings = {}) {
        ComparedFiles files;
        files.addSet(paths);
        return cleanUp(files.marked(), user_, systemFileSystem(), std::move(settings),
                       CleanUp::Settings().folderMaxAge);
    }

    /// Counts the files in the folder itself, not through a view.
    [[nodiscard]] std::size_t living() const {
        std::size_t count = 0;
        for (const auto& entry : fs::directory_iterator(folder_.path())) {
            count += std::size_t{entry.is_regular_file() && contentOf(entry.path()) == "same"};
        }
        return count;
    }

    TemporaryFolder folder_{quickFolder()};
    TemporaryFolder home_{quickFolder()};
    CleaningUser user_{home_.path()};
};

TEST_P(FilesOfAView, KeepTheOnlyCopyIfItsViewIsUnmarked) {
    folder_.writeFile("a.txt", "same");
    const FuseView view(folder_.path(), GetParam());
    if (view) {
        EXPECT_EQ(clean({view.pathOf("a.txt"), real("a.txt")}), (MoveReport{{"a.txt", lastCopy}}));
        EXPECT_EQ(living(), 1U);
        EXPECT_EQ(user_.trashed(), 0U);
        EXPECT_EQ(user_.trashInfos(), 0U);
    }
}

TEST_P(FilesOfAView, KeepTheOnlyCopyIfItsViewIsMarked) {
    folder_.writeFile("a.txt", "same");
    const FuseView view(folder_.path(), GetParam());
    if (view) {
        EXPECT_EQ(clean({real("a.txt"), view.pathOf("a.txt")}), (MoveReport{{"a.txt", lastCopy}}));
        EXPECT_EQ(living(), 1U);
    }
}

TEST_P(FilesOfAView, KeepTheOnlyCopyIfTwoViewsShowIt) {
    folder_.writeFile("a.txt", "same");
    const FuseView view(folder_.path(), GetParam());
    const FuseView other(folder_.path(), GetParam());
    if (view && other) {
        ASSERT_EQ(clean({view.pathOf("a.txt"), other.pathOf("a.txt")}),
                  (MoveReport{{"a.txt", lastCopy}}));
        EXPECT_EQ(clean({view.pathOf("a.txt"), other.pathOf("a.txt"), real("a.txt")}),
                  (MoveReport{{"a.txt", lastCopy}, {"a.txt", lastCopy}}));
        EXPECT_EQ(living(), 1U);
    }
}

TEST_P(FilesOfAView, KeepOneOfSeveralCopies) {
    folder_.writeFile("a.txt", "same");
    folder_.writeFile("b.txt", "same");
    folder_.writeFile("c.txt", "same");
    const FuseView view(folder_.path(), GetParam());
    if (view) {
        clean({view.pathOf("a.txt"), view.pathOf("b.txt"), view.pathOf("c.txt"), real("c.txt"),
               real("b.txt"), real("a.txt")});
        EXPECT_GE(living(), 1U);
    }
}

TEST_P(FilesOfAView, AreMovedIfAnotherCopyStays) {
    const std::string other = folder_.writeFile("elsewhere/a.txt", "same");
    folder_.writeFile("a.txt", "same");
    const FuseView view(folder_.path(), GetParam());
    if (view) {
        const MoveReport report = clean({other, view.pathOf("a.txt"), real("a.txt")});
        ASSERT_EQ(report.size(), 2U);
        EXPECT_EQ(report.front().second, moved);
        EXPECT_EQ(contentOf(other), "same");
        EXPECT_EQ(living(), 0U);
    }
}

// The metadata of the survivor may be cached from before the move.
TEST_P(FilesOfAView, KeepTheLastCopyIfTheOtherIsRemovedBehindTheView) {
    folder_.writeFile("a.txt", "same");
    const std::string other = folder_.writeFile("elsewhere/a.txt", "same");
    const FuseView view(folder_.path(), GetParam());
    if (view) {
        CleanUp::Settings settings;
        settings.beforeStep = [this](MoveStep step) {
            if (step == MoveStep::recheck) {
                fs::remove(real("a.txt"));
            }
        };
        EXPECT_EQ(clean({view.pathOf("a.txt"), other}, std::move(settings)),
                  (MoveReport{{"a.txt", lastCopy}}));
        EXPECT_EQ(contentOf(other), "same");
    }
}

INSTANTIATE_TEST_SUITE_P(EachMemory, FilesOfAView,
                         ::testing::Values("", "attr_timeout=0,entry_timeout=0",
                                           "attr_timeout=60,entry_timeout=60"));

}  // namespace
}  // namespace tarvin
