#include "cli/program_run.h"
#include "cli/result_json.h"
#include "support/pipe.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

constexpr std::uintmax_t hugeSize = std::uintmax_t{64} << 30;

/// Two equal files that are compared quickly, then two sparse ones that take a minute or more. All
/// are of one category, which is compared in the order of the folders.
class Stop : public testing::Test {
 protected:
    Stop() {
        folder_.writeFile("small/a.zip", "archive");
        folder_.writeFile("small/b.zip", "archive");
        for (const char* name : {"huge/a.bin", "huge/b.bin"}) {
            std::filesystem::resize_file(folder_.writeFile(name, ""), hugeSize);
        }
    }

    [[nodiscard]] ProgramRun::Words scan(ProgramRun::Words options = {}) const {
        options.insert(options.begin(), {"scan", "--format", "json", "--progress", "always",
                                         folder_.pathOf("small"), folder_.pathOf("huge")});
        return options;
    }

    /// Waits until the two small files have been compared and the huge ones are being compared.
    static void waitUntilOnlyTheHugeAreLeft(ProgramRun& run) { run.waitForError("] 75%"); }

    void expectConfirmedSets(const std::string& text) const {
        const Json json = parsedJson(text);
        EXPECT_EQ(json["stopped"], true);
        EXPECT_EQ(json["totalFiles"], 1);
        EXPECT_EQ(setsIn(json, folder_.pathOf("small/")), (Sets{{"a.zip", "b.zip"}}));
    }

    TemporaryFolder folder_;
};

TEST_F(Stop, CtrlCPrintsConfirmedSetsAndEndsSoon) {
    ProgramRun run(scan());
    waitUntilOnlyTheHugeAreLeft(run);
    const auto asked = std::chrono::steady_clock::now();
    run.send(SIGINT);
    const ProgramResult result = run.wait();
    EXPECT_LT(std::chrono::steady_clock::now() - asked, 5s);
    EXPECT_EQ(result.status, 130);
    expectConfirmedSets(result.output);
    EXPECT_TRUE(result.errors.ends_with("\r\x1B[K")) << result.errors;
}

TEST_F(Stop, SigtermDoesTheSame) {
    ProgramRun run(scan());
    waitUntilOnlyTheHugeAreLeft(run);
    run.send(SIGTERM);
    const ProgramResult result = run.wait();
    EXPECT_EQ(result.status, 130);
    expectConfirmedSets(result.output);
}

TEST_F(Stop, ConfirmedSetsAreWrittenToTheOutputFile) {
    const std::string path = folder_.pathOf("result.json");
    ProgramRun run(scan({"--output", path}));
    waitUntilOnlyTheHugeAreLeft(run);
    run.send(SIGINT);
    EXPECT_EQ(run.wait().status, 130);
    std::ifstream file(path, std::ios::binary);
    expectConfirmedSets({std::istreambuf_iterator<char>(file), {}});
}

TEST_F(Stop, AWriteErrorOverridesTheStatusOfAStop) {
    ProgramRun run(scan({"--output", "/dev/full"}));
    waitUntilOnlyTheHugeAreLeft(run);
    run.send(SIGINT);
    const ProgramResult result = run.wait();
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(
        result.errors.ends_with("tarvin: cannot write '/dev/full': No space left on device\n"))
        << result.errors;
}

TEST_F(Stop, TwoSignalsLeaveNoTemporaryFile) {
    folder_.makeFolder("results");
    ProgramRun run(scan({"--output", folder_.pathOf("results/result.json")}));
    waitUntilOnlyTheHugeAreLeft(run);
    run.send(SIGINT);
    run.send(SIGTERM);
    EXPECT_EQ(run.wait().status, 130);
    for (const auto& entry : std::filesystem::directory_iterator(folder_.pathOf("results"))) {
        EXPECT_EQ(entry.path().filename(), "result.json");
    }
}

TEST(StopWhileWriting, TheSecondSignalEndsTheProgramAtOnce) {
    const TemporaryFolder folder;
    // Far more than a pipe holds.
    for (int number = 0; number < 2000; ++number) {
        folder.writeFile(std::to_string(number) + std::string(200, 'x') + ".jpg", "photo");
    }
    const Pipe pipe;
    ProgramRun run({"scan", "--progress", "always", folder.path()}, {.output = pipe.writing()});
    run.waitForError("\r\x1B[K");
    // Two equal signals could be merged.
    run.send(SIGINT);
    run.send(SIGTERM);
    EXPECT_EQ(run.wait().status, 130);
}

}  // namespace
}  // namespace tarvin
