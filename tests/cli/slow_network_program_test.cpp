#include "cli/program_run.h"
#include "support/slow_network.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

constexpr int folders = 12;
constexpr int filesAFolder = 40;
constexpr int files = folders * filesAFolder;

/// Each third file of every second folder is equal to one in the next folder. Many sizes, each of a
/// few files, as in a collection of photos.
void fill(const TemporaryFolder& tree) {
    for (int folder = 0; folder < folders; ++folder) {
        for (int file = 0; file < filesAFolder; ++file) {
            const bool isCopy = file % 3 == 0;
            const int number = (isCopy ? folder / 2 : folders + folder) * filesAFolder + file;
            const auto length = static_cast<std::size_t>(number % 211);
            tree.writeFile(std::to_string(folder) + '/' + std::to_string(file) + ".jpg",
                           std::to_string(number) + std::string(length, '.'));
        }
    }
}

std::string scanned(const std::string& folder) {
    const ProgramResult result = runTarvin({"scan", folder});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
    return result.output;
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
        text.replace(at, from.size(), to);
    }
    return text;
}

TEST(SlowNetwork, ScansFindTheSetsOfAFastFolder) {
    const TemporaryFolder tree;
    fill(tree);
    const std::string expected = scanned(tree.path());
    SlowNetwork network(tree.path(), 1);
    if (!network) {
        return;
    }
    const std::string found = scanned(network.path());
    EXPECT_EQ(replaced(found, network.path(), tree.path()), expected);
    EXPECT_GT(expected.size(), static_cast<std::size_t>(files));
}

// One call after the other would take longer than a minute, after which the program is killed.
TEST(SlowNetwork, ManyCallsAreUnderWayAtOnce) {
    const TemporaryFolder tree;
    fill(tree);
    SlowNetwork network(tree.path(), 20);
    if (!network) {
        return;
    }
    scanned(network.path());
    const SlowNetwork::Statistics statistics = network.end();
    EXPECT_GE(statistics.mostAtOnce, 24U);
    EXPECT_LE(statistics.calls, 8U * files);
}

}  // namespace
}  // namespace tarvin
