#include "scan/worker_pool.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace tarvin {

namespace {

// Beyond this the queue of a solid-state disk is full; below it, many small reads wait in line.
constexpr unsigned mostReadsInFlight = 32;

}  // namespace

/// One forEach: indexes are handed out one by one, and the caller waits for those handed out.
class WorkerPool::Fork final {
 public:
    Fork(std::size_t count, const std::function<void(std::size_t)>& body)
        : count_(count), body_(&body) {}

    /// Makes one call; false if there is none left to make.
    bool takePart() {
        const std::size_t index = next_++;
        if (index >= count_) {
            return false;
        }
        (*body_)(index);
        if (++done_ == count_) {
            done_.notify_all();
        }
        return true;
    }

    void wait() const {
        for (std::size_t done = done_; done != count_; done = done_) {
            done_.wait(done);
        }
    }

 private:
    const std::size_t count_;
    // Outlives the calls, because wait() does not return before the last of them.
    const std::function<void(std::size_t)>* body_;
    std::atomic<std::size_t> next_{0};
    std::atomic<std::size_t> done_{0};
};

WorkerPool::WorkerPool(Limits limits, DeviceReads deviceReads)
    : limits_{std::max(1U, limits.cores), std::max({1U, limits.cores, limits.width})},
      deviceReads_(deviceReads),
      atOnce_(limits_.cores) {}

WorkerPool::Limits WorkerPool::limitsOfThisMachine() {
    const unsigned cores = std::max(1U, std::thread::hardware_concurrency());
    return {cores, std::max(cores, mostReadsInFlight)};
}

WorkerPool::~WorkerPool() {
    std::vector<std::thread> threads;
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
        threads.swap(threads_);
    }
    wake_.notify_all();
    for (std::thread& thread : threads) {
        thread.join();
    }
}

void WorkerPool::submit(Task task) {
    enqueue(std::move(task), false);
}

void WorkerPool::forEach(std::size_t count, const std::function<void(std::size_t)>& body) {
    if (count == 0) {
        return;
    }
    const auto fork = std::make_shared<Fork>(count, body);
    const std::size_t helpers = std::min<std::size_t>(count, limits_.width) - 1;
    for (std::size_t helper = 0; helper < helpers; ++helper) {
        help(fork);
    }
    while (fork->takePart()) {
    }
    fork->wait();
}

/// One call a task, so that the number of tasks at once can follow what the calls fetch.
void WorkerPool::help(const std::shared_ptr<Fork>& fork) {
    enqueue(
        [this, fork] {
            if (fork->takePart()) {
                help(fork);
            }
        },
        true);
}

void WorkerPool::enqueue(Task task, bool ahead) {
    bool needsThread = false;
    {
        const std::lock_guard lock(mutex_);
        if (ahead) {
            queue_.push_front(std::move(task));
        } else {
            queue_.push_back(std::move(task));
        }
        // A worker that has been woken still counts as idle, so tasks are held against workers.
        needsThread = queue_.size() > idle_ && threads_.size() < atOnce_ && !ending_;
        if (needsThread) {
            threads_.emplace_back([this] { work(); });
        }
    }
    if (!needsThread) {
        wake_.notify_one();
    }
}

void WorkerPool::work() {
    std::unique_lock lock(mutex_);
    while (true) {
        ++idle_;
        wake_.wait(lock, [this] { return mayStart() || (ending_ && queue_.empty()); });
        --idle_;
        if (queue_.empty()) {
            return;
        }
        Task task = std::move(queue_.front());
        queue_.pop_front();
        if (ending_ && queue_.empty()) {
            // Nothing will be queued for those who still wait for their turn.
            wake_.notify_all();
        }
        ++running_;
        lock.unlock();
        const std::uint64_t before = deviceReads_();
        task();
        task = nullptr;
        const bool fetched = deviceReads_() != before;
        lock.lock();
        --running_;
        adjust(fetched);
    }
}

void WorkerPool::adjust(bool fetchedFromDevice) {
    if (!fetchedFromDevice) {
        atOnce_ = std::max(limits_.cores, atOnce_ - 1);
        return;
    }
    atOnce_ = std::min(limits_.width, atOnce_ + 1);
    if (queue_.empty() || running_ + 1 >= atOnce_) {
        return;
    }
    if (idle_ > 0) {
        wake_.notify_one();
    } else if (threads_.size() < atOnce_ && !ending_) {
        threads_.emplace_back([this] { work(); });
    }
}

}  // namespace tarvin
