#pragma once

#include "model/modal.h"

#include <string>
#include <vector>

namespace tarvin {

/// Takes the marked files out of a result list, to be excluded from scans: their paths, extension
/// by extension and set by set. Extensions and sets that are off are passed over, also where every
/// file of a set is marked. The totals of the list still count what was taken out. Belongs to the
/// thread that changes the tree.
[[nodiscard]] std::vector<std::string> takeOutMarkedFiles(Modal& modal);

}  // namespace tarvin
