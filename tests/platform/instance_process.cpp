#include "platform/instance_process.h"

#include "support/waiting.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <utility>

namespace tarvin {

namespace {

using Pipe = std::array<int, 2>;

Pipe newPipe() {
    Pipe pipe{-1, -1};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) {
        std::abort();
    }
    return pipe;
}

pid_t start(const std::vector<std::string>& folders, int input, int output) {
    std::vector<std::string> words{TARVIN_RUNNING_INSTANCE};
    words.insert(words.end(), folders.begin(), folders.end());
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t process = -1;
    const int failure = ::posix_spawn(&process, TARVIN_RUNNING_INSTANCE, &actions, nullptr,
                                      arguments.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    return failure == 0 ? process : -1;
}

}  // namespace

InstanceProcess::InstanceProcess(const std::vector<std::string>& folders) {
    const Pipe input = newPipe();
    const Pipe output = newPipe();
    process_ = start(folders, input[0], output[1]);
    ::close(input[0]);
    ::close(output[1]);
    input_ = input[1];
    output_ = output[0];
    EXPECT_EQ(nextLine(), "ready");
}

InstanceProcess::~InstanceProcess() {
    if (process_ > 0) {
        send(SIGKILL);
        static_cast<void>(wait());
    }
    endInput();
    ::close(output_);
}

void InstanceProcess::tell(const std::string& command) const {
    const std::string line = command + '\n';
    EXPECT_EQ(::write(input_, line.data(), line.size()), static_cast<ssize_t>(line.size()));
}

std::string InstanceProcess::nextLine() {
    const auto limit = std::chrono::steady_clock::now() + testPatience;
    while (text_.find('\n') == std::string::npos) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            limit - std::chrono::steady_clock::now());
        pollfd waited{output_, POLLIN, 0};
        if (left.count() <= 0 || ::poll(&waited, 1, static_cast<int>(left.count())) <= 0) {
            ADD_FAILURE() << "An instance says nothing. Before that: " << text_;
            return {};
        }
        std::array<char, 4096> room{};
        const ssize_t got = ::read(output_, room.data(), room.size());
        if (got <= 0) {
            return {};
        }
        text_.append(room.data(), static_cast<std::size_t>(got));
    }
    const std::size_t end = text_.find('\n');
    std::string line = text_.substr(0, end);
    text_.erase(0, end + 1);
    return line;
}

std::vector<std::string> InstanceProcess::linesToTheEnd() {
    std::vector<std::string> lines;
    for (std::string line = nextLine(); !line.empty(); line = nextLine()) {
        lines.push_back(line);
        if (line == "quit") {
            break;
        }
    }
    return lines;
}

void InstanceProcess::endInput() {
    if (input_ >= 0) {
        ::close(std::exchange(input_, -1));
    }
}

int InstanceProcess::wait() {
    int status = 0;
    const bool ended = waitUntil([&] { return ::waitpid(process_, &status, WNOHANG) == process_; });
    if (!ended) {
        ADD_FAILURE() << "An instance does not end.";
        return -1;
    }
    process_ = -1;
    return WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
}

void InstanceProcess::send(int signal) const {
    ::kill(process_, signal);
}

}  // namespace tarvin
