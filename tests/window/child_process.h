#pragma once

#include <sys/types.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// A program that a test has started. It ends with the object, or with the test, at the latest.
class ChildProcess final {
 public:
    using Words = std::vector<std::string>;
    using Environment = std::map<std::string, std::string>;

    /// Starts the program named by the first of `words`, searched in PATH. Its output is written to
    /// two new files, `outputs` with ".output" and with ".errors". `environment` is added to that
    /// of the test.
    ChildProcess(Words words, std::string outputs, const Environment& environment = {});
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    [[nodiscard]] pid_t pid() const { return process_; }
    /// The output so far.
    [[nodiscard]] std::string output() const;
    [[nodiscard]] std::string errors() const;
    /// The first line of its output, without the newline. If there is none in time, the test fails
    /// and the result is empty.
    [[nodiscard]] std::string firstLine() const;

    [[nodiscard]] bool runs();
    /// Waits for the end: the exit status, 128 and the number of the signal that ended it, or -1,
    /// which is a failure of the test, if it does not end in time.
    int wait();
    void send(int signal) const;

 private:
    [[nodiscard]] bool endsInTime();

    std::string name_;
    std::string outputs_;
    pid_t process_ = -1;
    std::optional<int> status_;
};

}  // namespace tarvin
