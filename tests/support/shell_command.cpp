#include "support/shell_command.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <utility>

namespace tarvin {

namespace {

/// Closes itself.
class OwnedFile final {
 public:
    explicit OwnedFile(int descriptor) : descriptor_(descriptor) {}
    OwnedFile(const OwnedFile&) = delete;
    OwnedFile& operator=(const OwnedFile&) = delete;
    ~OwnedFile() { close(); }

    [[nodiscard]] int get() const { return descriptor_; }
    void close() {
        if (descriptor_ >= 0) {
            ::close(std::exchange(descriptor_, -1));
        }
    }

 private:
    int descriptor_;
};

/// Starts /bin/sh in a new process group; -1 on failure. Spawned rather than forked: a test may
/// have threads.
pid_t startShell(std::string line, int output) {
    std::string shell = "sh";
    std::string option = "-c";
    const std::array<char*, 4> arguments{shell.data(), option.data(), line.data(), nullptr};
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_init(&files);
    posix_spawnattr_init(&attributes);
    posix_spawn_file_actions_adddup2(&files, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&files, output, STDERR_FILENO);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    posix_spawnattr_setpgroup(&attributes, 0);
    pid_t shellId = -1;
    if (::posix_spawn(&shellId, "/bin/sh", &files, &attributes, arguments.data(), environ) != 0) {
        shellId = -1;
    }
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    return shellId;
}

/// Appends what can be read now. False at the end of the output.
bool readAvailable(int output, std::string& into) {
    std::array<char, 4096> block{};
    while (true) {
        const ssize_t got = ::read(output, block.data(), block.size());
        if (got <= 0) {
            return got < 0 && (errno == EAGAIN || errno == EINTR);
        }
        into.append(block.data(), static_cast<std::size_t>(got));
    }
}

/// Reads until the process has ended, not until the output is closed: a daemon that the command has
/// started may keep it open for as long as it runs.
void readUntilEnd(int process, int output, std::string& into) {
    std::array<pollfd, 2> wanted{pollfd{process, POLLIN, 0}, pollfd{output, POLLIN, 0}};
    while (wanted[0].revents == 0) {
        if (::poll(wanted.data(), wanted.size(), -1) < 0 && errno != EINTR) {
            return;
        }
        if (!readAvailable(output, into)) {
            wanted[1].fd = -1;  // poll() skips it
        }
    }
}

}  // namespace

CommandResult runCommand(const std::string& command) {
    CommandResult result;
    std::array<int, 2> ends{-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return result;
    }
    const OwnedFile reading(ends[0]);
    OwnedFile writing(ends[1]);
    ::fcntl(reading.get(), F_SETFL, O_NONBLOCK);
    const pid_t shell = startShell(
        "cd '" TARVIN_SOURCE_DIR "' && { " + command + "\n} </dev/null 2>&1", writing.get());
    writing.close();
    if (shell < 0) {
        return result;
    }
    const OwnedFile process(static_cast<int>(::syscall(SYS_pidfd_open, shell, 0)));
    readUntilEnd(process.get(), reading.get(), result.output);
    // Before waitpid(): until then the number cannot belong to another group.
    ::kill(-shell, SIGKILL);
    int status = 0;
    if (::waitpid(shell, &status, 0) == shell && WIFEXITED(status)) {
        result.status = WEXITSTATUS(status);
    }
    readAvailable(reading.get(), result.output);
    return result;
}

}  // namespace tarvin
