#include "window/child_process.h"

#include "support/waiting.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <utility>

namespace tarvin {

namespace {

constexpr const char* outputSuffix = ".output";
constexpr const char* errorsSuffix = ".errors";

int newFile(const std::string& path) {
    return ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, S_IRUSR | S_IWUSR);
}

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// "NAME=value" for everything in the test's environment and in `added`, which wins.
ChildProcess::Words environmentWith(const ChildProcess::Environment& added) {
    ChildProcess::Words words;
    for (char** word = environ; *word != nullptr; ++word) {
        const std::string text = *word;
        if (!added.contains(text.substr(0, text.find('=')))) {
            words.push_back(text);
        }
    }
    for (const auto& [name, value] : added) {
        words.push_back(std::string(name).append("=").append(value));
    }
    return words;
}

std::vector<char*> pointersTo(ChildProcess::Words& words) {
    std::vector<char*> pointers(words.size());
    std::transform(words.begin(), words.end(), pointers.begin(),
                   [](std::string& word) { return word.data(); });
    pointers.push_back(nullptr);
    return pointers;
}

/// In the child process: nothing here may need a lock that another thread held.
[[noreturn]] void become(char* const* arguments, char* const* environment, int output, int errors,
                         pid_t parent) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int input = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (::getppid() == parent && ::dup2(input, STDIN_FILENO) >= 0 &&
        ::dup2(output, STDOUT_FILENO) >= 0 && ::dup2(errors, STDERR_FILENO) >= 0) {
        ::execvpe(*arguments, arguments, environment);
    }
    ::_exit(127);
}

}  // namespace

ChildProcess::ChildProcess(Words words, std::string outputs, const Environment& environment)
    : name_(words.front()), outputs_(std::move(outputs)) {
    Words variables = environmentWith(environment);
    const std::vector<char*> arguments = pointersTo(words);
    const std::vector<char*> settings = pointersTo(variables);
    const int output = newFile(outputs_ + outputSuffix);
    const int errors = newFile(outputs_ + errorsSuffix);
    const pid_t parent = ::getpid();
    process_ = ::fork();
    if (process_ == 0) {
        become(arguments.data(), settings.data(), output, errors, parent);
    }
    ::close(output);
    ::close(errors);
}

ChildProcess::~ChildProcess() {
    // An exception has not become a failure yet.
    if (testing::Test::HasFailure() || std::uncaught_exceptions() > 0) {
        std::cerr << name_ << " says: " << errors() << '\n';
    }
    if (!runs()) {
        return;
    }
    send(SIGTERM);
    if (!endsInTime()) {
        send(SIGKILL);
        static_cast<void>(endsInTime());
    }
}

std::string ChildProcess::output() const {
    return contentOf(outputs_ + outputSuffix);
}

std::string ChildProcess::errors() const {
    return contentOf(outputs_ + errorsSuffix);
}

std::string ChildProcess::firstLine() const {
    std::string text;
    const bool came = waitUntil([&] {
        text = output();
        return text.find('\n') != std::string::npos;
    });
    EXPECT_TRUE(came) << name_ << " says nothing. Its errors: " << errors();
    return came ? text.substr(0, text.find('\n')) : std::string();
}

bool ChildProcess::runs() {
    int ended = 0;
    if (!status_ && ::waitpid(process_, &ended, WNOHANG) != 0) {
        status_ = WIFSIGNALED(ended) ? 128 + WTERMSIG(ended) : WEXITSTATUS(ended);
    }
    return !status_;
}

bool ChildProcess::endsInTime() {
    return waitUntil([this] { return !runs(); });
}

int ChildProcess::wait() {
    if (!endsInTime()) {
        ADD_FAILURE() << name_ << " does not end. Its errors: " << errors();
        return -1;
    }
    return *status_;
}

void ChildProcess::send(int signal) const {
    ::kill(process_, signal);
}

}  // namespace tarvin
