#include "controller/exception_changes.h"

#include "controller/left_threads.h"
#include "platform/threads.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <iterator>
#include <mutex>
#include <string_view>
#include <thread>
#include <unordered_set>
#include <utility>

namespace tarvin {

namespace {

/// How long the end of the program waits for the file.
constexpr std::chrono::seconds writingPatience{2};

}  // namespace

/// The state shared by the thread and its owner.
class ExceptionChanges::Shared final {
 public:
    struct Outcome {
        std::unordered_set<std::uint64_t> failed;  // the numbers of removals
        std::optional<StoreError> failure;
    };

    Shared(const ExceptionFile& list, ExceptionChanges* owner)
        : folder_(list.folder()), owner_(owner), list_(&list) {}

    /// The work of the thread. Changes of one kind that wait together are written together.
    void run() {
        for (;;) {
            const std::vector<Change> batch = next();
            if (batch.empty()) {
                return;
            }
            if (std::optional<StoreError> failure =
                    folder_ ? write(*folder_, batch) : std::nullopt) {
                note(batch, std::move(*failure));
            }
        }
    }

    // On the main thread.

    /// Returns whether a thread must be started.
    [[nodiscard]] bool add(Change change) {
        const std::lock_guard lock(mutex_);
        waiting_.push_back(std::move(change));
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
        isLeft_ = !over_.wait_for(lock, writingPatience, [this] { return !isRunning_; });
        leftThreads += isLeft_ ? 1 : 0;
        const std::lock_guard ofList(listMutex_);
        if (isLeft_) {
            lastList_ = list_->exceptionArrayData();
        }
        list_ = nullptr;
    }

    /// To be held while the list in memory is changed.
    [[nodiscard]] std::unique_lock<std::mutex> lockList() { return std::unique_lock(listMutex_); }

 private:
    /// What to write next. If there is nothing, the thread is over and uses only this object.
    [[nodiscard]] std::vector<Change> next() {
        const std::lock_guard lock(mutex_);
        std::vector<Change> batch;
        while (!waiting_.empty() &&
               (batch.empty() || waiting_.front().kind == batch.front().kind)) {
            batch.push_back(std::move(waiting_.front()));
            waiting_.pop_front();
        }
        if (batch.empty()) {
            isRunning_ = false;
            leftThreads -= isLeft_ ? 1 : 0;
            if (owner_ != nullptr) {
                QMetaObject::invokeMethod(owner_, "over", Qt::QueuedConnection);
            }
            over_.notify_all();
        }
        return batch;
    }

    /// Returns only failures of removals.
    std::optional<StoreError> write(const std::string& folder, const std::vector<Change>& batch) {
        std::vector<std::string> paths;
        for (const Change& change : batch) {
            paths.insert(paths.end(), change.paths.begin(), change.paths.end());
        }
        switch (batch.front().kind) {
            case Kind::addition:
                writeAdded(folder, paths);
                return std::nullopt;
            case Kind::removal:
                return writeWithout(folder, paths);
            case Kind::clearing:
                unsaved_.clear();
                removed_.clear();
                static_cast<void>(clearStoredExceptions(folder));
                break;
        }
        return std::nullopt;
    }

    void writeAdded(const std::string& folder, const std::vector<std::string>& paths) {
        unsaved_.insert(unsaved_.end(), paths.begin(), paths.end());
        for (const std::string& path : paths) {
            removed_.erase(path);
        }
        if (!addStoredExceptions(folder, unsaved_, [this] { return allButRemoved(); }).failure) {
            unsaved_.clear();
        }
    }

    /// The list in memory without what was removed from the file.
    [[nodiscard]] std::vector<std::string> allButRemoved() {
        std::vector<std::string> all;
        {
            const std::lock_guard lock(listMutex_);
            all = list_ != nullptr ? list_->exceptionArrayData() : lastList_;
        }
        std::erase_if(all, [this](const std::string& path) { return removed_.contains(path); });
        return all;
    }

    std::optional<StoreError> writeWithout(const std::string& folder,
                                           const std::vector<std::string>& paths) {
        if (std::optional<StoreError> failure = removeStoredExceptions(folder, paths)) {
            return failure;
        }
        removed_.insert(paths.begin(), paths.end());
        std::erase_if(unsaved_,
                      [this](const std::string& path) { return removed_.contains(path); });
        return std::nullopt;
    }

