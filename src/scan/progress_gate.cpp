#include "scan/progress_gate.h"

namespace tarvin {

bool ProgressGate::due() {
    if (interval_ == std::chrono::steady_clock::duration::zero()) {
        return true;
    }
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    auto next = next_.load(std::memory_order_relaxed);
    return now.count() >= next && next_.compare_exchange_strong(next, (now + interval_).count(),
                                                                std::memory_order_relaxed);
}

}  // namespace tarvin
