#include "platform/confinement.h"

#include "support/temporary_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/openat2.h>
#include <poll.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <functional>
#include <string>
#include <thread>

namespace tarvin {
namespace {

/// A child that blocks is killed by SIGALRM after this time.
constexpr unsigned patience = 20;  // seconds

/// The result of `steps` in a child process.
int inChild(const std::function<int()>& steps) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(patience);
        ::_exit(steps());
    }
    int status = 0;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status)) << "ended by signal " << WTERMSIG(status);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// The same, confined; 99 if confinement fails.
int inConfinedChild(const std::function<int()>& steps) {
    return inChild([&steps] { return confineToOpenFiles() ? steps() : 99; });
}

bool isRefused(long answer) {
    return answer == -1 && errno == ENOSYS;
}

TEST(ConfinementToOpenFiles, OpenFilesCanBeReadAndWritten) {
    const TemporaryFolder folder;
    const int file = ::open(folder.writeFile("a", "some text").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(file, 0);
    EXPECT_EQ(inConfinedChild([file] {
                  struct stat attributes{};
                  std::array<char, 4> bytes{};
                  const bool isRead = ::fstat(file, &attributes) == 0 && attributes.st_size == 9 &&
                                      ::lseek(file, 5, SEEK_SET) == 5 &&
                                      ::read(file, bytes.data(), 4) == 4 && bytes[0] == 't';
                  return isRead && ::close(file) == 0 ? 0 : 1;
              }),
              0);
    ::close(file);
}

TEST(ConfinementToOpenFiles, NeedsNoPrivileges) {
    EXPECT_EQ(inChild([] {
                  constexpr uid_t nobody = 65534;
                  if (::geteuid() == 0 && ::setresuid(nobody, nobody, nobody) != 0) {
                      return 2;
                  }
                  return confineToOpenFiles() ? 0 : 1;
              }),
              0);
}

TEST(ConfinementToOpenFiles, RefusesEveryWayToOpenAFile) {
    const TemporaryFolder folder;
    const std::string path = folder.writeFile("a", "some text");
    const std::string link = folder.pathOf("link");
    ASSERT_EQ(::symlink(path.c_str(), link.c_str()), 0);
    const int opened = ::open(folder.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ASSERT_GE(opened, 0);
    EXPECT_EQ(inConfinedChild([&] {
                  open_how how{};
                  int step = 1;
                  for (const bool refused :
                       {isRefused(::open(path.c_str(), O_RDONLY | O_CLOEXEC)),
                        isRefused(::open(link.c_str(), O_RDONLY | O_CLOEXEC)),
                        isRefused(::openat(opened, "a", O_RDONLY | O_CLOEXEC)),
                        isRefused(::creat(folder.pathOf("new").c_str(), 0600)),
                        isRefused(::syscall(SYS_openat2, opened, "a", &how, sizeof how)),
                        isRefused(::access(path.c_str(), R_OK)),
                        isRefused(::mkdir(folder.pathOf("folder").c_str(), 0700)),
                        isRefused(::unlink(path.c_str())),
                        isRefused(::syscall(SYS_memfd_create, "a", 0))}) {
                      if (!refused) {
                          return step;
                      }
                      ++step;
                  }
                  return 0;
              }),
              0);
    ::close(opened);
}

/// RLIMIT_DATA does not count mapped files.
TEST(ConfinementToOpenFiles, MapsMemoryButNoFiles) {
    const TemporaryFolder folder;
    const int file = ::open(folder.writeFile("a", "some text").c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(file, 0);
    EXPECT_EQ(inConfinedChild([file] {
                  const auto map = [](int flags, int descriptor) {
                      return ::mmap(nullptr, 4096, PROT_READ, MAP_PRIVATE | flags, descriptor, 0) !=
                             MAP_FAILED;
                  };
                  const bool isMemory = map(MAP_ANONYMOUS, -1);
                  return isMemory && !map(0, file) && errno == ENOSYS ? 0 : 1;
              }),
              0);
    ::close(file);
}

TEST(ConfinementToOpenFiles, RefusesCallsWithPaths) {
    const TemporaryFolder folder;
    const std::string path = folder.writeFile("a", "some text");
    EXPECT_EQ(inConfinedChild([&] {
                  struct stat attributes{};
                  struct statx more{};
                  std::array<char, 8> target{};
                  const bool isRefusedAll =
                      isRefused(::stat(path.c_str(), &attributes)) &&
                      isRefused(::lstat(path.c_str(), &attributes)) &&
                      isRefused(::statx(AT_FDCWD, path.c_str(), 0, STATX_SIZE, &more)) &&
                      isRefused(::readlink(path.c_str(), target.data(), target.size()));
                  return isRefusedAll ? 0 : 1;
              }),
              0);
}

TEST(ConfinementToOpenFiles, OpeningAPipeFailsImmediately) {
    const TemporaryFolder folder;
    const std::string pipe = folder.pathOf("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(inConfinedChild([&pipe] {
                  return isRefused(::open(pipe.c_str(), O_RDONLY | O_CLOEXEC)) ? 0 : 1;
              }),
              0);
}

TEST(ConfinementToOpenFiles, RefusesNetworksAndProcesses) {
    EXPECT_EQ(inConfinedChild([] {
                  std::array<int, 2> pair{};
                  if (!isRefused(::socket(AF_INET, SOCK_STREAM, 0)) ||
                      !isRefused(::socket(AF_UNIX, SOCK_STREAM, 0)) ||
                      !isRefused(::socketpair(AF_UNIX, SOCK_STREAM, 0, pair.data()))) {
                      return 1;
                  }
                  const pid_t child = ::fork();
                  if (child == 0) {
                      ::_exit(0);
                  }
                  if (!isRefused(child)) {
                      return 2;
                  }
                  std::array<char, 8> program{"/bin/sh"};
                  std::array<char*, 2> arguments{program.data(), nullptr};
                  if (!isRefused(::execv(program.data(), arguments.data()))) {
                      return 3;
                  }
                  return isRefused(::kill(::getppid(), 0)) ? 0 : 4;
              }),
              0);
}

TEST(ConfinementToOpenFiles, AppliesToExistingAndNewThreads) {
    EXPECT_EQ(inChild([] {
                  std::atomic<bool> isConfined = false;
                  std::atomic<int> refusals = 0;
                  const auto tryIt = [&] {
                      while (!isConfined) {
                          std::this_thread::yield();
                      }
                      refusals += static_cast<int>(isRefused(::open("/dev/null", O_RDONLY)));
                  };
                  std::thread before(tryIt);
                  if (!confineToOpenFiles()) {
                      return 99;
                  }
                  isConfined = true;
                  std::thread(tryIt).join();
                  before.join();
                  return refusals == 2 ? 0 : 1;
              }),
              0);
}

TEST(ThreadStacks, AreOneMegabyteAfterLimiting) {
    EXPECT_EQ(inChild([] {
                  limitThreadStacks();
                  std::size_t bytes = 0;
                  std::thread([&bytes] {
                      pthread_attr_t attributes{};
                      ::pthread_getattr_np(::pthread_self(), &attributes);
                      ::pthread_attr_getstacksize(&attributes, &bytes);
                      ::pthread_attr_destroy(&attributes);
                  }).join();
                  return bytes == 1024 * 1024 ? 0 : 1;
              }),
              0);
}

TEST(EndWithParent, KillsTheProcessWhenItsParentIsKilled) {
    std::array<int, 2> pipe{};
    ASSERT_EQ(::pipe2(pipe.data(), O_CLOEXEC), 0);
    const pid_t parent = ::fork();
    if (parent == 0) {
        ::alarm(patience);
        if (::fork() == 0) {
            ::alarm(patience);
            endWithParent();
            // Runs until it is killed; then the pipe reaches its end.
            static_cast<void>(::write(pipe[1], "x", 1));
            for (;;) {
                ::pause();
            }
        }
        for (;;) {
            ::pause();
        }
    }
    ::close(pipe[1]);
    char byte = 0;
    EXPECT_EQ(::read(pipe[0], &byte, 1), 1);
    ::kill(parent, SIGKILL);
    EXPECT_EQ(::waitpid(parent, nullptr, 0), parent);
    // The pipe ends when its last writer has ended.
    pollfd end{pipe[0], POLLIN, 0};
    EXPECT_EQ(::poll(&end, 1, 1000 * static_cast<int>(patience) / 2), 1);
    EXPECT_EQ(::read(pipe[0], &byte, 1), 0);
    ::close(pipe[0]);
}

}  // namespace
}  // namespace tarvin
