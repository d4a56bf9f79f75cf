#pragma once

#include "platform/thread_usage.h"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace tarvin {

/// The few threads that read for a scan, shared by all its tasks.
///
/// As many tasks run at once as there are cores while everything comes from memory. A task that had
/// to fetch from a device spent its time waiting, so each such task lets one more run beside it, up
/// to the pool's width, and each that had not takes one away: the number of reads in flight follows
/// the device, and a warm cache is not thrashed by idle threads.
///
/// All functions may be called on any thread, from inside a task too.
class WorkerPool final {
 public:
    using Task = std::function<void()>;

    /// How many files are worth a share of their own: with fewer, sharing them out costs as much as
    /// reading them.
    static constexpr std::size_t filesAShare = 32;

    /// How many tasks run at once: at least `cores`, at most `width`. Threads are started when the
    /// first task wants them.
    struct Limits {
        unsigned cores = 1;
        unsigned width = 1;
    };

    /// How much the calling thread has fetched from devices so far.
    using DeviceReads = std::uint64_t (*)();

    explicit WorkerPool(Limits limits, DeviceReads deviceReads = deviceReadsOfThisThread);
    /// The machine's cores, and enough threads to keep a fast device busy.
    static Limits limitsOfThisMachine();

    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;
    /// Runs what is still queued, then ends the threads.
    ~WorkerPool();

    /// Queues a task behind all others.
    void submit(Task task);

    /// Calls `body(0)` to `body(count - 1)`, in any order and up to width() at once, on this thread
    /// and on free workers, ahead of queued tasks. Returns when all calls have. Never waits for a
    /// worker that has not begun, so it may be used inside a task.
    void forEach(std::size_t count, const std::function<void(std::size_t)>& body);

    [[nodiscard]] unsigned cores() const { return limits_.cores; }
    /// The most that ever runs at once, not counting threads that wait in forEach().
    [[nodiscard]] unsigned width() const { return limits_.width; }

 private:
    class Fork;

    void enqueue(Task task, bool ahead);
    void help(const std::shared_ptr<Fork>& fork);
    void work();
    void adjust(bool fetchedFromDevice);
    [[nodiscard]] bool mayStart() const { return !queue_.empty() && running_ < atOnce_; }

    const Limits limits_;
    const DeviceReads deviceReads_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<Task> queue_;            // guarded by mutex_
    std::vector<std::thread> threads_;  // guarded by mutex_
    unsigned running_ = 0;              // guarded by mutex_
    unsigned idle_ = 0;                 // guarded by mutex_
    unsigned atOnce_ = 1;               // guarded by mutex_
    bool ending_ = false;               // guarded by mutex_
};

}  // namespace tarvin
