#include "scan/progress_mailbox.h"

#include <algorithm>

namespace tarvin {

void ProgressMailbox::collecting(const std::string& path) {
    const std::lock_guard lock(mutex_);
    latest_.path = path;
    latest_.waiting = false;
}

void ProgressMailbox::comparisonStarted(std::uint64_t total) {
    const std::lock_guard lock(mutex_);
    latest_.comparing = true;
    latest_.total = total;
    latest_.path.clear();
    latest_.waiting = false;
}

void ProgressMailbox::processing(const std::string& path, std::uint64_t processed) {
    const std::lock_guard lock(mutex_);
    latest_.path = path;
    latest_.waiting = false;
    // Comparisons report concurrently and may overtake each other.
    latest_.processed = std::max(latest_.processed, processed);
}

void ProgressMailbox::waitingFor(const std::string& path) {
    const std::lock_guard lock(mutex_);
    latest_.path = path;
    latest_.waiting = true;
}

void ProgressMailbox::elapsed(const std::string& text) {
    const std::lock_guard lock(mutex_);
    latest_.elapsed = text;
}

void ProgressMailbox::clear() {
    const std::lock_guard lock(mutex_);
    latest_ = {};
}

Progress ProgressMailbox::latest() const {
    const std::lock_guard lock(mutex_);
    return latest_;
}

void ProgressMailbox::tryLatest(Progress& progress) const {
    const std::unique_lock lock(mutex_, std::try_to_lock);
    if (lock) {
        progress = latest_;
    }
}

}  // namespace tarvin
