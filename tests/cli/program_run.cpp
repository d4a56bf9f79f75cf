#include "cli/program_run.h"

#include "support/pipe.h"
#include "support/waiting.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <utility>

namespace tarvin {

namespace {

constexpr std::chrono::seconds maxDuration{60};

void setLimit(int resource, std::uint64_t bytes) {
    if (bytes > 0) {
        const rlimit limit{bytes, bytes};
        ::setrlimit(static_cast<__rlimit_resource>(resource), &limit);
    }
}

/// In the child process: must not need a lock that another thread held at the fork.
[[noreturn]] void become(const std::vector<char*>& arguments, const ProgramSetting& setting,
                         int output, int errors) {
    sigset_t none{};
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) {
        static_cast<void>(std::signal(signal, SIG_DFL));
    }
    const bool isThere = setting.folder.empty() || ::chdir(setting.folder.c_str()) == 0;
    const bool isFed = setting.input < 0 || ::dup2(setting.input, STDIN_FILENO) >= 0;
    const bool isObeyed =
        !setting.ownsTerminal || (::setsid() > 0 && ::ioctl(STDIN_FILENO, TIOCSCTTY, 0) == 0);
    if (isThere && isFed && isObeyed && ::dup2(output, STDOUT_FILENO) >= 0 &&
        ::dup2(errors, STDERR_FILENO) >= 0) {
        for (const auto& [name, value] : setting.environment) {
            ::setenv(name.c_str(), value.c_str(), 1);  // NOLINT(concurrency-mt-unsafe)
        }
        if (setting.obeysPermissions) {
            ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
            ::prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
        }
        setLimit(RLIMIT_STACK, setting.threadStack);
        setLimit(RLIMIT_AS, setting.maxMemory);
        setLimit(RLIMIT_FSIZE, setting.maxFileSize);
        ::execv(arguments.front(), arguments.data());
    }
    ::_exit(127);
}

std::vector<char*> pointersTo(ProgramRun::Words& words) {
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// Whether a signal waits for a process that blocks it.
bool isPending(pid_t process, int signal) {
    std::ifstream file("/proc/" + std::to_string(process) + "/status");
    const std::string key = "ShdPnd:\t";
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(key)) {
            const std::uint64_t pending = std::stoull(line.substr(key.size()), nullptr, 16);
            return ((pending >> static_cast<unsigned>(signal - 1)) & 1U) != 0;
        }
    }
    return false;
}

int statusOf(int waitStatus) {
    return WIFSIGNALED(waitStatus) ? 128 + WTERMSIG(waitStatus) : WEXITSTATUS(waitStatus);
}

}  // namespace

std::string ProgramRun::program() {
    return TARVIN_PROGRAM;
}

ProgramRun::ProgramRun(const Words& arguments, const ProgramSetting& setting)
    : deadline_(std::chrono::steady_clock::now() + maxDuration) {
    Words words{program()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const std::vector<char*> pointers = pointersTo(words);
    ProgramSetting complete = setting;
    complete.environment.emplace("XDG_DATA_HOME", "/nonexistent");
    Pipe output;
    Pipe errors;
    process_ = ::fork();
    if (process_ == 0) {
        become(pointers, complete, setting.output >= 0 ? setting.output : output.writing(),
               setting.errors >= 0 ? setting.errors : errors.writing());
    }
    output_ = ::fcntl(output.reading(), F_DUPFD_CLOEXEC, 0);
    errors_ = ::fcntl(errors.reading(), F_DUPFD_CLOEXEC, 0);
}

ProgramRun::~ProgramRun() {
    if (process_ > 0) {
        send(SIGKILL);
        static_cast<void>(wait());
    }
    for (const int descriptor : {output_, errors_}) {
        if (descriptor >= 0) {
            ::close(descriptor);
        }
    }
}

void ProgramRun::send(int signal) const {
    ::kill(process_, signal);
}

void ProgramRun::sendTwo(int first, int second) const {
    for (const int signal : {first, second}) {
        send(signal);
        EXPECT_TRUE(waitUntil([&] { return !isPending(process_, signal); })) << signal;
    }
}

void ProgramRun::waitForError(const std::string& text) {
    readUntil([&] { return result_.errors.find(text) != std::string::npos; });
}

ProgramResult ProgramRun::wait() {
    readUntil([] { return false; });
    int status = 0;
    if (::waitpid(std::exchange(process_, -1), &status, 0) > 0) {
        result_.status = statusOf(status);
    }
    return result_;
}

/// Reads both pipes until the condition holds or both are closed.
void ProgramRun::readUntil(const Condition& isEnough) {
    while (!isEnough() && (output_ >= 0 || errors_ >= 0)) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline_ - std::chrono::steady_clock::now());
        std::array<pollfd, 2> wanted{pollfd{output_, POLLIN, 0}, pollfd{errors_, POLLIN, 0}};
        const auto patience = static_cast<int>(std::max<std::int64_t>(left.count(), 0));
        if (::poll(wanted.data(), wanted.size(), patience) == 0) {
            ADD_FAILURE() << "The program has not ended within a minute. Its errors: "
                          << result_.errors;
            send(SIGKILL);
            return;
        }
        if (wanted[0].revents != 0) {
            readSome(output_, result_.output);
        }
        if (wanted[1].revents != 0) {
            readSome(errors_, result_.errors);
        }
    }
}

void ProgramRun::readSome(int& descriptor, std::string& into) const {
    std::array<char, 65536> block{};
    const ssize_t got = ::read(descriptor, block.data(), block.size());
    if (got > 0) {
        into.append(block.data(), static_cast<std::size_t>(got));
    } else {
        ::close(std::exchange(descriptor, -1));
    }
}

ProgramResult runTarvin(const ProgramRun::Words& arguments, const ProgramSetting& setting) {
    return ProgramRun(arguments, setting).wait();
}

}  // namespace tarvin
