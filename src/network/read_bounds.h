#pragma once

#include <QtGlobal>
#include <chrono>

namespace tarvin {

/// The limits of one read.
struct ReadBounds {
    std::chrono::milliseconds time{10'000};  ///< in total
    qint64 bytes = 1024 * 1024;
};

}  // namespace tarvin
