#pragma once

#include <string>

namespace tarvin {

/// What the program that makes previews took for one file.
struct PreviewCost {
    long megabytes = 0;  ///< the most memory that it had, libraries included
    double seconds = 0;  ///< of all that happened; ended after five
};

/// Another process starts it and asks: the system counts a process's memory for what it starts.
[[nodiscard]] PreviewCost costOfPreview(const std::string& path);

}  // namespace tarvin
