#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tarvin {

/// A process that is one copy of a program (see running_copy.cpp), started by a test and ended with
/// the object at the latest. What takes longer than the tests' patience fails the test.
class CopyProcess final {
 public:
    /// The copy meets others in the first of the folders that can be used. It has started when this
    /// returns, and has not joined yet.
    explicit CopyProcess(const std::vector<std::string>& folders);
    CopyProcess(const CopyProcess&) = delete;
    CopyProcess& operator=(const CopyProcess&) = delete;
    ~CopyProcess();

    /// Has the copy do something, and does not wait for it.
    void tell(const std::string& command) const;
    /// The next line that the copy says; empty if it has ended.
    std::string nextLine();
    /// Has the copy do something and answers the next line.
    std::string ask(const std::string& command) {
        tell(command);
        return nextLine();
    }
    /// All lines that the copy still says; returns when it has said "quit" or has ended.
    std::vector<std::string> linesToTheEnd();

    /// Lets the copy end by itself.
    void endInput();
    /// Waits for the end: the exit status, 128 and the number of the signal that ended it, or -1.
    int wait();
    void send(int signal) const;

 private:
    pid_t process_ = -1;
    int input_ = -1;   // the copy's standard input
    int output_ = -1;  // the copy's standard output
    std::string text_;
};

}  // namespace tarvin
