#pragma once

#include "platform/macos/objective_c.h"
#include "platform/trash_move.h"

namespace tarvin::macos {

/// Why the system did not move a file to the Trash, from Foundation's error (the numbers are in
/// <Foundation/FoundationErrors.h>). Pure, and compiled on other systems, too, so that its tests
/// run there.
[[nodiscard]] TrashRefusal refusalOf(const TrashAnswer& answer);

}  // namespace tarvin::macos
