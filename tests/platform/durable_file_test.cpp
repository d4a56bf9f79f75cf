#include "platform/durable_file.h"

#include "support/file_content.h"
#include "support/fuse_view.h"
#include "support/mount.h"
#include "support/recording_file_calls.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

namespace tarvin {
namespace {

/// The exit status of a child process that runs `work`: 0 for true.
template <typename Work>
int inChild(const Work& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(work() ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

class DurableFile : public ::testing::Test {
 protected:
    TemporaryFolder folder_;
    std::string path_ = folder_.pathOf("data.plist");
};

TEST_F(DurableFile, ReplaceCreatesAMissingFile) {
    EXPECT_FALSE(replaceFile(path_, "new"));
    EXPECT_EQ(contentOf(path_), "new");
    EXPECT_FALSE(std::filesystem::exists(path_ + ".new"));
}

TEST_F(DurableFile, ReplaceKeepsThePermissions) {
    folder_.writeFile("data.plist", "a longer old text");
    ::chmod(path_.c_str(), 0640);
    EXPECT_FALSE(replaceFile(path_, "new"));
    EXPECT_EQ(contentOf(path_), "new");
    EXPECT_EQ(std::filesystem::status(path_).permissions(), std::filesystem::perms(0640));
}

TEST_F(DurableFile, ReplaceFollowsALink) {
    const std::string target = folder_.writeFile("kept/list", "old");
    folder_.makeLink("data.plist", "kept/list");
    EXPECT_FALSE(replaceFile(path_, "new"));
    EXPECT_EQ(contentOf(target), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(path_));
}

TEST_F(DurableFile, ReplaceOverwritesALeftover) {
    folder_.writeFile("data.plist.new", "half of something");
    EXPECT_FALSE(replaceFile(path_, "new"));
    EXPECT_EQ(contentOf(path_), "new");
}

TEST_F(DurableFile, ReplaceFlushesFileAndFolder) {
    RecordingFileCalls calls;
    EXPECT_FALSE(replaceFile(folder_.makeFolder("inner") + "/list", "new", calls));
    EXPECT_EQ(calls.calls(),
              (std::vector<std::string>{"sync list.new", "rename list.new list", "sync inner"}));
}

TEST_F(DurableFile, ReplaceDoesNotFollowALinkAtTheTemporaryName) {
    const std::string other = folder_.writeFile("other", "untouched");
    folder_.makeLink("data.plist.new", other);
    static_cast<void>(replaceFile(path_, "new"));
    EXPECT_EQ(contentOf(other), "untouched");
    EXPECT_FALSE(std::filesystem::is_symlink(path_));
}

TEST_F(DurableFile, IsUnchangedAtTheFileSizeLimit) {
    folder_.writeFile("data.plist", "old");
    // RLIMIT_FSIZE simulates a full disk.
    EXPECT_EQ(inChild([this] {
                  static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
                  const rlimit limit{1000, 1000};
                  ::setrlimit(RLIMIT_FSIZE, &limit);
                  const auto failure = replaceFile(path_, std::string(5000, 'x'));
                  return failure && failure->code == EFBIG;
              }),
              0);
    EXPECT_EQ(contentOf(path_), "old");
    EXPECT_FALSE(std::filesystem::exists(path_ + ".new"));
}

TEST_F(DurableFile, IsUnchangedOnAFullDisk) {
    const std::string disk = folder_.makeFolder("disk");
    const Mount mount("none", disk, "tmpfs", 0, "size=16k");
    if (mount) {
        EXPECT_FALSE(replaceFile(disk + "/data.plist", "old"));
        const auto failure = replaceFile(disk + "/data.plist", std::string(100'000, 'x'));
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->code, ENOSPC);
        EXPECT_EQ(contentOf(disk + "/data.plist"), "old");
        EXPECT_FALSE(std::filesystem::exists(disk + "/data.plist.new"));
    }
}

TEST_F(DurableFile, ReplaceFailsOnAReadOnlyDisk) {
    const std::string disk = folder_.makeFolder("disk");
    const Mount mount("none", disk, "tmpfs", MS_RDONLY);
    if (mount) {
        const auto failure = replaceFile(disk + "/data.plist", "new");
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->code, EROFS);
    }
}

TEST_F(DurableFile, ReplaceFailsInAMissingFolder) {
    const auto failure = replaceFile(folder_.pathOf("missing/data.plist"), "new");
    ASSERT_TRUE(failure);
    EXPECT_EQ(failure->code, ENOENT);
}

TEST_F(DurableFile, PrivateFileIsForTheUserAlone) {
    const mode_t old = ::umask(0);
    EXPECT_FALSE(makePrivateFile(path_));
    ::umask(old);
    EXPECT_EQ(std::filesystem::status(path_).permissions(), std::filesystem::perms(0600));
    EXPECT_EQ(std::filesystem::file_size(path_), 0U);
}

TEST_F(DurableFile, ExistingPrivateFileIsUnchanged) {
    folder_.writeFile("data.plist", "old");
    EXPECT_FALSE(makePrivateFile(path_));
    EXPECT_EQ(contentOf(path_), "old");
}

TEST_F(DurableFile, PrivateFileRefusesOtherEntries) {
    folder_.makeLink("link", folder_.pathOf("missing"));
    folder_.makeFolder("folder");
    ASSERT_EQ(::mkfifo(folder_.pathOf("pipe").c_str(), 0600), 0);
    const auto codeOf = [this](const char* name) {
        return makePrivateFile(folder_.pathOf(name)).value_or(SystemError{0}).code;
    };
    EXPECT_EQ(codeOf("link"), ELOOP);
    EXPECT_EQ(codeOf("folder"), EISDIR);
    EXPECT_EQ(codeOf("pipe"), EPERM);
    EXPECT_EQ(codeOf("none/file"), ENOENT);
    EXPECT_FALSE(std::filesystem::exists(folder_.pathOf("missing")));
}

TEST_F(DurableFile, IsRenamedToTheFirstFreeName) {
    for (const char* content : {"one", "two", "three"}) {
        folder_.writeFile("data.plist", content);
        EXPECT_TRUE(putAside(path_, ".unreadable"));
    }
    EXPECT_FALSE(std::filesystem::exists(path_));
    EXPECT_EQ(contentOf(path_ + ".unreadable"), "one");
    EXPECT_EQ(contentOf(path_ + ".unreadable-2"), "two");
    EXPECT_EQ(contentOf(path_ + ".unreadable-3"), "three");
}

// bindfs refuses a rename that must not replace anything.
TEST_F(DurableFile, IsRenamedToAFreeNameWhereRenamesCannotBeExclusive) {
    const FuseView view(folder_.path());
    if (!view) {
        return;
    }
    const std::string shown = view.pathOf("data.plist");
    for (const char* content : {"one", "two"}) {
        folder_.writeFile("data.plist", content);
        EXPECT_TRUE(putAside(shown, ".unreadable"));
    }
    EXPECT_FALSE(std::filesystem::exists(path_));
    EXPECT_EQ(contentOf(path_ + ".unreadable"), "one");
    EXPECT_EQ(contentOf(path_ + ".unreadable-2"), "two");
}

TEST_F(DurableFile, MissingFileCannotBeRenamed) {
    const Result<std::string> aside = putAside(path_, ".unreadable");
    ASSERT_FALSE(aside);
    EXPECT_EQ(aside.error().code, ENOENT);
}

TEST_F(DurableFile, FoldersAreCreatedWithParents) {
    const std::string deep = folder_.pathOf("a/b/c");
    EXPECT_FALSE(makeFolders(deep));
    EXPECT_TRUE(std::filesystem::is_directory(deep));
    EXPECT_FALSE(makeFolders(deep));
}

TEST_F(DurableFile, FoldersOnAReadOnlyDiskFailWithErofs) {
    const std::string disk = folder_.makeFolder("disk");
    const Mount mount("none", disk, "tmpfs", MS_RDONLY);
    if (mount) {
        const auto failure = makeFolders(disk + "/a/b");
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->code, EROFS);
    }
}

TEST_F(DurableFile, FolderInPlaceOfAFileFails) {
    folder_.writeFile("a", "file");
    EXPECT_TRUE(makeFolders(folder_.pathOf("a")));
    EXPECT_TRUE(makeFolders(folder_.pathOf("a/b")));
}

TEST_F(DurableFile, LockExcludesOtherThreads) {
    const std::string counter = folder_.writeFile("counter", "0");
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (int round = 0; round < 50; ++round) {
                const Result<FolderLock> lock = FolderLock::take(folder_.path());
                ASSERT_TRUE(lock);
                const int number = std::stoi(contentOf(counter));
                EXPECT_FALSE(replaceFile(counter, std::to_string(number + 1)));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(contentOf(counter), "200");
}

TEST_F(DurableFile, LockCreatesAMissingFolder) {
    EXPECT_TRUE(FolderLock::take(folder_.pathOf("missing/inner")));
    EXPECT_TRUE(std::filesystem::is_directory(folder_.pathOf("missing/inner")));
}

TEST_F(DurableFile, LockAttemptTimesOut) {
    const auto held = FolderLock::take(folder_.path());
    ASSERT_TRUE(held);
    const auto begin = std::chrono::steady_clock::now();
    const auto refused = FolderLock::take(folder_.path(), std::chrono::milliseconds(20));
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code, EBUSY);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(20));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST_F(DurableFile, LockFailsForAFile) {
    EXPECT_FALSE(FolderLock::take(folder_.writeFile("file", "")));
}

}  // namespace
}  // namespace tarvin
