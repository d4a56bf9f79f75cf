#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

namespace tarvin {

/// The running program `tarvin`, without output.
class Program final {
 public:
    /// `dataHome` is its XDG_DATA_HOME; if empty, that of this process.
    explicit Program(const std::vector<std::string>& words, const std::string& dataHome = {});
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    ~Program();

    void kill() const;
    /// Waits for its end. Returns its exit status, or -1 if a signal ended it or it could not
    /// start.
    int wait();
    /// Whether it has ended, without waiting for it.
    [[nodiscard]] bool hasEnded() const;
    /// Waits for its end or for that time.
    void letRun(std::chrono::microseconds time) const;

 private:
    pid_t process_ = -1;
};

}  // namespace tarvin