    /// Also gives up the removals that wait.
    void note(const std::vector<Change>& removals, StoreError failure) {
        const std::lock_guard lock(mutex_);
        for (const Change& change : removals) {
            outcome_.failed.insert(change.number);
        }
        std::erase_if(waiting_, [this](const Change& change) {
            const bool isRemoval = change.kind == Kind::removal;
            if (isRemoval) {
                outcome_.failed.insert(change.number);
            }
            return isRemoval;
        });
        outcome_.failure = std::move(failure);
    }

    const std::optional<std::string> folder_;
    // Used only by the one thread that runs.
    std::vector<std::string> unsaved_;         // added, but not written yet
    std::unordered_set<std::string> removed_;  // which lists in memory may still have
    std::mutex mutex_;                         // to be locked before listMutex_
    std::condition_variable over_;
    ExceptionChanges* owner_;     // guarded by mutex_
    std::deque<Change> waiting_;  // guarded by mutex_
    Outcome outcome_;             // guarded by mutex_
    bool isRunning_ = false;      // guarded by mutex_
    bool isLeft_ = false;         // guarded by mutex_
    // Not mutex_, which is held for moments only: the list may be long.
    std::mutex listMutex_;
    const ExceptionFile* list_;          // guarded by listMutex_; none once the owner is gone
    std::vector<std::string> lastList_;  // guarded by listMutex_
};

ExceptionChanges::ExceptionChanges(ExceptionFile& list)
    : list_(list), shared_(std::make_shared<Shared>(list, this)) {}

ExceptionChanges::~ExceptionChanges() {
    shared_->leave();
}

void ExceptionChanges::add(const std::vector<std::string>& paths) {
    if (!paths.empty()) {
        {
            const auto lock = shared_->lockList();
            list_.include(paths);
        }
        begin({++changes_, Kind::addition, paths});
    }
}

void ExceptionChanges::remove(const std::vector<std::string>& paths) {
    if (!paths.empty()) {
        begin({++changes_, Kind::removal, paths});
    }
}

void ExceptionChanges::removeAll() {
    {
        const auto lock = shared_->lockList();
        list_.forgetAll();
    }
    pending_.clear();
    begin({++changes_, Kind::clearing, {}});
}

void ExceptionChanges::begin(Change change) {
    if (change.kind != Kind::clearing) {
        pending_.push_back(change);
    }
    if (!shared_->add(std::move(change))) {
        return;
    }
    if (std::thread thread = startThread([shared = shared_] { shared->run(); });
        thread.joinable()) {
        thread.detach();
    } else {
        shared_->run();
    }
}

bool ExceptionChanges::isOver() const {
    return shared_->isOver();
}

void ExceptionChanges::wait() {
    shared_->wait();
    settle();
}

std::optional<StoreError> ExceptionChanges::take() {
    settle();
    return std::exchange(failure_, std::nullopt);
}

/// A path that was added again after its removal stays.
void ExceptionChanges::settle() {
    Shared::Outcome outcome = shared_->take();
    bool wereRemoved = false;
    const auto lock = shared_->lockList();
    for (const Change& change : std::exchange(pending_, {})) {
        if (change.kind == Kind::removal && !outcome.failed.contains(change.number)) {
            list_.forget(change.paths);
            wereRemoved = true;
        } else if (change.kind == Kind::addition && wereRemoved) {
            list_.include(change.paths);
        }
    }
    if (outcome.failure) {
        failure_ = std::move(outcome.failure);
    }
}

std::vector<std::string> ExceptionChanges::remaining() const {
    std::unordered_set<std::string_view> removed;
    for (const Change& change : pending_) {
        for (const std::string& path : change.paths) {
            if (change.kind == Kind::removal) {
                removed.insert(path);
            } else {
                removed.erase(path);
            }
        }
    }
    std::vector<std::string> paths;
    std::copy_if(list_.exceptionArrayData().begin(), list_.exceptionArrayData().end(),
                 std::back_inserter(paths),
                 [&](const std::string& path) { return !removed.contains(path); });
    return paths;
}

}  // namespace tarvin
