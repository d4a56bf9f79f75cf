#include "clean/trials/program.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <ctime>
#include <utility>

namespace tarvin {

namespace {

constexpr int couldNotStart = 127;

}  // namespace

Program::Program(const std::vector<std::string>& words, const std::string& dataHome) {
    std::vector<std::string> copies{TARVIN_PROGRAM};
    copies.insert(copies.end(), words.begin(), words.end());
    std::vector<char*> arguments;
    for (std::string& word : copies) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    process_ = ::fork();
    if (process_ != 0) {
        return;
    }
    // setenv() is safe here: the process had a single thread when it forked, so no lock is held.
    if (!dataHome.empty()) {
        ::setenv("XDG_DATA_HOME", dataHome.c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
    }
    const int silence = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        ::dup2(silence, descriptor);
    }
    ::execv(arguments.front(), arguments.data());
    ::_exit(couldNotStart);
}

Program::~Program() {
    if (process_ > 0) {
        kill();
        wait();
    }
}

void Program::kill() const {
    ::kill(process_, SIGKILL);
}

int Program::wait() {
    int status = 0;
    const bool isEnded = ::waitpid(std::exchange(process_, -1), &status, 0) > 0;
    const int exit = isEnded && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return exit == couldNotStart ? -1 : exit;
}

void Program::letRun(std::chrono::microseconds time) const {
    const auto handle = static_cast<int>(::syscall(SYS_pidfd_open, process_, 0));
    pollfd end{handle, POLLIN, 0};
    const timespec longest{time.count() / 1'000'000, time.count() % 1'000'000 * 1000};
    ::ppoll(&end, 1, &longest, nullptr);
    ::close(handle);
}

bool Program::hasEnded() const {
    siginfo_t state{};
    return ::waitid(P_PID, static_cast<id_t>(process_), &state, WEXITED | WNOHANG | WNOWAIT) != 0 ||
           state.si_pid != 0;
}

}  // namespace tarvin
