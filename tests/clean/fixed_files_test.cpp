// Immutable and append-only files and folders.

#include "clean/clean_up_fixture.h"
#include "support/file_content.h"
#include "support/loop_volume.h"

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// The parameter is the inode flag: immutable or append-only.
class FixedFiles : public ::testing::TestWithParam<unsigned> {
 protected:
    /// Writes the files anew. Returns false if the test has no volume.
    bool renew() {
        if (!volume_) {
            return false;
        }
        for (const char* name : {"a", "b", "c", "home"}) {
            fs::remove_all(volume_.pathOf(name));
            fs::create_directory(volume_.pathOf(name));
        }
        for (const std::string& path : paths_) {
            std::ofstream(path) << "same";
        }
        return true;
    }

    /// Sets or clears the flag.
    static void fix(const std::string& path, bool isFixed = true) {
        const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        unsigned flags = 0;
        EXPECT_EQ(::ioctl(file, FS_IOC_GETFLAGS, &flags), 0) << path;
        flags = isFixed ? flags | GetParam() : flags & ~GetParam();
        EXPECT_EQ(::ioctl(file, FS_IOC_SETFLAGS, &flags), 0) << path;
        ::close(file);
    }

    /// Returns the results for the second and third file. Calls `change` before step `at` of the
    /// second file.
    std::vector<MoveResult> run(MoveStep at, const std::function<void()>& change) {
        CleaningUser user(volume_.pathOf("home"));
        ComparedFiles files;
        files.addSet(paths_);
        std::vector<MoveResult> results;
        CleanUp::Settings settings;
        settings.beforeStep = [&, isMade = false](MoveStep step) mutable {
            if (step == at && !std::exchange(isMade, true)) {
                change();
            }
        };
        settings.report = [&results](const File&, const MoveResult& result) {
            results.push_back(result);
        };
        CleanUp cleanUp(systemFileSystem(), user.mover(), user.journal(), user.turns(),
                        systemPlatform().clock(), std::move(settings));
        DeletionControl control;
        DeletionWalk walk(files.marked(), cleanUp, control, {});
        walk.run();
        EXPECT_FALSE(cleanUp.finish().has_value());
        EXPECT_EQ(user.trashInfos(), user.trashed());
        trashed_ = user.trashed();
        return results;
    }

    static MoveResult refusal() {
        return {MoveOutcome::refused, "Operation not permitted", TrashRefusalKind::system,
                SystemError{EPERM}};
    }

    const LoopVolume volume_;
    const std::vector<std::string> paths_{volume_.pathOf("a/one.txt"), volume_.pathOf("b/two.txt"),
                                          volume_.pathOf("c/three.txt")};
    std::size_t trashed_ = 0;
};

const MoveResult wasMoved{MoveOutcome::moved, {}};

// Setting the flag changes only the change date, so that the bytes are compared first.
TEST_P(FixedFiles, MarkedStayWithTheReason) {
    for (const MoveStep at : {MoveStep::checkFile, MoveStep::findSurvivor, MoveStep::moveToTrash}) {
        if (renew()) {
            EXPECT_EQ(run(at, [this] { fix(paths_[1]); }),
                      (std::vector<MoveResult>{refusal(), wasMoved}));
            EXPECT_EQ(contentOf(paths_[0]), "same");
            EXPECT_EQ(contentOf(paths_[1]), "same");
            EXPECT_EQ(trashed_, 1U);
            fix(paths_[1], false);
        }
    }
}

TEST_P(FixedFiles, UnmarkedLetTheOthersBeMoved) {
    for (const MoveStep at : {MoveStep::checkFile, MoveStep::findSurvivor}) {
        if (renew()) {
            EXPECT_EQ(run(at, [this] { fix(paths_[0]); }),
                      (std::vector<MoveResult>{wasMoved, wasMoved}));
            EXPECT_EQ(contentOf(paths_[0]), "same");
            EXPECT_EQ(trashed_, 2U);
            fix(paths_[0], false);
        }
    }
}

TEST_P(FixedFiles, InAFixedFolderStayWithTheReason) {
    if (renew()) {
        EXPECT_EQ(run(MoveStep::checkFile, [this] { fix(volume_.pathOf("b")); }),
                  (std::vector<MoveResult>{refusal(), wasMoved}));
        EXPECT_EQ(contentOf(paths_[1]), "same");
        fix(volume_.pathOf("b"), false);
    }
}

// An immutable folder cannot take the file back; an append-only one can.
TEST_P(FixedFiles, ThatCannotBeMovedBackStayInTheTrashWithTheReason) {
    if (renew()) {
        const std::vector<MoveResult> results = run(MoveStep::recheck, [this] {
            fs::remove(paths_[0]);
            fs::remove(paths_[2]);
            fix(volume_.pathOf("b"));
        });
        const bool isForGood = GetParam() == FS_IMMUTABLE_FL;
        ASSERT_EQ(results.size(), 2U);
        EXPECT_EQ(results.front(), isForGood
                                       ? (MoveResult{MoveOutcome::moved, "Operation not permitted",
                                                     TrashRefusalKind::system, SystemError{EPERM}})
                                       : (MoveResult{MoveOutcome::lastCopy, {}}));
        EXPECT_EQ(trashed_, isForGood ? 1U : 0U);
        EXPECT_EQ(contentOf(paths_[1]), isForGood ? "" : "same");
        fix(volume_.pathOf("b"), false);
    }
}

INSTANTIATE_TEST_SUITE_P(EachAttribute, FixedFiles,
                         ::testing::Values(FS_IMMUTABLE_FL, FS_APPEND_FL));

}  // namespace
}  // namespace tarvin
