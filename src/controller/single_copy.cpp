#include "controller/single_copy.h"

#include <QtGlobal>

namespace tarvin {

bool SingleCopy::keepFirst(const std::vector<std::string>& folders) {
    const auto self = copies_.join(requests());
    if (!self) {
        return true;
    }
    const auto first = keepFirstCopyOnly(copies_, qgetenv("XDG_ACTIVATION_TOKEN").toStdString());
    if (!first || *first == *self) {
        return true;
    }
    if (!folders.empty()) {
        // A copy that takes none of them, or not all, shows its list without them.
        static_cast<void>(copies_.openFolders(*first, folders));
    }
    return false;
}

CopyRequests SingleCopy::requests() {
    return {
        .quit = [this] { Q_EMIT quitRequested(); },
        .comeToFront =
            [this](const std::string& token) {
                Q_EMIT frontRequested(QByteArray::fromStdString(token));
            },
        .openFolders =
            [this](const std::vector<std::string>& folders) { Q_EMIT foldersRequested(folders); }};
}

}  // namespace tarvin
