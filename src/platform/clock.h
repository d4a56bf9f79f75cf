#pragma once

#include "platform/timestamp.h"

#include <chrono>

namespace tarvin {

/// The date and time, behind an interface so that tests need not wait. Any thread.
class Clock {
 public:
    virtual ~Clock() = default;

    /// The date and time now; jumps when the system clock is set.
    virtual Timestamp now() = 0;
    /// Monotonic.
    virtual std::chrono::steady_clock::time_point steadyNow() = 0;
};

/// The system clock; one object for the process.
Clock& systemClock();

}  // namespace tarvin
