#include "cli/program_run.h"
#include "support/slow_disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

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

TEST(SlowDisk, SmallFilesAreReadWithFewSeeks) {
    SlowDisk disk(fill);
    if (!disk) {
        return;
    }
    const ProgramResult result = runTarvin({"scan", "--format", "csv", disk.path()});
    EXPECT_EQ(result.status, 0) << result.errors;
    const auto lines = std::count(result.output.begin(), result.output.end(), '\n');
    EXPECT_EQ(lines, 1 + files);
    const SlowDisk::Statistics statistics = disk.end();
    EXPECT_GT(statistics.bytes, files * 6000U);
    EXPECT_LT(statistics.seeks, files / 3U);
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
    // Mounting takes about fifty; in turns of 256 KiB there would be two hundred.
    EXPECT_LT(statistics.seeks, 100U);
}

}  // namespace
}  // namespace tarvin
