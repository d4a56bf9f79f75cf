#pragma once

#include "model/file.h"

#include <QString>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvin {

/// The key that sortMaadi() always sorts by, even if the user has chosen another one.
inline constexpr std::string_view effectiveSorting = "fileCreationDate";

/// Sets the index of each file to its 0-based position by creation date and returns the files in
/// that order. The sort is stable; files without a date are the oldest. O(n log n). Only on the
/// thread that may change the result tree.
std::vector<std::shared_ptr<File>> sortMaadi(const std::vector<std::shared_ptr<File>>& files,
                                             bool ascending);

/// One choice of the sort menu.
struct SortCriterion {
    std::string_view sorting;  ///< the key; stored, but not used for sorting
    QString toolTip;           ///< of the sort pop-up
    int popupTag;              ///< of the matching item of the pop-up
};

/// The choice of a menu item by its tag, 0 to 4; nullopt for any other. Main thread only.
[[nodiscard]] std::optional<SortCriterion> sortCriterionOf(int menuTag);

}  // namespace tarvin
