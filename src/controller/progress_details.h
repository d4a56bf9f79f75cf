#pragma once

#include "platform/clock.h"
#include "scan/compared_bytes.h"
#include "scan/time_left.h"

#include <QString>
#include <chrono>
#include <cstdint>
#include <optional>

namespace tarvin {

/// Decides what the progress screen says about bytes, time left, pauses and stops of a scan. Owned
/// by ScanTask. Main thread only.
class ProgressDetails final {
 public:
    /// `clock` must outlive this object.
    explicit ProgressDetails(Clock& clock) : clock_(clock), timeLeft_(clock) {}

    /// Another scan begins.
    void begin();
    /// How far the scan is. Call it a few times a second while it is neither paused nor stopped.
    void compared(BytesCompared bytes);

    // What happens to the scan. After stop() the others have no effect until begin().

    /// It waits for the answer to a question.
    void hold() { change(State::held); }
    /// The user has paused it.
    void pause() { change(State::paused); }
    void resume() { change(State::running); }
    void stop();

    [[nodiscard]] bool isStopping() const { return state_ == State::stopping; }

    /// "12.4 GB of 80.1 GB compared · about 3 minutes left"; empty while nothing is compared.
    [[nodiscard]] QString details() const;
    /// "Paused", "Stopping…" or empty.
    [[nodiscard]] QString state() const;

 private:
    enum class State : std::uint8_t { running, held, paused, stopping };

    void change(State state);
    [[nodiscard]] bool isStopSlow() const;

    Clock& clock_;
    TimeLeft timeLeft_;
    State state_ = State::running;
    BytesCompared bytes_;
    std::optional<std::chrono::steady_clock::time_point> stopped_;
};

}  // namespace tarvin
