#pragma once

#include "platform/timestamp.h"

#include <chrono>

namespace tarvin {

/// The date and time, behind a seam so that tests need not wait. Any thread.
class Clock {
 public:
    virtual ~Clock() = default;

    /// The date and time now; may jump when somebody sets the machine's clock.
    virtual Timestamp now() = 0;
    /// Time since an unnamed moment; never runs backwards.
    virtual std::chrono::steady_clock::time_point steadyNow() = 0;
};

/// The machine's own clock; one for the process.
Clock& systemClock();

}  // namespace tarvin
