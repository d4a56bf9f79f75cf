#pragma once

#include "platform/clock.h"
#include "scan/compared_bytes.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace tarvin {

/// Estimates how long a comparison will still take, from the bytes compared so far. Recent progress
/// counts more than that of minutes ago.
///
/// The estimate is calm rather than up to date: there is none in the first 10 s and 2 % of the
/// bytes, it changes at most every 5 s, and a change is at most by half. An estimate of more than
/// 99 h is withheld, as while nothing is read. Not thread-safe.
class TimeLeft final {
 public:
    /// `clock` must outlive this object.
    explicit TimeLeft(Clock& clock) : clock_(clock) {}

    /// Forgets everything: another comparison begins.
    void restart() { state_ = {}; }
    /// The time until the next update() does not count: the comparison is paused.
    void pause() { state_.updated.reset(); }
    /// Call it a few times a second while the comparison runs. Ignores an unknown total.
    void update(BytesCompared bytes);

    /// The time left as last estimated; nullopt while it is unknown. A pause keeps it.
    [[nodiscard]] std::optional<std::chrono::seconds> left() const { return state_.left; }

 private:
    using Duration = std::chrono::steady_clock::duration;

    struct State {
        std::optional<std::chrono::steady_clock::time_point> updated;  // nullopt during a pause
        std::uint64_t done = 0;                                        // at the last update
        Duration running{0};                                           // without pauses
        std::optional<Duration> estimated;                             // when, in running time
        double recentSeconds = 0;                                      // weighted by age
        double recentBytes = 0;                                        // weighted by age
        std::optional<std::chrono::seconds> left;
    };

    void measure(Duration step, std::uint64_t bytes);
    void estimate(BytesCompared bytes);

    Clock& clock_;
    State state_;
};

}  // namespace tarvin
