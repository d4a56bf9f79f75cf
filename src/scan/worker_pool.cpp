#include "scan/worker_pool.h"

#include "scan/inner_wait.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <new>
#include <thread>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

// About the queue depth of a solid-state disk: with fewer reads in flight it is not fully used.
constexpr unsigned maxReadsInFlight = 32;
// A server answers many calls as soon as one; more were not faster with 5 ms a call.
constexpr unsigned maxNetworkCallsInFlight = 64;
constexpr std::size_t filesAShareWithAWarmCache = 32;
// Threads beyond the width that may run in place of stuck ones.
constexpr unsigned maxStandIns = 64;

// A task that waited for less is as fast as one that did not wait.
constexpr std::chrono::milliseconds leastWait{1};

/// For what a task has waited, other than a CPU and other threads.
enum class Wait : std::uint8_t {
    none,
    device,
    time  ///< for most of its time, and not for a device: for a network
};

/// `lasted` is the time of the task without the waits for other threads.
Wait waitOf(const ThreadUse& before, const ThreadUse& after, std::chrono::nanoseconds lasted) {
    // What the queue of the CPUs took from this thread before its last task that may have waited.
    thread_local std::chrono::nanoseconds inQueueBefore{0};
    if (after.deviceReads != before.deviceReads) {
        return Wait::device;
    }
    const std::chrono::nanoseconds ran = after.ran - before.ran;
    const std::chrono::nanoseconds idle = lasted - ran;
    if (after.waits == before.waits || idle < leastWait || idle < ran) {
        return Wait::none;
    }
    const std::chrono::nanoseconds inQueue = timeInQueueOfThisThread();
    const std::chrono::nanoseconds waited =
        idle - (inQueue - std::exchange(inQueueBefore, inQueue));
    return waited >= leastWait && waited >= ran ? Wait::time : Wait::none;
}

/// Each at least as large as the one before.
WorkerPool::Limits inOrder(WorkerPool::Limits limits) {
    limits.cores = std::max(1U, limits.cores);
    limits.width = std::max(limits.cores, limits.width);
    limits.networkWidth = std::max(limits.width, limits.networkWidth);
    return limits;
}

// The pool whose task the thread is running.
thread_local const void* poolOfThisThread = nullptr;
// Whether the task that the thread is running came too late to help with a forEach().
thread_local bool cameTooLate = false;

}  // namespace

/// The data shared by the threads. Outlives the pool while an abandoned thread is inside a task.
class WorkerPool::Core final : public std::enable_shared_from_this<Core> {
 public:
    Core(Limits limits, Use measure) : limits_(limits), use_(measure), atOnce_(limits.cores) {}

    [[nodiscard]] ThreadUse use() const { return use_(); }

    void widen() {
        const std::lock_guard lock(mutex_);
        atOnce_ = limits_.networkWidth;
        startBeside(0);
    }

    void keepAlive(std::weak_ptr<void> owner) {
        const std::lock_guard lock(mutex_);
        owner_ = std::move(owner);
    }

    void enqueue(Task task, bool ahead) {
        bool started = false;
        {
            const std::lock_guard lock(mutex_);
            if (abandoned_) {
                return;
            }
            if (ahead) {
                queue_.push_front(std::move(task));
            } else {
                queue_.push_back(std::move(task));
            }
            // Compares with the queue because a worker that has just been woken still counts as
            // idle.
            started = queue_.size() > idle_ && startOne();
        }
        if (!started) {
            wake_.notify_one();
        }
    }

    bool runOneHere() {
        Task task;
        {
            const std::lock_guard lock(mutex_);
            if (!threads_.empty() || queue_.empty()) {
                return false;
            }
            task = std::move(queue_.front());
            queue_.pop_front();
        }
        task();
        return true;
    }

    void allowForStuck(unsigned tasks) {
        const std::lock_guard lock(mutex_);
        stuck_ = std::min(tasks, maxStandIns);
        for (unsigned more = stuck_; more > 0 && mayStart(); --more) {
            startOrWakeOne();
        }
    }

    /// A task waits for calls on other threads, so another task may run in its place.
    void beginWaiting() {
        const std::lock_guard lock(mutex_);
        --running_;
        if (mayStart()) {
            startOrWakeOne();
        }
    }

    void endWaiting() {
        const std::lock_guard lock(mutex_);
        ++running_;
    }

    bool endWithin(std::chrono::milliseconds patience) {
        while (runOneHere()) {
        }
        std::vector<std::thread> threads;
        {
            std::unique_lock lock(mutex_);
            if (!idleAgain_.wait_for(lock, patience,
                                     [this] { return queue_.empty() && insideTasks_ == 0; })) {
                return false;
            }
            ending_ = true;
            threads.swap(threads_);
        }
        join(std::move(threads));
        return true;
    }

