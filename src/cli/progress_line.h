#pragma once

#include "scan/progress_mailbox.h"

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace tarvin {

/// Shows the progress of a scan in one line of a terminal and redraws it on a background thread.
/// The destructor erases the line.
class ProgressLine final {
 public:
    struct Settings {
        /// Time between two redraws.
        std::chrono::milliseconds interval{100};
    };

    /// `latest` is called on the background thread. Does not take ownership of the descriptor.
    /// Write errors are ignored: progress is not part of the result.
    ProgressLine(int descriptor, std::function<Progress()> latest)
        : ProgressLine(descriptor, std::move(latest), Settings{}) {}
    ProgressLine(int descriptor, std::function<Progress()> latest, Settings settings);
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    ~ProgressLine();

 private:
    void drawUntilEnd();
    void draw();
    void erase() const;
    /// False, without delay, when the thread is to end.
    bool waitOneInterval();

    const int descriptor_;
    const std::function<Progress()> latest_;
    const Settings settings_;
    std::string drawn_;  // used by the thread only
    std::mutex mutex_;
    std::condition_variable changed_;
    bool ending_ = false;  // guarded by mutex_
    std::thread thread_;
};

/// The progress in one line of at most `columns` columns: "Collecting Files: photo.jpg
/// 00:00:02" or "[##########          ] 50%  photo.jpg  1.05 MB  00:00:12". The file
/// name is truncated first. Safe to print; column widths are those of most terminals. Any thread.
[[nodiscard]] std::string progressText(const Progress& progress, std::size_t columns);

}  // namespace tarvin
