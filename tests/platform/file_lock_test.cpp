#include "platform/file_lock.h"

#include "support/file_content.h"
#include "support/mount.h"
#include "support/temporary_folder.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace tarvin {
namespace {

class FileLockTest : public ::testing::Test {
 protected:
    /// The error number of an attempt to take a lock; 0 on success, and the lock is released.
    [[nodiscard]] int codeOf(std::uint64_t number,
                             LockSharing sharing = LockSharing::exclusive) const {
        const Result<FileLock> lock = locks_.tryTake(number, sharing);
        return lock ? 0 : lock.error().code;
    }
    static int codeOf(const LockFile& locks) {
        const Result<FileLock> lock = locks.tryTake(1);
        return lock ? 0 : lock.error().code;
    }

    TemporaryFolder folder_;
    LockFile locks_{folder_.pathOf("own.lock")};
};

/// A child process that holds a lock until it is killed.
class Holder final {
 public:
    Holder(const LockFile& locks, std::uint64_t number) {
        int ends[2];
        EXPECT_EQ(::pipe(ends), 0);
        child_ = ::fork();
        if (child_ == 0) {
            const Result<FileLock> lock = locks.tryTake(number);
            const char answer = lock ? '1' : '0';
            while (::write(ends[1], &answer, 1) == 1) {
                ::pause();
            }
            ::_exit(0);
        }
        char answer = '0';
        EXPECT_EQ(::read(ends[0], &answer, 1), 1);
        EXPECT_EQ(answer, '1');
        ::close(ends[0]);
        ::close(ends[1]);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder() { kill(); }

    void kill() {
        if (child_ > 0) {
            ::kill(child_, SIGKILL);
            ::waitpid(child_, nullptr, 0);
            child_ = -1;
        }
    }

 private:
    pid_t child_ = -1;
};

TEST_F(FileLockTest, CreatesTheFileForTheUserAlone) {
    const mode_t old = ::umask(0);
    const Result<FileLock> lock = locks_.tryTake(1);
    ::umask(old);
    ASSERT_TRUE(lock);
    EXPECT_EQ(std::filesystem::status(locks_.path()).permissions(), std::filesystem::perms(0600));
    EXPECT_EQ(std::filesystem::file_size(locks_.path()), 0U);
}

TEST_F(FileLockTest, ExcludesASecondTakerOfTheSameProcess) {
    std::optional<Result<FileLock>> lock(locks_.tryTake(7));
    ASSERT_TRUE(*lock);
    EXPECT_EQ(codeOf(7), EBUSY);
    EXPECT_EQ(codeOf(8), 0);
    EXPECT_EQ(codeOf(0), 0);
    // Closing the descriptors of the failed attempts did not release the first lock.
    EXPECT_EQ(codeOf(7), EBUSY);
    lock.reset();
    EXPECT_EQ(codeOf(7), 0);
}

TEST_F(FileLockTest, ExcludesOtherThreads) {
    std::atomic<int> counter{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (int round = 0; round < 100; ++round) {
                const Result<FileLock> lock = locks_.take(3, testPatience);
                ASSERT_TRUE(lock);
                // Read and write, made atomic only by the lock.
                const int read = counter.load();
                std::this_thread::yield();
                counter.store(read + 1);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(counter.load(), 400);
}

TEST_F(FileLockTest, SharedLocksExcludeExclusiveOnesOnly) {
    const Result<FileLock> one = locks_.tryTake(0, LockSharing::shared);
    ASSERT_TRUE(one);
    EXPECT_EQ(codeOf(0, LockSharing::shared), 0);
    EXPECT_EQ(codeOf(0), EBUSY);
    const Result<FileLock> other = locks_.tryTake(5);
    ASSERT_TRUE(other);
    EXPECT_EQ(codeOf(5, LockSharing::shared), EBUSY);
}

TEST_F(FileLockTest, IsReleasedWhenItsProcessIsKilled) {
    Holder holder(locks_, 9);
    EXPECT_EQ(codeOf(9), EBUSY);
    EXPECT_EQ(codeOf(10), 0);
    holder.kill();
    EXPECT_EQ(codeOf(9), 0);
}

TEST_F(FileLockTest, IsNotInheritedThroughExec) {
    std::optional<Result<FileLock>> lock(locks_.tryTake(2));
    ASSERT_TRUE(*lock);
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::execlp("sh", "sh", "-c", "echo started; exec sleep 1000", nullptr);
        ::_exit(1);
    }
    char first = 0;
    EXPECT_EQ(::read(ends[0], &first, 1), 1);
    EXPECT_EQ(first, 's');
    lock.reset();
    EXPECT_EQ(codeOf(2), 0);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST_F(FileLockTest, AttemptTimesOut) {
    const Result<FileLock> held = locks_.tryTake(4);
    ASSERT_TRUE(held);
    const auto begin = std::chrono::steady_clock::now();
    const Result<FileLock> refused = locks_.take(4, std::chrono::milliseconds(20));
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().code, EBUSY);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(20));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST_F(FileLockTest, WaitingTakerGoesBeforeTheLastHolder) {
    for (int round = 0; round < 20 && !HasFailure(); ++round) {
        std::optional<Result<FileLock>> held(locks_.take(1, testPatience));
        ASSERT_TRUE(*held);
        std::atomic<pid_t> waiter{0};
        std::atomic<bool> waiterWasFirst{false};
        std::thread thread([&] {
            waiter = ::gettid();
            const Result<FileLock> lock = locks_.take(1, testPatience);
            EXPECT_TRUE(lock);
            waiterWasFirst = true;
        });
        // Once it sleeps, it is waiting for the lock.
        EXPECT_TRUE(waitUntil([&] { return waiter != 0 && isAsleep(waiter); }));
        held.reset();
        const Result<FileLock> again = locks_.take(1, testPatience);
        EXPECT_TRUE(again);
        EXPECT_TRUE(waiterWasFirst);
        thread.join();
    }
}

TEST_F(FileLockTest, RefusesASymbolicLink) {
    const std::string target = folder_.writeFile("target", "untouched");
    folder_.makeLink("own.lock", target);
    EXPECT_EQ(codeOf(1), ELOOP);
    EXPECT_EQ(contentOf(target), "untouched");
    const LockFile dangling(folder_.makeLink("dangling", folder_.pathOf("missing")));
    EXPECT_EQ(codeOf(dangling), ELOOP);
    EXPECT_FALSE(std::filesystem::exists(folder_.pathOf("missing")));
}

TEST_F(FileLockTest, RefusesFoldersAndPipes) {
    EXPECT_EQ(codeOf(LockFile(folder_.makeFolder("folder"))), EISDIR);
    const std::string pipe = folder_.pathOf("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(codeOf(LockFile(pipe)), EPERM);
}

TEST_F(FileLockTest, RefusesAFileOfAnotherUser) {
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    ::chmod(folder_.path().c_str(), 0777);
    const std::string path = folder_.writeFile("own.lock", "");
    ::chmod(path.c_str(), 0666);
    constexpr uid_t nobody = 65534;
    const pid_t child = ::fork();
    if (child == 0) {
        const bool isOther = ::seteuid(nobody) == 0;
        ::_exit(isOther ? codeOf(1) : 0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), EPERM);
    ASSERT_EQ(::chown(path.c_str(), nobody, nobody), 0);
    EXPECT_EQ(codeOf(1), 0);  // root may
}

TEST_F(FileLockTest, FailsInAMissingFolder) {
    EXPECT_EQ(codeOf(LockFile(folder_.pathOf("missing/own.lock"))), ENOENT);
}

TEST_F(FileLockTest, FailsOnAReadOnlyDisk) {
    const std::string disk = folder_.makeFolder("disk");
    const Mount mount("none", disk, "tmpfs", MS_RDONLY);
    if (mount) {
        EXPECT_EQ(codeOf(LockFile(disk + "/own.lock")), EROFS);
    }
}

class RepeatedLockTest : public FileLockTest {
 protected:
    static constexpr std::chrono::milliseconds atOnce{0};

    RepeatedLock lock_{locks_, 5};
};

TEST_F(RepeatedLockTest, ExcludesOthersWhileItIsHeld) {
    for (int time = 0; time < 3; ++time) {
        ASSERT_FALSE(lock_.take(atOnce).has_value());
        EXPECT_EQ(codeOf(5), EBUSY);
        EXPECT_EQ(codeOf(6), 0);
        lock_.release();
        EXPECT_EQ(codeOf(5), 0);
    }
}

TEST_F(RepeatedLockTest, TimesOutWhileOthersHoldIt) {
    const Result<FileLock> held = locks_.tryTake(5);
    ASSERT_TRUE(held);
    const auto refusal = lock_.take(atOnce);
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->code, EBUSY);
}

TEST_F(RepeatedLockTest, ExcludesAnotherWithTheSameNumber) {
    RepeatedLock other(locks_, 5);
    ASSERT_FALSE(lock_.take(atOnce).has_value());
    EXPECT_TRUE(other.take(atOnce).has_value());
    lock_.release();
    EXPECT_FALSE(other.take(atOnce).has_value());
    EXPECT_TRUE(lock_.take(atOnce).has_value());
}

TEST_F(RepeatedLockTest, QueuesBehindAWaitingTaker) {
    const auto begin = std::chrono::steady_clock::now();
    ASSERT_FALSE(lock_.take(atOnce).has_value());
    std::atomic<bool> got{false};
    std::thread waiter([&] {
        RepeatedLock other(locks_, 5);
        got = !other.take(std::chrono::seconds(30)).has_value();
    });
    // Wait until the other taker is next.
    EXPECT_TRUE(waitUntil([&] { return codeOf(5 + (std::uint64_t{1} << 62U)) == EBUSY; }));
    // For a millisecond it may be taken again without queueing.
    EXPECT_TRUE(waitUntil([begin] {
        return std::chrono::steady_clock::now() - begin > std::chrono::milliseconds(2);
    }));
    lock_.release();
    ASSERT_FALSE(lock_.take(std::chrono::seconds(30)).has_value());
    EXPECT_TRUE(got);
    waiter.join();
}

TEST_F(RepeatedLockTest, IsReleasedOnDestruction) {
    {
        RepeatedLock other(locks_, 5);
        ASSERT_FALSE(other.take(atOnce).has_value());
    }
    EXPECT_EQ(codeOf(5), 0);
}

TEST_F(RepeatedLockTest, ReportsWhyTheFileCannotBeUsed) {
    RepeatedLock nowhere(LockFile(folder_.pathOf("missing/own.lock")), 5);
    const auto refusal = nowhere.take(atOnce);
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->code, ENOENT);
}

}  // namespace
}  // namespace tarvin
