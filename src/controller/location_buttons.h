#pragma once

#include "scan/location_row.h"

#include <vector>

namespace tarvin {

/// How the buttons of the location list look.
struct LocationButtons {
    bool markAllExactBtn = false;         ///< enabled
    bool unmarkAllExactBtn = false;       ///< enabled
    bool removeFromListExactBtn = false;  ///< enabled
    bool findDuplicateExact = false;      ///< enabled; the Scan button
    double findDuplicateExactAlpha = 0.6;
    /// The Scan button is given its title again.
    bool givesScanTitle = false;

    bool operator==(const LocationButtons&) const = default;
};

/// What the rows make of the buttons: one checked folder or two checked files can be scanned. Rows
/// are counted in 16 bits with a sign, so that past 32,767 of a kind the answers are off. Pure; any
/// thread.
[[nodiscard]] LocationButtons reflectMarkStatusForRemoveButton(
    const std::vector<LocationRow>& rows);

}  // namespace tarvin
