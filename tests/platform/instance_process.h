#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tarvin {

/// A process that is one instance of a program (see running_instance.cpp), started by a test and
/// ended with the object at the latest. What takes longer than the tests' patience fails the test.
class InstanceProcess final {
 public:
    /// The instance meets others in the first of the folders that can be used. It has started when
    /// this returns, and has not joined yet.
    explicit InstanceProcess(const std::vector<std::string>& folders);
    InstanceProcess(const InstanceProcess&) = delete;
    InstanceProcess& operator=(const InstanceProcess&) = delete;
    ~InstanceProcess();

    /// Has the instance do something, and does not wait for it.
    void tell(const std::string& command) const;
    /// The next line that the instance says; empty if it has ended.
    std::string nextLine();
    /// Has the instance do something and answers the next line.
    std::string ask(const std::string& command) {
        tell(command);
        return nextLine();
    }
    /// All lines that the instance still says; returns when it has said "quit" or has ended.
    std::vector<std::string> linesToTheEnd();

    /// Lets the instance end by itself.
    void endInput();
    /// Waits for the end: the exit status, 128 and the number of the signal that ended it, or -1.
    int wait();
    void send(int signal) const;

 private:
    pid_t process_ = -1;
    int input_ = -1;   // the instance's standard input
    int output_ = -1;  // the instance's standard output
    std::string text_;
};

}  // namespace tarvin