    /// Runs all queued tasks, without a time limit, and ends the threads.
    void end() {
        while (runOneHere()) {
        }
        std::vector<std::thread> threads;
        {
            const std::lock_guard lock(mutex_);
            ending_ = true;
            threads.swap(threads_);
        }
        join(std::move(threads));
    }

    void abandon() {
        std::deque<Task> dropped;
        const std::lock_guard lock(mutex_);
        abandoned_ = true;
        ending_ = true;
        dropped.swap(queue_);
        for (std::thread& thread : threads_) {
            thread.detach();
        }
        threads_.clear();
        wake_.notify_all();
    }

    [[nodiscard]] bool isAbandoned() {
        const std::lock_guard lock(mutex_);
        return abandoned_;
    }

    [[nodiscard]] const Limits& limits() const { return limits_; }
    [[nodiscard]] unsigned atOnce() const { return atOnce_; }

 private:
    void join(std::vector<std::thread> threads) {
        wake_.notify_all();
        for (std::thread& thread : threads) {
            if (thread.get_id() == std::this_thread::get_id()) {
                // The last task has released the owner of the pool.
                thread.detach();
            } else {
                thread.join();
            }
        }
    }

    [[nodiscard]] bool mayStart() const { return !queue_.empty() && running_ < atOnce_ + stuck_; }

    bool startOne() {
        if (threads_.size() >= atOnce_ + stuck_ || ending_) {
            return false;
        }
        try {
            threads_.reserve(threads_.size() + 1);
        } catch (const std::bad_alloc&) {
            return false;
        }
        std::thread thread = startThread([core = shared_from_this()] { core->work(); });
        if (!thread.joinable()) {
            return false;
        }
        threads_.push_back(std::move(thread));
        return true;
    }

    void startOrWakeOne() {
        if (idle_ > 0) {
            wake_.notify_one();
        } else {
            startOne();
        }
    }

    void work() {
        std::unique_lock lock(mutex_);
        poolOfThisThread = this;
        while (true) {
            ++idle_;
            wake_.wait(lock, [this] { return mayStart() || (ending_ && queue_.empty()); });
            --idle_;
            if (queue_.empty()) {
                return;
            }
            runNext(lock);
        }
    }

    void runNext(std::unique_lock<std::mutex>& lock) {
        Task task = std::move(queue_.front());
        queue_.pop_front();
        if (ending_ && queue_.empty()) {
            // The other workers will get no more tasks.
            wake_.notify_all();
        }
        ++running_;
        ++insideTasks_;
        std::shared_ptr<void> owner = owner_.lock();
        lock.unlock();
        cameTooLate = false;
        const ThreadUse before = use_();
        const auto innerBefore = InnerWait::ofThisThread();
        const auto begin = std::chrono::steady_clock::now();
        try {
            task();
            // NOLINTNEXTLINE(bugprone-empty-catch): handled elsewhere.
        } catch (const std::bad_alloc&) {
            // Tasks with a result report this themselves; help for a forEach() is optional.
        }
        task = nullptr;
        owner = nullptr;
        const auto lasted = std::chrono::steady_clock::now() - begin;
        const Wait wait =
            waitOf(before, use_(), lasted - (InnerWait::ofThisThread() - innerBefore));
        lock.lock();
        --running_;
        --insideTasks_;
        if (insideTasks_ == 0 && queue_.empty()) {
            idleAgain_.notify_all();
        }
        if (!cameTooLate) {
            adjust(wait);
        }
    }

    void adjust(Wait wait) {
        if (wait == Wait::none || (wait == Wait::device && atOnce_ > limits_.width)) {
            atOnce_ = std::max(limits_.cores, atOnce_ - 1);
            return;
        }
        // A server answers many calls as soon as one.
        atOnce_ = wait == Wait::time ? std::min(limits_.networkWidth, atOnce_ * 2)
                                     : std::min(limits_.width, atOnce_ + 1);
        // This thread will run the next one itself.
        startBeside(1);
    }

    /// Lets the queue run on as many other threads as are allowed beside those that run, and so
    /// many that are about to.
    void startBeside(std::size_t others) {
        for (std::size_t more = 1;
             more <= queue_.size() && running_ + others + more <= atOnce_ + stuck_; ++more) {
            startOrWakeOne();
        }
    }

