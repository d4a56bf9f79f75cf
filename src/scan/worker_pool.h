#pragma once

#include "platform/thread_usage.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace tarvin {

/// The few threads that read for a scan, shared by all its tasks.
///
/// As many tasks run at once as there are cores while everything comes from memory. A task that had
/// to fetch from a device spent its time waiting, so each such task lets one more run beside it, up
/// to the pool's width, and each that had not takes one away: the number of reads in flight follows
/// the device, and a warm cache is not thrashed by idle threads.
///
/// A task may hang in a call that does not return (a dead network mount). allowForStuck() lets
/// others run in its place; abandon() leaves it behind.
///
/// All functions may be called on any thread, from inside a task too, except where they say
/// otherwise.
class WorkerPool final {
 public:
    using Task = std::function<void()>;

    /// How many files are worth a share of their own: with fewer, sharing them out costs as much as
    /// reading them.
    static constexpr std::size_t filesAShare = 32;

    /// How many tasks run at once: at least `cores`, at most `width`. Threads are started when the
    /// first task wants them. Where the system gives fewer threads, there are fewer; where it gives
    /// none, tasks wait for runOneHere().
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
    /// Runs what is still queued, then ends the threads; unless they were abandoned.
    ~WorkerPool();

    /// What tasks use is kept alive by `owner`: each thread holds it while it runs a task. Before
    /// the first task.
    void keepAlive(std::weak_ptr<void> owner);

    /// Queues a task behind all others.
    void submit(Task task);

    /// Calls `body(0)` to `body(count - 1)`, in any order and up to width() at once, on this thread
    /// and on free workers, ahead of queued tasks. Returns when all calls have. Never waits for a
    /// worker that has not begun, so it may be used inside a task. Throws std::bad_alloc if a call
    /// did; the other calls have been made then, too.
    void forEach(std::size_t count, const std::function<void(std::size_t)>& body);

    /// Runs the next task on this thread if the system gave the pool no thread of its own; false if
    /// there is nothing to do or a worker will do it. For whoever waits for a task.
    bool runOneHere();

    /// That many running tasks are stuck in a call: so many more may run beside them.
    void allowForStuck(unsigned tasks);

    /// Runs what is queued, waits until no task runs and ends the threads. False if tasks still run
    /// after `patience`; the pool goes on then. Not inside a task.
    [[nodiscard]] bool endWithin(std::chrono::milliseconds patience);
    /// Drops what is queued and leaves the tasks that run to themselves; their threads end with
    /// them. What they use must be kept alive by keepAlive().
    void abandon();
    [[nodiscard]] bool isAbandoned() const;

    [[nodiscard]] unsigned cores() const;
    /// The most that ever runs at once, not counting threads that wait in forEach() and stuck
    /// tasks.
    [[nodiscard]] unsigned width() const;

 private:
    class Core;
    class Fork;

    void help(const std::shared_ptr<Fork>& fork);

    // Shared with the threads, so that one that was abandoned finds it when its call returns.
    const std::shared_ptr<Core> core_;
};

}  // namespace tarvin
