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
/// bytes, it changes at most every 5 s, and a change is at most by half; one of less than 10 s may
/// rise to 15 s. It is withdrawn when nothing has been compared for 30 s or it exceeds 99 h; then
/// the 10 s begin again with the next progress. Not thread-safe.
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
        Duration idle{0};                                              // since the last progress
        std::optional<Duration> estimated;                             // when, in running time
        double recentSeconds = 0;                                      // weighted by age
        double recentBytes = 0;                                        // weighted by age
        std::optional<std::chrono::seconds> left;
    };

    void measure(Duration step, std::uint64_t bytes);
    void estimate(BytesCompared bytes);
    void withdraw();

    Clock& clock_;
    State state_;
};

}  // namespace tarvin
