#pragma once

#include "model/file.h"

#include <QString>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace tarvin {

/// What sortMaadi() goes by, whatever a person has chosen.
inline constexpr std::string_view effectiveSorting = "fileCreationDate";

/// Gives each file its 0-based place by creation date as its index and answers the files in that
/// order. Files of the same date keep theirs; those without a date count as the oldest. Costs n log
/// n; belongs to the thread that changes the result tree.
std::vector<std::shared_ptr<File>> sortMaadi(const std::vector<std::shared_ptr<File>>& files,
                                             bool ascending);

/// One choice of the sort menu.
struct SortCriterion {
    std::string_view sorting;  ///< the key that is remembered, though nothing goes by it
    QString toolTip;           ///< of the sort pop-up
    int popupTag;              ///< of the pop-up's item that goes with it
};

/// The choice of a menu item by its tag, 0 to 4; none for any other. Main thread.
[[nodiscard]] std::optional<SortCriterion> sortCriterionOf(int menuTag);

}  // namespace tarvin
