#pragma once

#include "platform/threads.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace tarvin {

/// The threads that read for a scan, shared by all its tasks.
///
/// While all data comes from the page cache, as many tasks run at once as there are cores. A task
/// that had to read from a device lets one more task run, one that waited for most of its time (a
/// network does not count as a device) twice as many, each up to a limit of its own, and each other
/// task one less. So the number of calls in flight follows the device, and with a warm cache there
/// are no superfluous threads.
///
/// A task may hang in a call that does not return (a dead network mount). allowForStuck() lets
/// others run in its place; abandon() leaves it behind.
///
/// Any thread, also inside a task, unless a function says otherwise.
class WorkerPool final {
 public:
    using Task = std::function<void()>;

    /// How many tasks run at once: at least `cores`, at most `width`, and at most `networkWidth`
    /// while they wait for a network. Threads are started on demand. If the system gives fewer
    /// threads, fewer tasks run; if it gives none, tasks wait for runOneHere().
    struct Limits {
        unsigned cores = 1;
        unsigned width = 1;
        unsigned networkWidth = 0;  ///< not less than `width` is used
    };

    /// Returns what the calling thread has used so far.
    using Use = ThreadUse (*)();

    explicit WorkerPool(Limits limits, Use measure = useOfThisThread);
    /// The number of cores, and enough threads to keep a fast device or a network busy.
    static Limits limitsOfThisMachine();

    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;
    /// Runs the queued tasks, then ends the threads, unless they were abandoned.
    ~WorkerPool();

    /// Each thread holds `owner` while it runs a task, to keep what the task uses alive. To be
    /// called before the first task.
    void keepAlive(std::weak_ptr<void> owner);

    /// Queues a task behind all others.
    void submit(Task task);

    /// Calls `body(0)` to `body(count - 1)`, in any order and up to width() at once, on this thread
    /// and on free workers, ahead of queued tasks. Blocks until all calls have returned. May be
    /// used inside a task: waits only for calls that have begun. Throws std::bad_alloc if a call
    /// did, after all other calls have been made.
    void forEach(std::size_t count, const std::function<void(std::size_t)>& body);

    /// Runs the next task on this thread if the system gave the pool no thread. Returns false if
    /// the queue is empty or the pool has a thread. For threads that wait for a task.
    bool runOneHere();

    /// Reports that calls wait for a network: as many tasks run at once as are allowed, until some
    /// do not wait. For a task that will make many such calls before it ends.
    void widen();

    /// Reports how many running tasks are stuck in a call: as many others may run in their place.
    void allowForStuck(unsigned tasks);

    /// Runs the queued tasks, waits until no task runs and ends the threads. Returns false if tasks
    /// still run after `patience`; the pool then continues. Not inside a task.
    [[nodiscard]] bool endWithin(std::chrono::milliseconds patience);
    /// Drops the queued tasks and detaches the threads, which end after their current tasks. What
    /// these use must be kept alive by keepAlive().
    void abandon();
    [[nodiscard]] bool isAbandoned() const;

    /// Files per share when work is split. With a warm cache 32, because handing out fewer costs as
    /// much as reading them; fewer while tasks wait, so that more of them wait at once.
    [[nodiscard]] std::size_t filesAShare() const;

    /// What the calling thread has used so far.
    [[nodiscard]] ThreadUse use() const;
    [[nodiscard]] unsigned cores() const;
    /// The maximum number of tasks at once, not counting stuck tasks and those that wait in
    /// forEach().
    [[nodiscard]] unsigned width() const;
    /// The same while they wait for a network.
    [[nodiscard]] unsigned networkWidth() const;

 private:
    class Core;
    class Fork;

    void help(const std::shared_ptr<Fork>& fork);

    // Shared with the threads, so that it still exists when the call of an abandoned one returns.
    const std::shared_ptr<Core> core_;
};

}  // namespace tarvin
