#include "cli/program_run.h"
#include "support/file_content.h"
#include "support/mount.h"
#include "support/slow_network.h"
#include "support/temporary_folder.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <sys/mount.h>

#include <csignal>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <system_error>
#include <vector>

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

/// The output of a scan of these folders and files, without the time that it took.
std::string scanned(std::vector<std::string> places) {
    places.insert(places.begin(), "scan");
    const ProgramResult result = runTarvin(places);
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
    return result.output.substr(0, result.output.find(" Elapsed Time:"));
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at)) {
        text.replace(at, from.size(), to);
    }
    return text;
}

/// A network with calls of so many milliseconds.
class NetworkDelay : public ::testing::TestWithParam<int> {};

INSTANTIATE_TEST_SUITE_P(SlowNetworks, NetworkDelay, ::testing::Values(1, 5));

TEST_P(NetworkDelay, ScansFindTheSetsOfAFastFolder) {
    const TemporaryFolder tree;
    fill(tree);
    const std::string expected = scanned({tree.path()});
    SlowNetwork network(tree.path(), GetParam());
    if (!network) {
        return;
    }
    const std::string found = scanned({network.path()});
    EXPECT_EQ(replaced(found, network.path(), tree.path()), expected);
    EXPECT_GT(expected.size(), static_cast<std::size_t>(files));
}

/// The files below a folder with their contents, without .trashinfo files.
std::map<std::string, std::string> filesIn(const std::string& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string name = std::filesystem::relative(entry.path(), folder);
        if (entry.is_regular_file() && !name.ends_with(".trashinfo")) {
            files[name] = contentOf(entry.path());
        }
    }
    return files;
}

/// A network whose inode numbers, dates or both change from answer to answer.
class UnsteadyNetwork : public ::testing::TestWithParam<const char*> {
 protected:
    /// The output of a scan of these parts of the tree, on the network and as if it were the tree.
    std::string scannedThere(const std::vector<std::string>& parts) {
        SlowNetwork network(tree_.path(), 0, GetParam());
        return network
                   ? replaced(scanned(below(network.path(), parts)), network.path(), tree_.path())
                   : std::string();
    }

    std::string scannedHere(const std::vector<std::string>& parts) {
        return scanned(below(tree_.path(), parts));
    }

    static std::vector<std::string> below(const std::string& folder,
                                          std::vector<std::string> parts) {
        for (std::string& part : parts) {
            part.insert(0, folder);
        }
        return parts;
    }

    /// The number of files in Trash folders.
    [[nodiscard]] std::size_t inTrash() const {
        std::size_t count = 0;
        for (const auto& top : std::filesystem::directory_iterator(tree_.path())) {
            if (top.path().filename().native().starts_with(".Trash-")) {
                std::error_code missing;
                const std::filesystem::directory_iterator files(top.path() / "files", missing);
                count += static_cast<std::size_t>(std::distance(files, {}));
            }
        }
        return count;
    }

    /// The number of different contents outside Trash folders.
    [[nodiscard]] std::size_t livingContents() const {
        std::set<std::string> contents;
        for (const auto& [name, content] : filesIn(tree_.path())) {
            if (!name.starts_with(".Trash-")) {
                contents.insert(content);
            }
        }
        return contents.size();
    }

    TemporaryFolder tree_;
};

TEST_P(UnsteadyNetwork, HasTheSetsOfAFastFolder) {
    fill(tree_);
    tree_.writeFile("long/1.txt", std::string(3'000'000, 'a'));
    tree_.writeFile("long/2.txt", std::string(3'000'000, 'a'));
    tree_.writeFile("long/3.txt", std::string(2'999'999, 'a') + 'b');
    const std::string found = scannedThere({""});
    if (!IsSkipped()) {
        EXPECT_EQ(found, scannedHere({""}));
    }
}

TEST_P(UnsteadyNetwork, TakesOverlappingLocationsOnce) {
    tree_.writeFile("a/1.txt", "one");
    tree_.writeFile("a/b/2.txt", "two");
    tree_.writeFile("a/b/3.txt", "two");
    tree_.writeFile("a/b/c/4.txt", "four");
    const std::vector<std::string> parts{"/a/b", "/a", "/a/b/c/4.txt", "/a/b", ""};
    const std::string found = scannedThere(parts);
    if (!IsSkipped()) {
        EXPECT_EQ(found, scannedHere(parts));
        EXPECT_EQ(found.find("four"), std::string::npos);
    }
}

TEST_P(UnsteadyNetwork, ListsHardLinksAsOthersDo) {
    const std::string one = tree_.writeFile("1.txt", "linked");
    std::filesystem::create_hard_link(one, tree_.pathOf("2.txt"));
    const std::string found = scannedThere({""});
    if (!IsSkipped()) {
        EXPECT_NE(found.find("1.txt"), std::string::npos);
        EXPECT_NE(found.find("2.txt"), std::string::npos);
    }
}

