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

}  // namespace tarvin
