#include "cli/program_run.h"
#include "cli/result_json.h"
#include "support/file_content.h"
#include "support/mount.h"
#include "support/pipe.h"
#include "support/shell_command.h"
#include "support/temporary_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <thread>

namespace tarvin {
namespace {

/// Two equal files in the folder "photos".
class ResultOutput : public testing::Test {
 protected:
    ResultOutput() {
        folder_.writeFile("photos/a.jpg", "photo");
        folder_.writeFile("photos/b.jpg", "photo");
    }

    [[nodiscard]] ProgramRun::Words scanTo(const std::string& output) const {
        return {"scan", "--format", "json", "--output", output, folder_.pathOf("photos")};
    }

    static std::set<std::string> namesIn(const std::string& folder) {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            names.insert(entry.path().filename().native());
        }
        return names;
    }

    void expectTheResult(const std::string& text) const {
        EXPECT_EQ(setsIn(parsedJson(text), folder_.pathOf("photos")), (Sets{{"/a.jpg", "/b.jpg"}}));
    }

    TemporaryFolder folder_;
};

TEST_F(ResultOutput, MayGoToAFile) {
    const ProgramResult result = runTarvin(scanTo(folder_.pathOf("result.json")));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "");
    expectTheResult(contentOf(folder_.pathOf("result.json")));
}

TEST_F(ResultOutput, MayGoToAFileInTheFolderThatIsScanned) {
    const std::string path = folder_.pathOf("photos/result.jpg");
    EXPECT_EQ(runTarvin(scanTo(path)).status, 0);
    expectTheResult(contentOf(path));
    EXPECT_EQ(parsedJson(contentOf(path))["collected"]["Image"], 2);
}

TEST_F(ResultOutput, ADashIsStandardOutput) {
    const ProgramResult result = runTarvin(scanTo("-"), {.folder = folder_.path()});
    EXPECT_EQ(result.status, 0);
    expectTheResult(result.output);
    EXPECT_FALSE(std::filesystem::exists(folder_.pathOf("-")));
}

TEST_F(ResultOutput, ANamedPipeIsWrittenTo) {
    const std::string path = folder_.pathOf("pipe");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    std::string arrived;
    std::thread reader([&] { arrived = contentOf(path); });
    const ProgramResult result = runTarvin(scanTo(path));
    reader.join();
    EXPECT_EQ(result.status, 0);
    expectTheResult(arrived);
}

