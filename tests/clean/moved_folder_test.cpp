// The folder of a file is moved away during its move. Open folders have the maximum age that the
// programs use.

#include "clean/clean_up_fixture.h"
#include "support/file_content.h"

#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <system_error>
#include <utility>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// A set with one unmarked file and two marked ones in one folder.
class MovedFolder : public ::testing::Test {
 protected:
    static constexpr MoveOutcome lastCopy = MoveOutcome::lastCopy;
    static constexpr std::array everyStep{MoveStep::checkFile, MoveStep::findSurvivor,
                                          MoveStep::moveToTrash, MoveStep::recheck};

    void renew() {
        for (const char* name : {"a", "b", "away"}) {
            fs::remove_all(folder_.pathOf(name));
        }
        folder_.writeFile("a/one.txt", "same");
        folder_.writeFile("b/two.txt", "same");
        folder_.writeFile("b/three.txt", "same");
    }

    /// Writes other files of the same size and date.
    void writeOthers() {
        for (const std::string name : {"/two.txt", "/three.txt"}) {
            folder_.writeFile("b" + name, "evil");
            std::error_code gone;
            const auto date = fs::last_write_time(path("away" + name), gone);
            fs::last_write_time(path("b" + name), gone ? fs::file_time_type::clock::now() : date);
        }
    }

    /// Calls `change` before step `at` of marked file `number`, from 1.
    MoveReport run(MoveStep at, int number, const std::function<void()>& change) {
        ComparedFiles files;
        files.addSet({path("a/one.txt"), path("b/two.txt"), path("b/three.txt")});
        CleanUp::Settings settings;
        settings.beforeStep = [=, count = 0](MoveStep step) mutable {
            if (step == at && ++count == number) {
                change();
            }
        };
        return cleanUp(files.marked(), user_, systemFileSystem(), std::move(settings),
                       CleanUp::Settings().folderMaxAge);
    }

    [[nodiscard]] std::string path(const std::string& name) const { return folder_.pathOf(name); }

    /// Counts the files in their places or in the folder that was moved away.
    [[nodiscard]] std::size_t living() const {
        std::size_t count = 0;
        for (const char* name : {"a/one.txt", "b/two.txt", "b/three.txt", "away/one.txt",
                                 "away/two.txt", "away/three.txt"}) {
            count += std::size_t{contentOf(path(name)) == "same"};
        }
        return count;
    }

    TemporaryFolder folder_{quickFolder()};
    TemporaryFolder home_{quickFolder()};
    CleaningUser user_{home_.path()};
};

TEST_F(MovedFolder, OfAMarkedFileLosesNothingAtAnyStep) {
    std::size_t before = 0;
    for (const MoveStep at : everyStep) {
        for (const int number : {1, 2}) {
            for (const bool isReplaced : {false, true}) {
                renew();
                run(at, number, [&] {
                    fs::rename(path("b"), path("away"));
                    if (isReplaced) {
                        writeOthers();
                    }
                });
                ASSERT_EQ(contentOf(path("a/one.txt")), "same");
                ASSERT_EQ(living() + user_.trashed() - before, 3U);
                before = user_.trashed();
                ASSERT_EQ(user_.trashInfos(), before);
                if (isReplaced) {
                    ASSERT_EQ(contentOf(path("b/two.txt")), "evil");
                    ASSERT_EQ(contentOf(path("b/three.txt")), "evil");
                }
            }
        }
    }
}

// The folder is open, so the file is moved back into it at its new path.
TEST_F(MovedFolder, ReceivesTheLastCopyBack) {
    renew();
    const MoveReport report = run(MoveStep::recheck, 1, [&] {
        fs::rename(path("b"), path("away"));
        fs::remove(path("a/one.txt"));
        fs::remove(path("away/three.txt"));
    });
    ASSERT_EQ(report.size(), 2U);
    EXPECT_EQ(report.front(), (std::pair<std::string, MoveOutcome>("two.txt", lastCopy)));
    EXPECT_EQ(contentOf(path("away/two.txt")), "same");
    EXPECT_EQ(user_.trashed(), 0U);
    EXPECT_EQ(user_.trashInfos(), 0U);
}

TEST_F(MovedFolder, OfTheSurvivorKeepsTheLastCopyAtAnyStep) {
    for (const MoveStep at : everyStep) {
        for (const int number : {1, 2}) {
            const std::size_t before = user_.trashed();
            renew();
            run(at, number, [&] { fs::rename(path("a"), path("away")); });
            // The survivor is not found under its new path, so another file must stay.
            const std::size_t left = std::size_t{fs::exists(path("b/two.txt"))} +
                                     std::size_t{fs::exists(path("b/three.txt"))};
            ASSERT_GE(left, 1U) << static_cast<int>(at) << ", file " << number;
            ASSERT_EQ(left + user_.trashed() - before, 2U);
            ASSERT_EQ(user_.trashInfos(), user_.trashed());
        }
    }
}

}  // namespace
}  // namespace tarvin
