#include "controller/single_instance.h"

#include <QtGlobal>
#include <utility>

namespace tarvin {

SingleInstance::SingleInstance(RunningInstances& instances) : instances_(instances) {
    connect(this, &SingleInstance::asked, this, &SingleInstance::emitKept, Qt::QueuedConnection);
    if (const auto joined = instances_.join(requests())) {
        self_ = *joined;
    }
}

bool SingleInstance::keepFirst(const std::vector<std::string>& folders) {
    if (!self_) {
        return true;
    }
    const auto first =
        keepFirstInstanceOnly(instances_, qgetenv("XDG_ACTIVATION_TOKEN").toStdString());
    if (!first || first == self_) {
        return true;
    }
    if (!folders.empty()) {
        // An instance that takes none of them, or not all, shows its list without them.
        static_cast<void>(instances_.openFolders(*first, folders));
    }
    return false;
}

void SingleInstance::listen() {
    listens_ = true;
    emitKept();
}

InstanceRequests SingleInstance::requests() {
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

void SingleInstance::keep(std::function<void()> signal) {
    {
        const std::lock_guard lock(mutex_);
        kept_.push_back(std::move(signal));
    }
    Q_EMIT asked();
}

void SingleInstance::emitKept() {
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
