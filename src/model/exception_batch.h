#pragma once

#include "model/modal.h"

#include <string>
#include <vector>

namespace tarvin {

/// Whether there are marked files to exclude. If not, the pressed button is disabled and nothing
/// else happens. Pure.
[[nodiscard]] bool mayAddExceptions(const Modal& modal);

/// Whether the button that clears the exceptions list is enabled. Pure.
[[nodiscard]] bool mayRemoveExceptions(const std::vector<std::string>& exceptionArrayData);

/// Removes the marked files from a result list and returns their paths, extension by extension and
/// set by set, to be excluded from scans. Skips extensions and sets whose state is off, even if
/// every file of a set is marked. The totals of the list still count the removed files. Only on the
/// thread that changes the tree.
[[nodiscard]] std::vector<std::string> takeOutMarkedFiles(Modal& modal);

}  // namespace tarvin