    const Limits limits_;
    const Use use_;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::condition_variable idleAgain_;
    std::deque<Task> queue_;            // guarded by mutex_
    std::vector<std::thread> threads_;  // guarded by mutex_
    std::weak_ptr<void> owner_;         // guarded by mutex_
    unsigned running_ = 0;              // guarded by mutex_; tasks that count towards the limit
    unsigned insideTasks_ = 0;          // guarded by mutex_; also those that wait in forEach()
    unsigned idle_ = 0;                 // guarded by mutex_
    std::atomic<unsigned> atOnce_ = 1;  // changed with mutex_ held
    unsigned stuck_ = 0;                // guarded by mutex_
    bool ending_ = false;               // guarded by mutex_
    bool abandoned_ = false;            // guarded by mutex_
};

/// One forEach(): hands out the indexes one by one; the caller waits for those handed out.
class WorkerPool::Fork final {
 public:
    Fork(std::size_t count, const std::function<void(std::size_t)>& body)
        : count_(count), body_(&body) {}

    /// Makes one call. Returns false if none is left.
    bool takePart() {
        const std::size_t index = next_++;
        if (index >= count_) {
            return false;
        }
        try {
            (*body_)(index);
        } catch (const std::bad_alloc&) {
            outOfMemory_ = true;
        }
        if (++done_ == count_) {
            done_.notify_all();
        }
        return true;
    }

    [[nodiscard]] bool isDone() const { return done_ == count_; }

    void wait() const {
        for (std::size_t done = done_; done != count_; done = done_) {
            done_.wait(done);
        }
    }

    [[nodiscard]] bool ranOutOfMemory() const { return outOfMemory_; }

 private:
    const std::size_t count_;
    // Outlives the calls, because wait() does not return before the last one.
    const std::function<void(std::size_t)>* body_;
    std::atomic<std::size_t> next_{0};
    std::atomic<std::size_t> done_{0};
    std::atomic<bool> outOfMemory_{false};
};

WorkerPool::WorkerPool(Limits limits, Use measure)
    : core_(std::make_shared<Core>(inOrder(limits), measure)) {}

void WorkerPool::widen() {
    core_->widen();
}

ThreadUse WorkerPool::use() const {
    return core_->use();
}

WorkerPool::Limits WorkerPool::limitsOfThisMachine() {
    const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
    return {cores, std::max(cores, maxReadsInFlight), maxNetworkCallsInFlight};
}

WorkerPool::~WorkerPool() {
    core_->end();
}

void WorkerPool::keepAlive(std::weak_ptr<void> owner) {
    core_->keepAlive(std::move(owner));
}

void WorkerPool::submit(Task task) {
    core_->enqueue(std::move(task), false);
}

bool WorkerPool::runOneHere() {
    return core_->runOneHere();
}

void WorkerPool::allowForStuck(unsigned tasks) {
    core_->allowForStuck(tasks);
}

bool WorkerPool::endWithin(std::chrono::milliseconds patience) {
    return core_->endWithin(patience);
}

void WorkerPool::abandon() {
    core_->abandon();
}

bool WorkerPool::isAbandoned() const {
    return core_->isAbandoned();
}

std::size_t WorkerPool::filesAShare() const {
    return std::max<std::size_t>(1, filesAShareWithAWarmCache * cores() / core_->atOnce());
}

unsigned WorkerPool::cores() const {
    return core_->limits().cores;
}

unsigned WorkerPool::width() const {
    return core_->limits().width;
}

unsigned WorkerPool::networkWidth() const {
    return core_->limits().networkWidth;
}

void WorkerPool::forEach(std::size_t count, const std::function<void(std::size_t)>& body) {
    if (count == 0) {
        return;
    }
    const auto fork = std::make_shared<Fork>(count, body);
    const std::size_t helpers = std::min<std::size_t>(count, width()) - 1;
    for (std::size_t helper = 0; helper < helpers; ++helper) {
        help(fork);
    }
    while (fork->takePart()) {
    }
    if (!fork->isDone()) {
        const bool isTask = poolOfThisThread == core_.get();
        if (isTask) {
            core_->beginWaiting();
        }
        {
            const InnerWait wait;
            fork->wait();
        }
        if (isTask) {
            core_->endWaiting();
        }
    }
    if (fork->ranOutOfMemory()) {
        throw std::bad_alloc();
    }
}

/// One call for each task, so that the number of tasks at once can follow what the calls read.
void WorkerPool::help(const std::shared_ptr<Fork>& fork) {
    core_->enqueue(
        [this, fork] {
            cameTooLate = !fork->takePart();
            if (!cameTooLate) {
                help(fork);
            }
        },
        true);
}

}  // namespace tarvin
