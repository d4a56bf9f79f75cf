#pragma once

#include <QtGlobal>
#include <chrono>

namespace tarvin {

/// What reading an address may cost.
struct ReadBounds {
    std::chrono::milliseconds time{10'000};  ///< for all of it
    qint64 bytes = 1024 * 1024;
};

}  // namespace tarvin
