#pragma once

#include <cstdint>

namespace tarvin::bench {

/// When a started program had painted its first frame. The program sends it through a pipe.
struct FirstFrame {
    std::int64_t steady = 0;  ///< nanoseconds of the steady clock
    std::int64_t cpu = 0;     ///< nanoseconds of CPU time that the process has used, all threads
};

/// The environment variable with the number of the pipe's descriptor.
inline constexpr const char* firstFramePipe = "TARVIN_FIRST_FRAME_PIPE";
/// That with the name of a widget: the first frame is the first one that contains it. Not set: the
/// first frame of any window.
inline constexpr const char* firstFrameWidget = "TARVIN_FIRST_FRAME_WIDGET";

}  // namespace tarvin::bench
