#include "report/output_file.h"

#include "support/as_user.h"
#include "support/file_content.h"
#include "support/pipe.h"
#include "support/recording_file_calls.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace tarvin {
namespace {

using Names = std::set<std::string>;

Names namesIn(const TemporaryFolder& folder) {
    Names names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        names.insert(entry.path().filename().native());
    }
    return names;
}

std::string failureOfOpening(const std::string& path) {
    const auto file = OutputFile::open(path);
    return file ? "" : file.error();
}

/// Writes `text` to the target, which can be opened. Returns the error number of the failure, or 0.
int write(const std::string& path, const std::string& text) {
    const auto file = OutputFile::open(path);
    if (!file) {
        ADD_FAILURE() << file.error();
        return -1;
    }
    (*file)->output().append(text);
    const auto failure = (*file)->commit();
    return failure ? failure->code : 0;
}

mode_t modeOf(const std::string& path) {
    struct stat status{};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

TEST(OutputFile, CreatesAFileWithTheWholeText) {
    const TemporaryFolder folder;
    EXPECT_EQ(write(folder.pathOf("result"), "text\n"), 0);
    EXPECT_EQ(contentOf(folder.pathOf("result")), "text\n");
    EXPECT_EQ(namesIn(folder), Names{"result"});
}

TEST(OutputFile, TheModeFollowsTheUmask) {
    const TemporaryFolder folder;
    const mode_t before = ::umask(027);
    EXPECT_EQ(write(folder.pathOf("result"), "text"), 0);
    ::umask(before);
    EXPECT_EQ(modeOf(folder.pathOf("result")), 0640U);
}

TEST(OutputFile, AnExistingFileIsReplacedOnlyByCommit) {
    const TemporaryFolder folder;
    const std::string path = folder.writeFile("result", "old and longer");
    const auto file = OutputFile::open(path);
    ASSERT_TRUE(file.ok());
    (*file)->output().append("new");
    EXPECT_TRUE((*file)->output().flush());
    EXPECT_EQ(contentOf(path), "old and longer");
    EXPECT_FALSE((*file)->commit().has_value());
    EXPECT_EQ(contentOf(path), "new");
    EXPECT_EQ(namesIn(folder), Names{"result"});
}

TEST(OutputFile, IsFlushedToDiskBeforeItReplacesAnother) {
    const TemporaryFolder folder;
    const std::string inner = folder.makeFolder("inner");
    RecordingFileCalls calls;
    const auto file = OutputFile::open(inner + "/result", calls);
    ASSERT_TRUE(file);
    EXPECT_FALSE((*file)->commit());
    const std::string temporary = ".tarvin-" + std::to_string(::getpid()) + "-0";
    EXPECT_EQ(calls.calls(),
              (std::vector<std::string>{"sync " + temporary, "rename " + temporary + " result",
                                        "sync inner"}));
}

TEST(OutputFile, DoesNotWriteThroughALinkAtTheTemporaryName) {
    const TemporaryFolder folder;
    const std::string other = folder.writeFile("other", "untouched");
    const std::string temporary = ".tarvin-" + std::to_string(::getpid()) + "-0";
    folder.makeLink(temporary, other);
    EXPECT_EQ(write(folder.pathOf("result"), "text\n"), 0);
    EXPECT_EQ(contentOf(folder.pathOf("result")), "text\n");
    EXPECT_EQ(contentOf(other), "untouched");
}

TEST(OutputFile, WithoutCommitNothingIsLeft) {
    const TemporaryFolder folder;
    const std::string path = folder.writeFile("result", "old");
    {
        const auto file = OutputFile::open(path);
        ASSERT_TRUE(file.ok());
        (*file)->output().append("new");
    }
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_EQ(namesIn(folder), Names{"result"});
}

TEST(OutputFile, TheTemporaryFileCanBeRemovedAtAnyTime) {
    const TemporaryFolder folder;
    const auto file = OutputFile::open(folder.pathOf("result"));
    ASSERT_TRUE(file.ok());
    EXPECT_EQ(namesIn(folder).size(), 1U);
    (*file)->removeTemporary();
    EXPECT_EQ(namesIn(folder), Names());
}

TEST(OutputFile, TheTemporaryFileHasNoExtension) {
    const TemporaryFolder folder;
    const auto file = OutputFile::open(folder.pathOf("result.jpg"));
    ASSERT_TRUE(file.ok());
    const std::string name = *namesIn(folder).begin();
    EXPECT_EQ(name.substr(0, 8), ".tarvin-");
    EXPECT_EQ(name.find('.', 1), std::string::npos);
}

TEST(OutputFile, SeveralAtOnceDoNotDisturbEachOther) {
    const TemporaryFolder folder;
    const auto one = OutputFile::open(folder.pathOf("one"));
    const auto two = OutputFile::open(folder.pathOf("two"));
    ASSERT_TRUE(one.ok());
    ASSERT_TRUE(two.ok());
    (*one)->output().append("1");
    (*two)->output().append("2");
    EXPECT_FALSE((*one)->commit().has_value());
    EXPECT_FALSE((*two)->commit().has_value());
    EXPECT_EQ(contentOf(folder.pathOf("one")), "1");
    EXPECT_EQ(contentOf(folder.pathOf("two")), "2");
}

TEST(OutputFile, ALinkStaysAndItsTargetIsReplaced) {
    const TemporaryFolder folder;
    const std::string target = folder.writeFile("elsewhere/target", "old");
    const std::string link = folder.makeLink("link", "elsewhere/target");
    EXPECT_EQ(write(link, "new"), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(contentOf(target), "new");
}

TEST(OutputFile, AnUnusableTargetIsRefusedByOpen) {
    const TemporaryFolder folder;
    folder.writeFile("file", "");
    EXPECT_EQ(failureOfOpening(folder.pathOf("no folder/result")), "No such file or directory");
    EXPECT_EQ(failureOfOpening(folder.pathOf("file/result")), "Not a directory");
    EXPECT_EQ(failureOfOpening(folder.path()), "Is a directory");
    EXPECT_EQ(failureOfOpening(""), "No such file or directory");
    EXPECT_EQ(namesIn(folder), Names{"file"});
}

TEST(OutputFile, ARemovedFolderIsReportedByCommit) {
    const TemporaryFolder folder;
    folder.makeFolder("sub");
    const auto file = OutputFile::open(folder.pathOf("sub/result"));
    ASSERT_TRUE(file.ok());
    std::filesystem::remove_all(folder.pathOf("sub"));
    const auto failure = (*file)->commit();
    ASSERT_TRUE(failure.has_value());
    EXPECT_EQ(failure->code, ENOENT);
}

TEST(OutputFile, ADeviceIsWrittenDirectly) {
    EXPECT_EQ(write("/dev/null", "text"), 0);
    EXPECT_EQ(write("/dev/full", "text"), ENOSPC);
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

TEST(OutputFile, ANamedPipeIsWrittenDirectly) {
    const TemporaryFolder folder;
    const std::string path = folder.pathOf("pipe");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    std::string arrived;
    std::thread reader([&] { arrived = contentOf(path); });
    EXPECT_EQ(write(path, "text"), 0);
    reader.join();
    EXPECT_EQ(arrived, "text");
    EXPECT_EQ(namesIn(folder), Names{"pipe"});
}

TEST(OutputFile, ALinkToNothingIsRefused) {
    const TemporaryFolder folder;
    const std::string link = folder.makeLink("link", folder.pathOf("drive/result"));
    EXPECT_EQ(failureOfOpening(link), "a link to a missing file");
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(namesIn(folder), Names{"link"});
}

/// The reason why OutputFile::openRegular() refuses; empty if it does not.
std::string refusalOf(const std::string& path) {
    const auto file = OutputFile::openRegular(path);
    return file ? "" : file.error();
}

TEST(OutputFile, ARegularTargetIsCreatedOrReplaced) {
    const TemporaryFolder folder;
    for (const std::string name : {"new", "old"}) {
        const std::string path = folder.pathOf(name);
        folder.writeFile("old", "before");
        auto file = OutputFile::openRegular(path);
        ASSERT_TRUE(file);
        (*file)->output().append("text");
        EXPECT_FALSE((*file)->commit());
        EXPECT_EQ(contentOf(path), "text");
    }
    EXPECT_EQ(namesIn(folder), (Names{"new", "old"}));
}

TEST(OutputFile, ARegularTargetMayBeBehindALink) {
    const TemporaryFolder folder;
    const std::string target = folder.writeFile("elsewhere/target", "old");
    const std::string link = folder.makeLink("link", "elsewhere/target");
    auto file = OutputFile::openRegular(link);
    ASSERT_TRUE(file);
    (*file)->output().append("new");
    EXPECT_FALSE((*file)->commit());
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(contentOf(target), "new");
}

TEST(OutputFile, WhatIsNoRegularFileIsRefusedWithoutBlocking) {
    const TemporaryFolder folder;
    const std::string pipe = folder.pathOf("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(refusalOf(pipe), "not a regular file");
    EXPECT_EQ(refusalOf(folder.makeLink("to pipe", pipe)), "not a regular file");
    EXPECT_EQ(refusalOf("/dev/null"), "not a regular file");
    EXPECT_EQ(refusalOf(folder.path()), "Is a directory");
    EXPECT_EQ(refusalOf(folder.pathOf("none/result")), "No such file or directory");
    EXPECT_EQ(refusalOf(folder.makeLink("to nothing", "nothing")), "a link to a missing file");
    EXPECT_EQ(namesIn(folder), (Names{"pipe", "to nothing", "to pipe"}));
}

TEST(OutputFile, ARegularTargetThatMayNotBeWrittenIsRefused) {
    const TemporaryFolder folder;
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    const std::string file = folder.writeFile("file", "old");
    std::filesystem::permissions(file, std::filesystem::perms(0444));
    const std::string closed = folder.makeFolder("closed");
    std::filesystem::permissions(closed, std::filesystem::perms(0555));
    asUser(65534, [&] {
        EXPECT_EQ(refusalOf(file), "Permission denied");
        EXPECT_EQ(refusalOf(closed + "/result"), "Permission denied");
    });
    EXPECT_EQ(contentOf(file), "old");
}

/// Replaces standard output during its lifetime.
class OtherStandardOutput final {
 public:
    explicit OtherStandardOutput(int descriptor) : before_(::dup(STDOUT_FILENO)) {
        ::dup2(descriptor, STDOUT_FILENO);
    }
    OtherStandardOutput(const OtherStandardOutput&) = delete;
    OtherStandardOutput& operator=(const OtherStandardOutput&) = delete;
    ~OtherStandardOutput() {
        ::dup2(before_, STDOUT_FILENO);
        ::close(before_);
    }

 private:
    int before_;
};

TEST(OutputFile, ADashIsStandardOutputAndStaysOpen) {
    Pipe pipe;
    int failure = -1;
    ssize_t more = -1;
    {
        const OtherStandardOutput other(pipe.writing());
        failure = write("-", "text");
        more = ::write(STDOUT_FILENO, ", more", 6);
    }
    EXPECT_EQ(failure, 0);
    EXPECT_EQ(more, 6);
    EXPECT_EQ(pipe.readSome(), "text, more");
}

TEST(OutputFile, StandardOutputByItsPathIsAppendedToAndNotReplaced) {
    const TemporaryFolder folder;
    const std::string path = folder.writeFile("log", "before\n");
    const int log = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
    ASSERT_GE(log, 0);
    int failure = -1;
    {
        const OtherStandardOutput other(log);
        failure = write("/dev/stdout", "text\n");
    }
    ::close(log);
    EXPECT_EQ(failure, 0);
    EXPECT_EQ(contentOf(path), "before\ntext\n");
}

}  // namespace
}  // namespace tarvin
