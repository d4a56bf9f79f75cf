#include "controller/single_copy.h"

#include <QtGlobal>
#include <utility>

namespace tarvin {

SingleCopy::SingleCopy(RunningCopies& copies) : copies_(copies) {
    connect(this, &SingleCopy::asked, this, &SingleCopy::pass, Qt::QueuedConnection);
    if (const auto joined = copies_.join(requests())) {
        self_ = *joined;
    }
}

bool SingleCopy::isFirst() const {
    const std::vector<RunningCopy> running = copies_.copies();
    return running.empty() || running.front() == self_;
}

bool SingleCopy::keepFirst(const std::vector<std::string>& folders) {
    if (!self_) {
        return true;
    }
    const auto first = keepFirstCopyOnly(copies_, qgetenv("XDG_ACTIVATION_TOKEN").toStdString());
    if (!first || first == self_) {
        return true;
    }
    if (!folders.empty()) {
        // A copy that takes none of them, or not all, shows its list without them.
        static_cast<void>(copies_.openFolders(*first, folders));
    }
    return false;
}

void SingleCopy::listen() {
    listens_ = true;
    for (const std::function<void()>& signal : std::exchange(kept_, {})) {
        signal();
    }
}

CopyRequests SingleCopy::requests() {
    return {.quit = [this] { Q_EMIT asked([this] { Q_EMIT quitRequested(); }); },
            .comeToFront =
                [this](const std::string& token) {
                    Q_EMIT asked(
                        [this, token] { Q_EMIT frontRequested(QByteArray::fromStdString(token)); });
                },
            .openFolders =
                [this](const std::vector<std::string>& folders) {
                    Q_EMIT asked([this, folders] { Q_EMIT foldersRequested(folders); });
                }};
}

void SingleCopy::pass(const std::function<void()>& signal) {
    if (listens_) {
        signal();
    } else {
        kept_.push_back(signal);
    }
}

}  // namespace tarvin
