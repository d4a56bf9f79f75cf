#pragma once

#include <functional>
#include <thread>

namespace tarvin {

/// A background thread for one work item at a time. Only the owner's thread may use it; the objects
/// that the work uses must outlive it.
class WorkThread final {
 public:
    WorkThread() = default;
    WorkThread(const WorkThread&) = delete;
    WorkThread& operator=(const WorkThread&) = delete;
    /// Waits for the work, so stop long work before.
    ~WorkThread() { wait(); }

    /// Waits for the previous work, then calls `work` and `over` on the thread. If the system
    /// cannot create a thread, both are called before this returns.
    void start(std::function<void()> work, std::function<void()> over);
    /// Blocks until nothing runs.
    void wait();

 private:
    std::thread thread_;
};

}  // namespace tarvin
