#pragma once

#include "controller/location_list.h"

#include <QCoreApplication>
#include <QString>
#include <string_view>

namespace tarvin {

/// The texts of the location screen that change. Main thread only.
class LocationTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::LocationTexts)

 public:
    /// Empty for LocationNotice::none.
    [[nodiscard]] static QString notice(LocationNotice notice);
    /// Over the column of locations, in folder or in drive mode.
    [[nodiscard]] static QString header(bool scanFolderClicked) {
        return scanFolderClicked ? tr("Select Folders (Double click to go deeper)")
                                 : tr("Select Drive");
    }
    /// Over the column of check boxes.
    [[nodiscard]] static QString checkHeader() {
        return tr("Scan", "header of a column of check boxes");
    }
    /// The title of the Scan button.
    [[nodiscard]] static QString scan() { return tr("Scan"); }
    /// For a double-click in drive mode.
    [[nodiscard]] static QString proceedWithScan() {
        return tr("Select the check box and click 'Scan' button to proceed.");
    }
    /// For a folder with nothing to show.
    [[nodiscard]] static QString noFolders() { return tr("No Folders."); }
    /// The item of the context menu that toggles a row.
    [[nodiscard]] static QString markMenu(bool isChecked) {
        return isChecked ? tr("Unmark") : tr("Mark");
    }
    /// Accessible name of the check box of a location.
    [[nodiscard]] static QString checkBoxName(const QString& location) {
        return tr("Scan this location: %1").arg(location);
    }
};

}  // namespace tarvin
