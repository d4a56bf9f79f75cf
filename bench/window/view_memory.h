#pragma once

#include "model/modal.h"

#include <cstddef>
#include <memory>

namespace tarvin::bench {

/// What the views of a result and their models take for themselves, beside the result.
struct ViewMemory {
    double outline = 0;  ///< bytes a row, everything expanded
    double files = 0;    ///< bytes a row of a set
    std::size_t rows = 0;
};

/// Shows the result in an outline of its own, and as many files as that has rows in a file list of
/// its own. Main thread, while no other thread takes memory.
[[nodiscard]] ViewMemory memoryOfViews(const std::shared_ptr<Modal>& modal);

}  // namespace tarvin::bench
