#include "cli/program_run.h"
#include "cli/result_json.h"
#include "store/scan_memory.h"
#include "support/file_content.h"
#include "support/loop_volume.h"
#include "support/secret_change.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tarvin {
namespace {

/// Two equal photos. Their dates have not settled, so nothing of them is stored; what is tested
/// here is the memory's file.
class RememberProgram : public testing::Test {
 protected:
    RememberProgram() {
        folder_.writeFile("files/a.jpg", "equal");
        folder_.writeFile("files/b.jpg", "equal");
    }

    [[nodiscard]] ProgramResult tarvin(ProgramRun::Words words) const {
        return runTarvin(words, {.folder = folder_.path(),
                                 .environment = {{"XDG_DATA_HOME", folder_.pathOf("data")}}});
    }

    [[nodiscard]] std::string dataFolder() const {
        return folder_.pathOf("data/Tarvin Software/Tarvin Duplicate File Remover");
    }
    [[nodiscard]] std::string memoryPath() const { return ScanMemory::pathIn(dataFolder()); }

    TemporaryFolder folder_;
};

TEST_F(RememberProgram, ForgetRemovesTheMemory) {
    ASSERT_TRUE(std::holds_alternative<ScanMemory>(ScanMemory::open(dataFolder())));
    const ProgramResult first = tarvin({"forget"});
    EXPECT_EQ(first.status, 0);
    EXPECT_EQ(first.output, "Remembered scans removed.\n");
    EXPECT_EQ(first.errors, "");
    EXPECT_FALSE(std::filesystem::exists(memoryPath()));
    const ProgramResult second = tarvin({"forget"});
    EXPECT_EQ(second.status, 0);
    EXPECT_EQ(second.output, "No scans are remembered.\n");
}

TEST_F(RememberProgram, ForgetReportsAMemoryInUse) {
    const StoreResult<ScanMemory> other = ScanMemory::open(dataFolder());
    const ProgramResult result = tarvin({"forget"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "tarvin: cannot remove remembered scans '" + memoryPath() +
                                 "': in use by another process\n");
    EXPECT_TRUE(std::filesystem::exists(memoryPath()));
}

TEST_F(RememberProgram, AMemoryInUseIsReportedAndNotNeeded) {
    const ProgramRun::Words oldFiles{"scan", "--remember", "/usr/include/linux"};
    if (const ProgramResult result = tarvin(oldFiles);
        result.status != 0 || !std::filesystem::exists(memoryPath())) {
        GTEST_SKIP() << "/usr/include/linux is not there, or its files cannot be remembered";
    }
    const std::string sets = tarvin(oldFiles).output;
    const StoreResult<ScanMemory> other = ScanMemory::open(dataFolder());
    const ProgramResult result = tarvin(oldFiles);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output.substr(0, sets.rfind("Elapsed")),
              sets.substr(0, sets.rfind("Elapsed")));
    EXPECT_EQ(result.errors, "tarvin: cannot read remembered scans '" + memoryPath() +
                                 "': in use by another process\n");
}

TEST_F(RememberProgram, ADamagedMemoryIsReplacedAndReported) {
    const ProgramRun::Words oldFiles{"scan", "--remember", "/usr/include/linux"};
    if (const ProgramResult result = tarvin(oldFiles);
        result.status != 0 || !std::filesystem::exists(memoryPath())) {
        GTEST_SKIP() << "/usr/include/linux is not there, or its files cannot be remembered";
    }
    std::filesystem::resize_file(memoryPath(), 5000);
    const ProgramResult damaged = tarvin(oldFiles);
    EXPECT_EQ(damaged.status, 0);
    EXPECT_EQ(damaged.errors,
              "tarvin: '" + memoryPath() + "' was damaged; a new file was started\n");
    EXPECT_EQ(tarvin(oldFiles).errors, "");
}

TEST_F(RememberProgram, FindsTheSetsOfAnyScan) {
    const ProgramResult with = tarvin({"scan", "--remember", "--format", "json", "files"});
    EXPECT_EQ(with.status, 0);
    EXPECT_EQ(with.errors, "");
    EXPECT_EQ(setsIn(parsedJson(with.output), folder_.path() + "/"),
              (Sets{{"files/a.jpg", "files/b.jpg"}}));
}

TEST_F(RememberProgram, CleanTakesTheOption) {
    const ProgramResult result = tarvin({"clean", "--remember", "--dry-run", "files"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_NE(result.output.find("Marked Duplicate Files: 1\n"), std::string::npos);
}

/// A volume with three equal photos whose dates, all of them, are years old, so that they can be
/// remembered at once.
class RememberOldFiles : public RememberProgram {
 protected:
    RememberOldFiles() {
        if (volume_) {
            for (const std::string& name : names_) {
                std::ofstream(volume_.pathOf(name)) << "equal";
            }
            EXPECT_TRUE(volume_.age(names_));
        }
    }

    /// The contents of the files that are left; which of equal ones stays depends on their order
    /// on the volume.
    [[nodiscard]] std::vector<std::string> left() const {
        std::vector<std::string> contents;
        for (const std::string& name : names_) {
            if (std::filesystem::exists(volume_.pathOf(name))) {
                contents.push_back(contentOf(volume_.pathOf(name)));
            }
        }
        std::sort(contents.begin(), contents.end());
        return contents;
    }

    static std::string lastFileIn(const Json& list) {
        std::string path;
        for (const Json& category : list.at("categories")) {
            for (const Json& extension : category.at("extensions")) {
                path = extension.at("sets").back().at("files").back().at("filePath");
            }
        }
        return path;
    }

    [[nodiscard]] ProgramResult scanVolume() const {
        return tarvin({"scan", "--remember", "--format", "json", volume_.path()});
    }

    const std::vector<std::string> names_{"a.jpg", "b.jpg", "c.jpg"};
    const std::vector<std::string> keptAfterChange_{"equal", "other"};
    LoopVolume volume_;
};

TEST_F(RememberOldFiles, CleanMovesWhatAScanHasCompared) {
    if (!volume_) {
        return;
    }
    EXPECT_EQ(scanVolume().status, 0);
    ASSERT_TRUE(std::filesystem::exists(memoryPath()));
    const ProgramResult result = tarvin({"clean", "--remember", "--yes", volume_.path()});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(result.output.ends_with("Duplicates Cleaned: 2\nSpace Regained: 0.01 KB \n"))
        << result.output;
    EXPECT_EQ(left(), std::vector<std::string>{"equal"});
    EXPECT_EQ(setsIn(parsedJson(scanVolume().output), volume_.path() + "/"), Sets{});
}

TEST_F(RememberOldFiles, AreNotReadAgain) {
    if (!volume_) {
        return;
    }
    const Sets equal{{"a.jpg", "b.jpg", "c.jpg"}};
    EXPECT_EQ(setsIn(parsedJson(scanVolume().output), volume_.path() + "/"), equal);
    // A disk that loses data without an error: only a file that is read is seen to have changed.
    ASSERT_TRUE(volume_.replaceBytes("equal", "lost!"));
    ASSERT_EQ(left(), (std::vector<std::string>{"equal", "equal", "lost!"}));
    EXPECT_EQ(setsIn(parsedJson(scanVolume().output), volume_.path() + "/"), equal);
    const Sets read =
        setsIn(parsedJson(tarvin({"scan", "--format", "json", volume_.path()}).output),
               volume_.path() + "/");
    ASSERT_EQ(read.size(), 1U);
    EXPECT_EQ(read.begin()->size(), 2U);
}

TEST_F(RememberOldFiles, CleanKeepsAFileChangedBeforeTheScan) {
    if (!volume_) {
        return;
    }
    EXPECT_EQ(scanVolume().status, 0);
    std::ofstream(volume_.pathOf("b.jpg")) << "other";
    ASSERT_TRUE(volume_.age({"b.jpg"}, "20240102"));
    const ProgramResult result = tarvin({"clean", "--remember", "--yes", volume_.path()});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(left(), keptAfterChange_);
}

TEST_F(RememberOldFiles, CleanKeepsAFileChangedAfterTheScan) {
    if (!volume_) {
        return;
    }
    EXPECT_EQ(scanVolume().status, 0);
    const std::string text = scanVolume().output;
    const std::string list = folder_.writeFile("list.json", text);
    // Not the first file of the set, with which the others are compared.
    const std::string path = lastFileIn(parsedJson(text));
    changeSecretly(path, "other");
    const ProgramResult result = tarvin({"clean", "--yes", "--from", list});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find(path), std::string::npos) << result.errors;
    EXPECT_EQ(left(), keptAfterChange_);
}

}  // namespace
}  // namespace tarvin