TEST_P(UnsteadyNetwork, CleansUpAndPutsBack) {
    const TemporaryFolder data;
    const ProgramSetting setting{.environment = {{"XDG_DATA_HOME", data.path()}}};
    for (const std::string name : {"a/1.txt", "a/2.txt", "a/b/1.txt", "c/1 copy.txt"}) {
        tree_.writeFile(name, "one");
    }
    tree_.writeFile("a/3.txt", "two");
    const std::map<std::string, std::string> before = filesIn(tree_.path());
    SlowNetwork network(tree_.path(), 0, std::string("--writable ") + GetParam());
    if (!network) {
        return;
    }
    const ProgramResult cleaned =
        runTarvin({"clean", "--yes", network.path(), network.path() + "/a"}, setting);
    EXPECT_EQ(cleaned.status, 0);
    EXPECT_EQ(cleaned.errors, "");
    EXPECT_NE(cleaned.output.find("Duplicates Cleaned: 3\n"), std::string::npos) << cleaned.output;
    EXPECT_EQ(inTrash(), 3U);
    EXPECT_EQ(livingContents(), 2U);
    const ProgramResult restored = runTarvin({"restore", "--yes"}, setting);
    EXPECT_EQ(restored.status, 0);
    EXPECT_EQ(restored.errors, "");
    EXPECT_EQ(filesIn(tree_.path()), before);
}

TEST_P(UnsteadyNetwork, KeepsTheOnlyCopyUnderEveryPath) {
    const TemporaryFolder data;
    tree_.writeFile("a/1.txt", "the only one");
    SlowNetwork network(tree_.path(), 0, std::string("--writable ") + GetParam());
    if (!network) {
        return;
    }
    const TemporaryFolder other;
    std::filesystem::create_directory_symlink(network.path(), other.pathOf("link"));
    const std::string mounted = other.makeFolder("mounted");
    const Mount mount(network.path() + "/a", mounted, nullptr, MS_BIND);
    const ProgramResult cleaned =
        runTarvin({"clean", "--yes", network.path(), other.pathOf("link"), mounted},
                  {.environment = {{"XDG_DATA_HOME", data.path()}}});
    EXPECT_EQ(cleaned.output, "Duplicates Cleaned: 0\nSpace Regained: 0.00 KB \n");
    EXPECT_EQ(contentOf(tree_.pathOf("a/1.txt")), "the only one");
}

TEST_P(UnsteadyNetwork, LosesNothingIfACleanUpIsKilled) {
    constexpr int sets = 60;
    const TemporaryFolder data;
    const ProgramSetting setting{.environment = {{"XDG_DATA_HOME", data.path()}}};
    for (int number = 0; number < sets; ++number) {
        const std::string name = std::to_string(number) + ".txt";
        tree_.writeFile("a/" + name, name);
        tree_.writeFile("b/" + name, name);
    }
    const std::map<std::string, std::string> before = filesIn(tree_.path());
    SlowNetwork network(tree_.path(), 1, std::string("--writable ") + GetParam());
    if (!network) {
        return;
    }
    ProgramRun run({"clean", "--yes", network.path()}, setting);
    EXPECT_TRUE(waitUntil([this] { return inTrash() > 3; }));
    run.send(SIGKILL);
    const ProgramResult killed = run.wait();
    EXPECT_EQ(killed.status, 128 + SIGKILL) << killed.output << killed.errors;
    EXPECT_LT(inTrash(), static_cast<std::size_t>(sets));
    // Recovers the clean-up that was killed.
    EXPECT_EQ(runTarvin({"totals"}, setting).status, 0);
    EXPECT_EQ(livingContents(), static_cast<std::size_t>(sets));
    EXPECT_EQ(filesIn(tree_.path()).size(), 2U * sets);
    // Every file in the Trash was recorded.
    const ProgramResult restored = runTarvin({"restore", "--yes"}, setting);
    EXPECT_EQ(restored.errors, "");
    EXPECT_EQ(inTrash(), 0U);
    EXPECT_EQ(filesIn(tree_.path()), before);
    const ProgramResult again = runTarvin({"clean", "--yes", network.path()}, setting);
    EXPECT_EQ(again.errors, "");
    EXPECT_EQ(livingContents(), static_cast<std::size_t>(sets));
    EXPECT_EQ(inTrash(), static_cast<std::size_t>(sets));
}

INSTANTIATE_TEST_SUITE_P(Networks, UnsteadyNetwork,
                         ::testing::Values("--jitter", "--jitter-inodes", "--jitter-dates",
                                           "--jitter --jitter-folders"));

/// What a scan makes a network do whose calls take so many milliseconds. Nothing if there is none.
SlowNetwork::Statistics countedAt(int milliseconds) {
    const TemporaryFolder tree;
    fill(tree);
    SlowNetwork network(tree.path(), milliseconds);
    if (network) {
        scanned({network.path()});
    }
    return network.end();
}

TEST(SlowNetwork, ManyCallsAreUnderWayAtOnce) {
    const SlowNetwork::Statistics statistics = countedAt(20);
    if (!IsSkipped()) {
        EXPECT_GE(statistics.mostAtOnce, 40U);
        EXPECT_LE(statistics.calls, 7U * files);
    }
}

TEST(SlowNetwork, ManyShortCallsAreUnderWayAtOnce) {
    const SlowNetwork::Statistics statistics = countedAt(5);
    if (!IsSkipped()) {
        EXPECT_GE(statistics.mostAtOnce, 36U);
        EXPECT_LE(statistics.calls, 7U * files);
    }
}

}  // namespace
}  // namespace tarvin
