#include "controller/single_copy.h"

#include <QtGlobal>
#include <utility>

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
    if (!folders.empty() && !copies_.openFolders(*first, folders)) {
        qWarning("The copy that runs already could not be handed all of the folders.");
    }
    return false;
}

CopyRequests SingleCopy::requests() {
    const auto later = [this](auto request) {
        QMetaObject::invokeMethod(this, std::move(request), Qt::QueuedConnection);
    };
    return {.quit = [this, later] { later([this] { Q_EMIT quitRequested(); }); },
            .comeToFront =
                [this, later](const std::string& token) {
                    later([this, token = QByteArray::fromStdString(token)] {
                        Q_EMIT frontRequested(token);
                    });
                },
            .openFolders =
                [this, later](const std::vector<std::string>& folders) {
                    later([this, folders] { Q_EMIT foldersRequested(folders); });
                }};
}

}  // namespace tarvin
