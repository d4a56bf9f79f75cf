#pragma once

#include "model/modal.h"

#include <string>
#include <vector>

namespace tarvin {

/// Whether the question to exclude the marked files may be asked. If not, the button that was
/// pressed is disabled and nothing else happens. Pure.
[[nodiscard]] bool mayAddExceptions(const Modal& modal);

/// Whether the button that empties the exception list is enabled. Pure.
[[nodiscard]] bool mayRemoveExceptions(const std::vector<std::string>& exceptionArrayData);

/// Takes the marked files out of a result list, to be excluded from scans: their paths, extension
/// by extension and set by set. Extensions and sets that are off are passed over, also where every
/// file of a set is marked. The totals of the list still count what was taken out. Belongs to the
/// thread that changes the tree.
[[nodiscard]] std::vector<std::string> takeOutMarkedFiles(Modal& modal);

}  // namespace tarvin
