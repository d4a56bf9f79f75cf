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
    [[nodiscard]] static QString header(bool scanFolderClicked);
    /// Over the column of check boxes.
    [[nodiscard]] static QString checkHeader();
    /// The title of the Scan button.
    [[nodiscard]] static QString scan();
    /// For a double-click in drive mode.
    [[nodiscard]] static QString proceedWithScan();
    /// For a folder with nothing to show.
    [[nodiscard]] static QString noFolders();
    /// The item of the context menu that toggles a row.
    [[nodiscard]] static QString markMenu(bool isChecked);
    /// Accessible name of the check box of a location.
    [[nodiscard]] static QString checkBoxName(const QString& location);
};

}  // namespace tarvin
