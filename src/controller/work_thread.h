#pragma once

#include <functional>
#include <thread>

namespace tarvin {

/// A thread for work that the window does not wait for, one piece at a time. Used by the thread
/// that owns it; what the work uses must outlive this object.
class WorkThread final {
 public:
    WorkThread() = default;
    WorkThread(const WorkThread&) = delete;
    WorkThread& operator=(const WorkThread&) = delete;
    /// Waits for the work; who does not want to wait long ends the work before.
    ~WorkThread() { wait(); }

    /// Does `work` and then calls `over`, both on the thread; the work before it is waited for.
    /// Where the system has no thread to give, both are called here, before this returns.
    void start(std::function<void()> work, std::function<void()> over);
    /// Waits until nothing runs.
    void wait();

 private:
    std::thread thread_;
};

}  // namespace tarvin
