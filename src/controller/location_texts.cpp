#include "controller/location_texts.h"

namespace tarvin {

QString LocationTexts::notice(LocationNotice notice) {
    switch (notice) {
        case LocationNotice::fileAlreadyAdded:
            return tr("File already added.");
        case LocationNotice::unsupportedFile:
            return tr("Unsupported file.");
        case LocationNotice::imageAlreadyAdded:
            return tr("Image already added.");
        case LocationNotice::folderAlreadyAdded:
            return tr("Folder already added.");
        case LocationNotice::none:
            break;
    }
    return {};
}

QString LocationTexts::header(bool scanFolderClicked) {
    return scanFolderClicked ? tr("Select Folders (Double click to go deeper)")
                             : tr("Select Drive");
}

QString LocationTexts::checkHeader() {
    return tr("Scan", "header of a column of check boxes");
}

QString LocationTexts::scan() {
    return tr("Scan");
}

QString LocationTexts::proceedWithScan() {
    return tr("Select the check box and click 'Scan' button to proceed.");
}

QString LocationTexts::noFolders() {
    return tr("No Folders.");
}

QString LocationTexts::markMenu(bool isChecked) {
    return isChecked ? tr("Unmark") : tr("Mark");
}

QString LocationTexts::checkBoxName(const QString& location) {
    return tr("Scan this location: %1").arg(location);
}

}  // namespace tarvin
