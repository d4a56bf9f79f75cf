#include "controller/single_copy.h"

#include <QtGlobal>
#include <utility>

namespace tarvin {

SingleCopy::SingleCopy(RunningCopies& copies) : copies_(copies) {
    connect(this, &SingleCopy::asked, this, &SingleCopy::emitKept, Qt::QueuedConnection);
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
    emitKept();
}

CopyRequests SingleCopy::requests() {
    return {
        .quit = [this] { keep([this] { Q_EMIT quitRequested(); }); },
        .comeToFront =
            [this](const std::string& token) {
                keep([this, token] { Q_EMIT frontRequested(QByteArray::fromStdString(token)); });
            },
        .openFolders =
            [this](const std::vector<std::string>& folders) {
                keep([this, folders] { Q_EMIT foldersRequested(folders); });
            }};
}

void SingleCopy::keep(std::function<void()> signal) {
    {
        const std::lock_guard lock(mutex_);
        kept_.push_back(std::move(signal));
    }
    Q_EMIT asked();
}

void SingleCopy::emitKept() {
    if (!listens_) {
        return;
    }
    std::vector<std::function<void()>> emissions;
    {
        const std::lock_guard lock(mutex_);
        emissions = std::exchange(kept_, {});
    }
    for (const std::function<void()>& signal : emissions) {
        signal();
    }
}

}  // namespace tarvin
