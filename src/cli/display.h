#pragma once

namespace tarvin {

/// What a place that text is written to can show.
struct Display {
    bool isTerminal = false;
};

/// What an open file, pipe or terminal can show. Any thread.
[[nodiscard]] Display displayOf(int descriptor);

}  // namespace tarvin
