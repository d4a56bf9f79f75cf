#pragma once

#include "model/modal.h"

#include <cstddef>
#include <memory>

namespace tarvin::bench {

/// The memory of the views of a result and their models, without the result itself.
struct ViewMemory {
    double outline = 0;  ///< bytes per row, everything expanded
    double files = 0;    ///< bytes per row of a set
    std::size_t rows = 0;
};

/// Shows the result in a new outline, and as many files as that has rows in a new file list. Main
/// thread only, while no other thread allocates memory.
[[nodiscard]] ViewMemory memoryOfViews(const std::shared_ptr<Modal>& modal);

}  // namespace tarvin::bench
