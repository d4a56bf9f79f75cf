#pragma once

#include "scan/progress_mailbox.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace tarvin {

/// Draws the progress of a scan as one line of a terminal, over and over in the same place, on a
/// thread of its own, for as long as the object lives. Then the line is gone.
class ProgressLine final {
 public:
    struct Settings {
        /// The shortest time between two drawings.
        std::chrono::milliseconds interval{100};
    };

    /// `look` is called on the line's thread. The descriptor stays its owner's; a failure to write
    /// to it is passed over, because what matters is the result.
    ProgressLine(int descriptor, std::function<Progress()> look)
        : ProgressLine(descriptor, std::move(look), Settings{}) {}
    ProgressLine(int descriptor, std::function<Progress()> look, Settings settings);
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine();

 private:
    void drawUntilEnd();
    void draw();
    void erase() const;
    /// False, and at once, when the thread is to end.
    bool waitOneInterval();

    const int descriptor_;
    const std::function<Progress()> look_;
    const Settings settings_;
    std::string drawn_;  // the thread's own
    std::mutex mutex_;
    std::condition_variable changed_;
    bool ending_ = false;  // guarded by mutex_
    std::thread thread_;
};

}  // namespace tarvin
