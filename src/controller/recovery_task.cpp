#include "controller/recovery_task.h"

#include "clean/recovery.h"
#include "controller/left_threads.h"
#include "platform/threads.h"
#include "store/data_file.h"

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <thread>

namespace tarvin {

namespace {

/// How long to wait for a drive that does not respond. The recovery is repeated at the next start.
constexpr std::chrono::seconds patienceAtTheEnd{2};

}  // namespace

/// The state shared by the thread and the task; each owns a reference.
class RecoveryTask::Shared final {
 public:
    explicit Shared(RecoveryTask* task) : task_(task) {}

    /// Call last on the thread, when it uses only this object.
    void end() {
        const std::lock_guard lock(mutex_);
        isOver_ = true;
        leftThreads -= wasLeft_ ? 1 : 0;
        if (task_ != nullptr) {
            QMetaObject::invokeMethod(task_, "totalsSettled", Qt::QueuedConnection);
        }
        over_.notify_all();
    }

    /// Call when the task is destroyed.
    void leave() {
        std::unique_lock lock(mutex_);
        task_ = nullptr;
        wasLeft_ = !over_.wait_for(lock, patienceAtTheEnd, [this] { return isOver_; });
        leftThreads += wasLeft_ ? 1 : 0;
    }

 private:
    std::mutex mutex_;
    std::condition_variable over_;
    RecoveryTask* task_;    // guarded by mutex_
    bool isOver_ = false;   // guarded by mutex_
    bool wasLeft_ = false;  // guarded by mutex_
};

RecoveryTask::RecoveryTask(Platform& platform) {
    if (!hasJournal(platform)) {
        return;
    }
    auto shared = std::make_shared<Shared>(this);
    std::thread thread = startThread([&platform, shared] {
        {
            DataFile totals(platform.applicationSupportFolder());
            static_cast<void>(recoverAtStart(platform, totals));
        }
        shared->end();
    });
    if (thread.joinable()) {
        thread.detach();
        shared_ = std::move(shared);
    }
}

RecoveryTask::~RecoveryTask() {
    if (shared_) {
        shared_->leave();
    }
}

int RecoveryTask::leftBehind() {
    return leftThreads;
}

int RecoveryTask::endOfProcess(int status) {
    if (leftBehind() > 0) {
        std::fflush(nullptr);
        std::_Exit(status);
    }
    return status;
}

}  // namespace tarvin
