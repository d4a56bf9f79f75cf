#include "cli/program_run.h"
#include "support/slow_disk.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace tarvin {
namespace {

constexpr int files = 800;

/// Pairs of equal files, of about fifty sizes. Their order in the folders and in the list is not
/// that on the disk.
void fill(const std::string& folder) {
    for (int number = 0; number < files; ++number) {
        const int file = number * 337 % files;
        const std::filesystem::path in = folder + '/' + std::to_string(file % 8);
        std::filesystem::create_directories(in);
        const int content = file % (files / 2);
        std::ofstream(in / (std::to_string(file) + ".jpg"))
            << content << std::string(static_cast<std::size_t>(6000 + content % 50 * 20), '.');
    }
}

/// The sets that a scan of the folder finds: their paths below it. Neither the order of the sets
/// nor that of the files in them counts, because folders list their files in different orders.
std::set<std::set<std::string>> setsIn(const std::string& folder) {
    const ProgramResult result = runTarvin({"scan", folder});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
    std::set<std::set<std::string>> sets;
    std::set<std::string> set;
    std::istringstream lines(result.output);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t path = line.find(folder);
        if (path != std::string::npos) {
            set.insert(line.substr(path + folder.size()));
        } else if (!set.empty()) {
            sets.insert(std::exchange(set, {}));
        }
    }
    return sets;
}

TEST(SlowDisk, SmallFilesAreReadWithFewSeeks) {
    SlowDisk disk(fill);
    if (!disk) {
        return;
    }
    const TemporaryFolder plain;
    fill(plain.path());
    const std::set<std::set<std::string>> found = setsIn(disk.path());
    EXPECT_EQ(found.size(), files / 2U);
    EXPECT_TRUE(found.contains({"/1/1.jpg", "/1/401.jpg"}));
    EXPECT_EQ(found, setsIn(plain.path()));
    const SlowDisk::Statistics statistics = disk.end();
    EXPECT_GT(statistics.bytes, files * 6000U);
    // Mounting takes about 25.
    EXPECT_LT(statistics.seeks, 60U);
}

TEST(SlowDisk, LargeFilesAreReadInLongStretches) {
    constexpr std::size_t bytes = 20'000'000;
    SlowDisk disk([](const std::string& folder) {
        for (const char* name : {"/one.mov", "/other.mov"}) {
            std::ofstream(folder + name) << std::string(bytes, 'x');
        }
    });
    if (!disk) {
        return;
    }
    const ProgramResult result = runTarvin({"scan", "--format", "csv", disk.path()});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 3);
    const SlowDisk::Statistics statistics = disk.end();
    EXPECT_GT(statistics.bytes, 2 * bytes);
    // Mounting takes about 25; in turns of 256 KiB there would be 150 more.
    EXPECT_LT(statistics.seeks, 50U);
}

TEST(SlowDisk, SeekingIsBelowATenthOfTheTimeOfLargeFiles) {
    constexpr int mebibytes = 4096;
    constexpr std::size_t bytes = 500'000'000;
    SlowDisk empty([](const std::string&) {}, mebibytes);
    if (!empty) {
        return;
    }
    const SlowDisk::Statistics mounting = empty.end();
    SlowDisk disk(
        [](const std::string& folder) {
            for (const char* name : {"/one.mov", "/other.mov"}) {
                std::ofstream(folder + name) << std::string(bytes, 'x');
            }
        },
        mebibytes);
    if (!disk) {
        return;
    }
    EXPECT_EQ(setsIn(disk.path()), (std::set<std::set<std::string>>{{"/one.mov", "/other.mov"}}));
    const SlowDisk::Statistics statistics = disk.end();
    EXPECT_GE(statistics.bytes, 2 * bytes);
    // At 180 MB/s.
    const std::uint64_t transfer = statistics.bytes / 180'000;
    const std::uint64_t seeking = statistics.seekMilliseconds - mounting.seekMilliseconds;
    EXPECT_GT(mounting.seekMilliseconds, 0U);
    EXPECT_LT(10 * seeking, transfer + seeking);
}

}  // namespace
}  // namespace tarvin
