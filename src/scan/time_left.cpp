#include "scan/time_left.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarvin {

namespace {

using Seconds = std::chrono::duration<double>;

constexpr std::chrono::seconds shortestMeasurement{10};
constexpr double smallestShare = 0.02;
constexpr std::chrono::seconds shortestInterval{5};
// Progress of this age counts for 1/e of that of now.
constexpr Seconds memory{30};
constexpr double largestFall = 0.5;
constexpr double largestRise = 1.5;
// A rise from nearly nothing would take too many steps.
constexpr Seconds leastToRiseFrom{10};
constexpr Seconds longest = std::chrono::hours{99};
// A device may have gone, or a server may be slow: nobody knows how long that lasts.
constexpr std::chrono::seconds longestStall{30};

/// Moves towards `next`, at most by half of the last estimate.
Seconds nextEstimate(Seconds last, Seconds next) {
    return std::clamp(next, last * largestFall, std::max(last, leastToRiseFrom) * largestRise);
}

}  // namespace

void TimeLeft::update(BytesCompared bytes) {
    if (bytes.total == 0) {
        return;
    }
    const auto now = clock_.steadyNow();
    if (state_.updated) {
        measure(now - *state_.updated, bytes.done - state_.done);
        estimate(bytes);
    }
    state_.updated = now;
    state_.done = bytes.done;
}

void TimeLeft::measure(Duration step, std::uint64_t bytes) {
    const Seconds seconds = step;
    const double weight = std::exp(-seconds / memory);
    state_.recentSeconds = state_.recentSeconds * weight + seconds.count();
    state_.recentBytes = state_.recentBytes * weight + static_cast<double>(bytes);
    state_.running += step;
    state_.idle = bytes > 0 ? Duration{0} : state_.idle + step;
}

void TimeLeft::estimate(BytesCompared bytes) {
    const auto done = static_cast<double>(bytes.done);
    const auto total = static_cast<double>(bytes.total);
    if (state_.idle >= longestStall) {
        withdraw();
        return;
    }
    if (state_.running < shortestMeasurement || done < total * smallestShare ||
        (state_.estimated && state_.running - *state_.estimated < shortestInterval)) {
        return;
    }
    state_.estimated = state_.running;
    // Infinite if nothing was read since the measurements began.
    Seconds next{state_.recentSeconds * (total - done) / state_.recentBytes};
    if (state_.left) {
        next = nextEstimate(*state_.left, next);
    }
    if (next > longest) {
        withdraw();
    } else {
        state_.left = std::chrono::round<std::chrono::seconds>(next);
    }
}

/// The next estimate begins with new measurements, so that it need not be reached in steps.
void TimeLeft::withdraw() {
    const State before = std::exchange(state_, {});
    state_.updated = before.updated;
    state_.done = before.done;
    state_.idle = before.idle;
}

}  // namespace tarvin
