#pragma once

#include <cstdint>

namespace tarvin::bench {

/// A moment in the life of a program.
struct Moment {
    std::int64_t steady = 0;     ///< nanoseconds of the steady clock
    std::int64_t processor = 0;  ///< nanoseconds that the process has run until then
};

/// What a started program tells through a pipe when its window has been painted.
struct FirstFrame {
    Moment shown;  ///< the first frame
    Moment whole;  ///< the first frame with all that belongs into it
};

/// The environment variable with the number of the pipe's descriptor.
inline constexpr const char* firstFramePipe = "TARVIN_FIRST_FRAME_PIPE";
/// That with the name of the widget without which the window is not whole; not set if the first
/// frame is all there is.
inline constexpr const char* firstFrameWidget = "TARVIN_FIRST_FRAME_WIDGET";

}  // namespace tarvin::bench
