#include "controller/exception_removal.h"

#include "controller/left_threads.h"
#include "platform/threads.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string_view>
#include <thread>
#include <unordered_set>
#include <utility>

namespace tarvin {

namespace {

/// How long the end of the program waits for the file.
constexpr std::chrono::seconds removalPatience{2};

}  // namespace

/// The state shared by the thread and its owner.
class ExceptionRemoval::Shared final {
 public:
    struct Outcome {
        std::vector<std::string> written;
        std::optional<StoreError> failure;
    };

    Shared(std::optional<std::string> folder, ExceptionRemoval* owner)
        : folder_(std::move(folder)), owner_(owner) {}

    /// The work of the thread. Paths that are added meanwhile are written together.
    void run() {
        for (;;) {
            const std::vector<std::string> paths = next();
            if (paths.empty()) {
                return;
            }
            note(paths, folder_ ? removeStoredExceptions(*folder_, paths) : std::nullopt);
        }
    }

    // On the main thread.

    /// Returns whether a thread must be started.
    [[nodiscard]] bool add(const std::vector<std::string>& paths) {
        const std::lock_guard lock(mutex_);
        waiting_.insert(waiting_.end(), paths.begin(), paths.end());
        return !std::exchange(isRunning_, true);
    }

    [[nodiscard]] bool isOver() {
        const std::lock_guard lock(mutex_);
        return !isRunning_;
    }

    void wait() {
        std::unique_lock lock(mutex_);
        over_.wait(lock, [this] { return !isRunning_; });
    }

    [[nodiscard]] Outcome take() {
        const std::lock_guard lock(mutex_);
        return std::exchange(outcome_, {});
    }

    /// Call when the owner is destroyed.
    void leave() {
        std::unique_lock lock(mutex_);
        owner_ = nullptr;
        isLeft_ = !over_.wait_for(lock, removalPatience, [this] { return !isRunning_; });
        leftThreads += isLeft_ ? 1 : 0;
    }

 private:
    /// The paths to write next. If there are none, the thread is over and uses only this object.
    [[nodiscard]] std::vector<std::string> next() {
        const std::lock_guard lock(mutex_);
        std::vector<std::string> paths = std::exchange(waiting_, {});
        if (paths.empty()) {
            isRunning_ = false;
            leftThreads -= isLeft_ ? 1 : 0;
            if (owner_ != nullptr) {
                QMetaObject::invokeMethod(owner_, "over", Qt::QueuedConnection);
            }
            over_.notify_all();
        }
        return paths;
    }

    void note(const std::vector<std::string>& paths, std::optional<StoreError> failure) {
        const std::lock_guard lock(mutex_);
        if (failure) {
            outcome_.failure = std::move(failure);
            waiting_.clear();
            return;
        }
        outcome_.written.insert(outcome_.written.end(), paths.begin(), paths.end());
    }

    const std::optional<std::string> folder_;
    std::mutex mutex_;
    std::condition_variable over_;
    ExceptionRemoval* owner_;           // guarded by mutex_
    std::vector<std::string> waiting_;  // guarded by mutex_
    Outcome outcome_;                   // guarded by mutex_
    bool isRunning_ = false;            // guarded by mutex_
    bool isLeft_ = false;               // guarded by mutex_
};

ExceptionRemoval::ExceptionRemoval(ExceptionFile& list)
    : list_(list), shared_(std::make_shared<Shared>(list.folder(), this)) {}

ExceptionRemoval::~ExceptionRemoval() {
    shared_->leave();
}

void ExceptionRemoval::start(const std::vector<std::string>& paths) {
    if (paths.empty()) {
        return;
    }
    removed_.insert(removed_.end(), paths.begin(), paths.end());
    if (!shared_->add(paths)) {
        return;
    }
    if (std::thread thread = startThread([shared = shared_] { shared->run(); });
        thread.joinable()) {
        thread.detach();
    } else {
        shared_->run();
    }
}

bool ExceptionRemoval::isOver() const {
    return shared_->isOver();
}

void ExceptionRemoval::wait() {
    shared_->wait();
    settle();
}

std::optional<StoreError> ExceptionRemoval::take() {
    settle();
    return std::exchange(failure_, std::nullopt);
}

void ExceptionRemoval::settle() {
    Shared::Outcome outcome = shared_->take();
    list_.forget(outcome.written);
    removed_.clear();
    if (outcome.failure) {
        failure_ = std::move(outcome.failure);
    }
}

std::vector<std::string> ExceptionRemoval::remaining() const {
    const std::unordered_set<std::string_view> removed(removed_.begin(), removed_.end());
    std::vector<std::string> paths;
    std::copy_if(list_.exceptionArrayData().begin(), list_.exceptionArrayData().end(),
                 std::back_inserter(paths),
                 [&](const std::string& path) { return !removed.contains(path); });
    return paths;
}

}  // namespace tarvin
