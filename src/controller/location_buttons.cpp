#include "controller/location_buttons.h"

#include <cstddef>
#include <cstdint>

namespace tarvin {

namespace {

constexpr double dimmed = 0.6;

/// Row counts by kind. 16 bits on purpose: the overflow is part of how the buttons work.
struct Counts {
    std::int16_t checkedFolders = 0;
    std::int16_t checkedFiles = 0;
    std::int16_t unchecked = 0;
    std::int16_t checked = 0;
    std::int16_t rows = 0;
};

Counts countsOf(const std::vector<LocationRow>& rows) {
    std::size_t checkedFolders = 0;
    std::size_t checkedFiles = 0;
    for (const LocationRow& row : rows) {
        checkedFolders += row.state && row.folder ? 1U : 0U;
        checkedFiles += row.state && !row.folder ? 1U : 0U;
    }
    const std::size_t checked = checkedFolders + checkedFiles;
    return {static_cast<std::int16_t>(checkedFolders), static_cast<std::int16_t>(checkedFiles),
            static_cast<std::int16_t>(rows.size() - checked), static_cast<std::int16_t>(checked),
            static_cast<std::int16_t>(rows.size())};
}

}  // namespace

LocationButtons reflectMarkStatusForRemoveButton(const std::vector<LocationRow>& rows) {
    LocationButtons buttons;
    if (rows.empty()) {
        return buttons;
    }
    const Counts counts = countsOf(rows);
    const bool isAllChecked = counts.checked == counts.rows;
    buttons.markAllExactBtn = !isAllChecked;
    buttons.unmarkAllExactBtn = isAllChecked || counts.unchecked != counts.rows;
    buttons.removeFromListExactBtn = buttons.unmarkAllExactBtn;
    buttons.findDuplicateExact = counts.checkedFiles > 1 || counts.checkedFolders >= 1;
    buttons.findDuplicateExactAlpha = buttons.findDuplicateExact ? 1.0 : dimmed;
    buttons.givesScanTitle = !buttons.findDuplicateExact;
    return buttons;
}

}  // namespace tarvin
