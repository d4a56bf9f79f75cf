#pragma once

#include <string>

namespace tarvin {

/// The resources that the preview program used for one file.
struct PreviewCost {
    long megabytes = 0;  ///< the most memory that it had, libraries included
    double seconds = 0;  ///< of all that happened; ended after five
};

/// Runs in another process: a child inherits the peak memory of the process that forks it.
[[nodiscard]] PreviewCost costOfPreview(const std::string& path);

}  // namespace tarvin
