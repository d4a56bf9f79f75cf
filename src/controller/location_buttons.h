#pragma once

#include "scan/location_row.h"

#include <vector>

namespace tarvin {

/// The states of the buttons of the location list.
struct LocationButtons {
    bool markAllExactBtn = false;         ///< enabled
    bool unmarkAllExactBtn = false;       ///< enabled
    bool removeFromListExactBtn = false;  ///< enabled
    bool findDuplicateExact = false;      ///< enabled; the Scan button
    double findDuplicateExactAlpha = 0.6;
    /// The title of the Scan button must be set again.
    bool givesScanTitle = false;

    bool operator==(const LocationButtons&) const = default;
};

/// Returns the button states for the rows: one checked folder or two checked files can be scanned.
/// Rows are counted in signed 16-bit numbers, so results are wrong beyond 32,767 rows of a kind.
/// Pure. Any thread.
[[nodiscard]] LocationButtons reflectMarkStatusForRemoveButton(
    const std::vector<LocationRow>& rows);

}  // namespace tarvin
