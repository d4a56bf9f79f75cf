#pragma once

#include <cstdint>

namespace tarvin::bench {

/// The time at which a started program had painted its first frame, which it sends through a pipe.
struct FirstFrame {
    std::int64_t steady = 0;  ///< nanoseconds of the steady clock
    std::int64_t cpu = 0;     ///< nanoseconds of CPU time that the process has used, all threads
};

/// The environment variable with the pipe's file descriptor.
inline constexpr const char* firstFramePipe = "TARVIN_FIRST_FRAME_PIPE";
/// The environment variable with the name of a widget that the first frame must contain. If it is
/// not set, the first frame of any window counts.
inline constexpr const char* firstFrameWidget = "TARVIN_FIRST_FRAME_WIDGET";

}  // namespace tarvin::bench
