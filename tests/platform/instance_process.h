#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tarvin {

/// A process that runs running_instance.cpp, killed on destruction. Each wait has a deadline, after
/// which the test fails.
class InstanceProcess final {
 public:
    /// The instance registers in the first usable folder. On return the process runs, but has not
    /// joined yet.
    explicit InstanceProcess(const std::vector<std::string>& folders);
    InstanceProcess(const InstanceProcess&) = delete;
    InstanceProcess& operator=(const InstanceProcess&) = delete;
    ~InstanceProcess();

    /// Sends a command and returns immediately.
    void tell(const std::string& command) const;
    /// The next line of output; empty if the process has ended.
    std::string nextLine();
    /// Sends a command and returns the next line.
    std::string ask(const std::string& command) {
        tell(command);
        return nextLine();
    }
    /// All lines up to "quit" or the end of the process.
    std::vector<std::string> linesToTheEnd();

    /// Closes its input, so that it exits.
    void endInput();
    /// Waits for the exit status, 128 plus the number of the signal that killed it, or -1.
    int wait();
    void send(int signal) const;

 private:
    pid_t process_ = -1;
    int input_ = -1;   // the instance's standard input
    int output_ = -1;  // the instance's standard output
    std::string text_;
};

}  // namespace tarvin
