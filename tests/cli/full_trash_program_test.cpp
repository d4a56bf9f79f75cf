#include "cli/program_run.h"
#include "support/file_content.h"
#include "support/mount.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <system_error>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// Files and the home Trash on a full small volume. The journal and totals are on another one.
class FullTrash : public ::testing::Test {
 protected:
    FullTrash() {
        if (disk_) {
            folder_.makeFolder("disk/data/Tarvin Software");
            support_.emplace("none", folder_.pathOf("disk/data/Tarvin Software"), "tmpfs");
            write("a.jpg");
            write("b.jpg");
        }
    }

    void write(const std::string& name) const {
        folder_.writeFile("disk/photos/" + name, "two equal photos");
    }

    [[nodiscard]] ProgramResult clean() const {
        return runTarvin({"clean", "--yes", folder_.pathOf("disk/photos")},
                         {.environment = {{"XDG_DATA_HOME", folder_.pathOf("disk/data")}}});
    }

    /// Creates the Trash with one file in it.
    void makeTrash() const {
        write("first.jpg");
        EXPECT_EQ(clean().status, 0);
        write("a.jpg");
        write("b.jpg");
        fs::remove(folder_.pathOf("disk/photos/first.jpg"));
    }

    void takeAllRoom() const {
        for (const std::size_t size : {65536U, 4096U}) {
            std::ofstream file(folder_.pathOf("disk/full" + std::to_string(size)));
            while (file << std::string(size, 'x') << std::flush) {
            }
        }
    }

    void takeAllFiles() const {
        for (int number = 0;; ++number) {
            if (!std::ofstream(folder_.pathOf("disk/full" + std::to_string(number)))) {
                return;
            }
        }
    }

    /// Either file may be the one to move.
    void expectRefused() const {
        const std::size_t files = entriesIn("files");
        const std::size_t trashInfos = entriesIn("info");
        const ProgramResult result = clean();
        EXPECT_EQ(result.status, 1);
        const std::string path = folder_.pathOf("disk/photos/");
        const std::string reason = ".jpg' to the Trash: No space left on device\n";
        EXPECT_TRUE(result.errors == "tarvin: cannot move '" + path + "a" + reason ||
                    result.errors == "tarvin: cannot move '" + path + "b" + reason)
            << result.errors;
        EXPECT_EQ(result.output, "Duplicates Cleaned: 0\nSpace Regained: 0.00 KB \n");
        EXPECT_EQ(contentOf(path + "a.jpg"), "two equal photos");
        EXPECT_EQ(contentOf(path + "b.jpg"), "two equal photos");
        EXPECT_EQ(entriesIn("files"), files);
        EXPECT_EQ(entriesIn("info"), trashInfos);
    }

    [[nodiscard]] std::size_t entriesIn(const std::string& part) const {
        std::error_code missing;
        const fs::directory_iterator entries(folder_.pathOf("disk/data/Trash/" + part), missing);
        return static_cast<std::size_t>(std::distance(entries, {}));
    }

    TemporaryFolder folder_;
    Mount disk_{"none", folder_.makeFolder("disk"), "tmpfs", 0, "size=1m,nr_inodes=40"};
    std::optional<Mount> support_;
};

TEST_F(FullTrash, RefusesAFileWithoutSpaceForItsTrashinfo) {
    if (disk_) {
        makeTrash();
        takeAllRoom();
        expectRefused();
    }
}

TEST_F(FullTrash, RefusesAFileWhoseTrashinfoCannotBeCreated) {
    if (disk_) {
        makeTrash();
        takeAllFiles();
        expectRefused();
    }
}

TEST_F(FullTrash, ThatCannotBeCreatedRefusesAllFiles) {
    if (disk_) {
        takeAllFiles();
        expectRefused();
    }
}

TEST_F(FullTrash, AcceptsTheFilesOnceThereIsSpace) {
    if (disk_) {
        takeAllRoom();
        expectRefused();
        fs::remove(folder_.pathOf("disk/full65536"));
        EXPECT_EQ(clean().status, 0);
        EXPECT_EQ(entriesIn("files"), 1U);
        EXPECT_EQ(entriesIn("info"), 1U);
    }
}

}  // namespace
}  // namespace tarvin
