#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tarvin {

/// The result of a program that has ended.
struct ProgramResult {
    int status = -1;     ///< exit status; 128 and the number of the signal that ended it
    std::string output;  ///< its standard output
    std::string errors;  ///< its standard error
};

/// The environment in which a program is started.
struct ProgramSetting {
    std::string folder{};                              ///< current folder; empty: that of the test
    std::map<std::string, std::string> environment{};  ///< added to that of the test
    /// Standard input; -1: that of the test.
    int input = -1;
    /// Standard input is its controlling terminal, so Ctrl-C there interrupts it.
    bool ownsTerminal = false;
    /// Standard output and error; -1: pipes that the test reads.
    int output = -1;
    int errors = -1;
    /// Drops root's right to ignore permissions.
    bool obeysPermissions = false;
    /// Limits in bytes of the address space and of a thread's stack; 0: those of the test.
    std::uint64_t maxMemory = 0;
    std::uint64_t threadStack = 0;
    /// Limit in bytes of a file that it writes; 0: that of the test.
    std::uint64_t maxFileSize = 0;
};

/// The running program. After a minute it is killed and the test fails. Its data folder does not
/// exist unless the test sets one.
class ProgramRun final {
 public:
    using Words = std::vector<std::string>;

    /// The path of the program.
    static std::string program();

    explicit ProgramRun(const Words& arguments, const ProgramSetting& setting = {});
    ProgramRun(const ProgramRun&) = delete;
    ProgramRun& operator=(const ProgramRun&) = delete;
    ~ProgramRun();

    void send(int signal) const;
    /// Sends two different signals, which cannot be merged, and returns when the program has taken
    /// both from its queue.
    void sendTwo(int first, int second) const;
    /// Blocks until `text` is in its standard error, or the program has ended.
    void waitForError(const std::string& text);
    /// Returns when the program has ended.
    ProgramResult wait();

 private:
    using Condition = std::function<bool()>;

    void readUntil(const Condition& isEnough);
    void readSome(int& descriptor, std::string& into) const;

    pid_t process_ = -1;
    int output_ = -1;
    int errors_ = -1;
    ProgramResult result_;
    std::chrono::steady_clock::time_point deadline_;
};

/// Starts the program and waits for its end.
ProgramResult runTarvin(const ProgramRun::Words& arguments, const ProgramSetting& setting = {});

}  // namespace tarvin