TEST_F(ResultOutput, ThePathOfStandardOutputIsStandardOutput) {
    const ProgramResult result = runTarvin(scanTo("/dev/stdout"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    expectTheResult(result.output);
}

TEST_F(ResultOutput, AFullDiskIsAFailure) {
    const ProgramResult result = runTarvin(scanTo("/dev/full"));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot write '/dev/full': No space left on device\n");
}

TEST_F(ResultOutput, OnAFullDiskTheOldFileStaysWhole) {
    const std::string disk = folder_.makeFolder("disk");
    const Mount mount("none", disk, "tmpfs", 0, "size=16k");
    if (!mount) {
        return;
    }
    // Far more names than the disk holds.
    for (int number = 0; number < 300; ++number) {
        folder_.writeFile("photos/" + std::to_string(number) + std::string(100, 'x') + ".jpg",
                          "photo");
    }
    const std::string path = folder_.writeFile("disk/result", "the old result");
    for (const char* format : {"text", "json", "csv"}) {
        const ProgramResult result =
            runTarvin({"scan", "--format", format, "--output", path, folder_.pathOf("photos")});
        EXPECT_EQ(result.status, 1) << format;
        EXPECT_EQ(result.output, "") << format;
        EXPECT_EQ(result.errors, "tarvin: cannot write '" + path + "': No space left on device\n");
        EXPECT_EQ(contentOf(path), "the old result") << format;
        EXPECT_EQ(namesIn(disk), std::set<std::string>{"result"}) << format;
    }
}

TEST_F(ResultOutput, ALinkIsWrittenThrough) {
    const std::string target = folder_.writeFile("elsewhere/result.json", "old");
    const std::string link = folder_.makeLink("link", target);
    EXPECT_EQ(runTarvin(scanTo(link)).status, 0);
    expectTheResult(contentOf(target));
    EXPECT_TRUE(std::filesystem::is_symlink(link));
}

TEST_F(ResultOutput, ALinkToNothingIsRefused) {
    const std::string link = folder_.makeLink("link", folder_.pathOf("drive/result.json"));
    const ProgramResult scanned = runTarvin(scanTo(link));
    EXPECT_EQ(scanned.status, 2);
    EXPECT_EQ(scanned.errors, "tarvin: cannot write '" + link + "': a link to a missing file\n");
    const ProgramResult cleaned =
        runTarvin({"clean", "--yes", "-o", link, folder_.pathOf("photos")});
    EXPECT_EQ(cleaned.status, 2);
    EXPECT_EQ(cleaned.errors, scanned.errors);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(namesIn(folder_.path()), (std::set<std::string>{"link", "photos"}));
    EXPECT_EQ(namesIn(folder_.pathOf("photos")), (std::set<std::string>{"a.jpg", "b.jpg"}));
}

TEST_F(ResultOutput, AFullDiskBehindStandardOutputIsAFailure) {
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(full, 0);
    const ProgramResult result = runTarvin(scanTo("-"), {.output = full});
    ::close(full);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot write standard output: No space left on device\n");
}

TEST_F(ResultOutput, AClosedPipeEndsItQuietly) {
    for (const char* output : {"-", "/dev/stdout"}) {
        Pipe pipe;
        pipe.closeReading();
        const ProgramResult result = runTarvin(scanTo(output), {.output = pipe.writing()});
        EXPECT_EQ(result.status, 141) << output;
        EXPECT_EQ(result.errors, "") << output;
    }
}

TEST_F(ResultOutput, AReaderThatStopsEarlyEndsItQuietly) {
    // Far more than a pipe holds.
    for (int number = 0; number < 2000; ++number) {
        folder_.writeFile("photos/" + std::to_string(number) + std::string(100, 'x') + ".jpg",
                          "photo");
    }
    const CommandResult result =
        runCommand("bash -c '\"$0\" scan \"$1\" | head -n 1; echo ${PIPESTATUS[0]}' '" +
                   ProgramRun::program() + "' '" + folder_.pathOf("photos") + "'");
    EXPECT_EQ(result.output, "Image\n141\n");
}

TEST(PrintedOutput, AClosedPipeEndsEveryCommandQuietly) {
    const TemporaryFolder home;
    const std::string photo = home.writeFile("photo.jpg", "photo");
    for (const ProgramRun::Words& arguments :
         {ProgramRun::Words{"--help"}, {"--version"}, {"totals"}, {"exceptions", "add", photo}}) {
        Pipe pipe;
        pipe.closeReading();
        const ProgramResult result = runTarvin(
            arguments,
            {.environment = {{"XDG_DATA_HOME", home.pathOf("data")}}, .output = pipe.writing()});
        EXPECT_EQ(result.status, 141) << arguments.front();
        EXPECT_EQ(result.errors, "") << arguments.front();
    }
}

TEST_F(ResultOutput, AWriteErrorSetsTheExitStatus) {
    const int reading = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    ASSERT_GE(reading, 0);
    const ProgramResult result = runTarvin(scanTo("-"), {.output = reading});
    ::close(reading);
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot write standard output: Bad file descriptor\n");
}

TEST_F(ResultOutput, AClosedStandardOutputIsAFailure) {
    const std::string command = "'" + ProgramRun::program() + "' scan '" +
                                folder_.pathOf("photos") + "' >&- 2>'" + folder_.pathOf("errors") +
                                "'";
    const int status = std::system(command.c_str());  // NOLINT(concurrency-mt-unsafe)
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_EQ(contentOf(folder_.pathOf("errors")),
              "tarvin: cannot write standard output: Bad file descriptor\n");
    EXPECT_EQ(contentOf(folder_.pathOf("photos/a.jpg")), "photo");
}

}  // namespace
}  // namespace tarvin
