#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace tarvin {

/// What a program left behind when it ended.
struct ProgramResult {
    int status = -1;     ///< exit status; 128 and the number of the signal that ended it
    std::string output;  ///< from its standard output
    std::string errors;  ///< from its standard error
};

/// How a program is started, apart from its arguments.
struct ProgramSetting {
    std::string folder{};                              ///< its current folder; empty: the test's
    std::map<std::string, std::string> environment{};  ///< added to the test's own
    /// What its standard input is, if not the test's.
    int input = -1;
    /// Its standard input is a terminal, and its own: what Ctrl-C there does is meant for it.
    bool ownsTerminal = false;
    /// What its standard output and error are, if not pipes that the test reads.
    int output = -1;
    int errors = -1;
    /// Run by root, it may still read only what its permissions allow.
    bool obeysPermissions = false;
    /// Most bytes of address space and of a thread's stack; 0 for those of the test.
    std::uint64_t mostMemory = 0;
    std::uint64_t threadStack = 0;
    /// Most bytes of a file that it writes; 0 for those of the test.
    std::uint64_t largestFile = 0;
};

/// The finished program on its way. It must come to an end within a minute, or it is ended and the
/// test fails. Nothing of the person's own takes part: the application-support folder is an empty
/// one.
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
    /// Returns when `text` has come from its standard error, or the program has ended.
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
