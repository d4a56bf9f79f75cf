#pragma once

#include <chrono>

namespace tarvin {

/// While one exists, the calling thread waits for other threads of the program, or for the user,
/// and not for a file system. WorkerPool must know these waits: a thread that waits for a free
/// buffer is no reason to start more threads, which would wait for it as well. One thread; must not
/// be nested.
class InnerWait final {
 public:
    InnerWait() : begin_(std::chrono::steady_clock::now()) {}
    InnerWait(const InnerWait&) = delete;
    InnerWait& operator=(const InnerWait&) = delete;
    ~InnerWait();

    /// How long the ended waits of the calling thread have lasted since it began.
    [[nodiscard]] static std::chrono::nanoseconds ofThisThread();

 private:
    const std::chrono::steady_clock::time_point begin_;
};

}  // namespace tarvin
