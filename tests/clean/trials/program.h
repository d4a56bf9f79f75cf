#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

namespace tarvin {

/// The finished program for the terminal, on its way and silent.
class Program final {
 public:
    /// `dataHome`: its XDG_DATA_HOME; empty for this process's.
    explicit Program(const std::vector<std::string>& words, const std::string& dataHome = {});
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    void kill() const;
    /// Returns once it has ended: its exit status, or -1 if a signal ended it or it could not
    /// start.
    int wait();
    /// Whether it has ended, without waiting for it.
    [[nodiscard]] bool hasEnded() const;
    /// Returns once it has ended, or after that time.
    void letRun(std::chrono::microseconds time) const;

 private:
    pid_t process_ = -1;
};

}  // namespace tarvin
