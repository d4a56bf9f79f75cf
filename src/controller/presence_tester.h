#pragma once

#include "store/exception_presence.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

/// Tests on a background thread whether excluded files are there: a drive may respond late or
/// never. Main thread only.
class PresenceTester final {
 public:
    /// The presence of some paths, in the order of start().
    struct News {
        std::size_t first = 0;
        std::vector<Presence> presences;
    };

    /// `platform` must outlive a thread that is left behind, too.
    explicit PresenceTester(Platform& platform) : platform_(platform) {}
    PresenceTester(const PresenceTester&) = delete;
    PresenceTester& operator=(const PresenceTester&) = delete;
    /// Waits for at most two seconds. A thread that blocks longer is left behind
    /// (RecoveryTask::leftBehind) and continues to use the platform.
    ~PresenceTester();

    /// Begins a test; a previous one is stopped.
    void start(std::vector<std::string> paths);
    /// Returns at once. The test ends when its current call returns, and has no more news.
    void stop();

    /// What has become known since the last call.
    [[nodiscard]] News take();
    /// Whether the test of start() has come to its end and all its news were taken.
    [[nodiscard]] bool isOver() const;

 private:
    class Run;

    Platform& platform_;
    std::shared_ptr<Run> run_;
    std::vector<std::shared_ptr<Run>> stopped_;  // may still be blocked
};

}  // namespace tarvin
