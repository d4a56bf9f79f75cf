#include "controller/presence_tester.h"

#include "controller/left_threads.h"
#include "platform/threads.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <span>
#include <thread>
#include <utility>

namespace tarvin {

namespace {

/// How long to wait for a drive that does not respond when the program ends.
constexpr std::chrono::seconds presencePatience{2};

/// Paths between two looks at the flag: few enough that news come at once.
constexpr std::size_t pathsAtOnce = 256;

using SteadyTime = std::chrono::steady_clock::time_point;

}  // namespace

/// The state shared by a thread and its owner.
class PresenceTester::Run final {
 public:
    explicit Run(std::vector<std::string> paths) : paths_(std::move(paths)) {}

    /// The work of the thread.
    void test(Platform& platform) {
        const ExceptionPresence presence(platform);
        for (std::size_t first = 0; first < paths_.size() && !stopped_; first += pathsAtOnce) {
            const std::span<const std::string> rest = std::span(paths_).subspan(first);
            const std::vector<Presence> found =
                presence.of(rest.first(std::min(pathsAtOnce, rest.size())));
            const std::lock_guard lock(mutex_);
            known_.insert(known_.end(), found.begin(), found.end());
        }
    }

    /// Call last on the thread, when it uses only this object.
    void end() {
        const std::lock_guard lock(mutex_);
        isOver_ = true;
        leftThreads -= isLeft_ ? 1 : 0;
        over_.notify_all();
    }

    void stop() { stopped_ = true; }

    News take() {
        const std::lock_guard lock(mutex_);
        News news{taken_, std::exchange(known_, {})};
        taken_ += news.presences.size();
        return news;
    }

    [[nodiscard]] bool isOver() {
        const std::lock_guard lock(mutex_);
        return isOver_ && known_.empty();
    }

    void leaveAfter(SteadyTime deadline) {
        std::unique_lock lock(mutex_);
        isLeft_ = !over_.wait_until(lock, deadline, [this] { return isOver_; });
        leftThreads += isLeft_ ? 1 : 0;
    }

 private:
    const std::vector<std::string> paths_;
    std::atomic<bool> stopped_{false};
    std::mutex mutex_;
    std::condition_variable over_;
    std::vector<Presence> known_;  // guarded by mutex_
    std::size_t taken_ = 0;        // guarded by mutex_
    bool isOver_ = false;          // guarded by mutex_
    bool isLeft_ = false;          // guarded by mutex_
};

PresenceTester::~PresenceTester() {
    stop();
    const SteadyTime deadline = std::chrono::steady_clock::now() + presencePatience;
    for (const std::shared_ptr<Run>& run : stopped_) {
        run->leaveAfter(deadline);
    }
}

void PresenceTester::start(std::vector<std::string> paths) {
    stop();
    run_ = std::make_shared<Run>(std::move(paths));
    std::thread thread = startThread([&platform = platform_, run = run_] {
        run->test(platform);
        run->end();
    });
    if (thread.joinable()) {
        thread.detach();
    } else {
        run_->end();  // everything stays unknown
    }
}

void PresenceTester::stop() {
    std::erase_if(stopped_, [](const auto& run) {
        static_cast<void>(run->take());
        return run->isOver();
    });
    if (run_ != nullptr) {
        run_->stop();
        stopped_.push_back(std::exchange(run_, nullptr));
    }
}

PresenceTester::News PresenceTester::take() {
    return run_ == nullptr ? News() : run_->take();
}

bool PresenceTester::isOver() const {
    return run_ == nullptr || run_->isOver();
}

}  // namespace tarvin
