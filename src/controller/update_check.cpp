#include "controller/update_check.h"

#include "controller/update_description.h"
#include "interface/main_window.h"

#include <QAction>
#include <QEventLoop>
#include <QGuiApplication>
#include <utility>

namespace tarvin {

UpdateCheck::UpdateCheck(MainWindow& window, Alerts& alerts, Desktop& desktop, Subject subject)
    : window_(window), alerts_(alerts), desktop_(desktop), subject_(std::move(subject)) {
    connect(window_.updateMenuItem, &QAction::triggered, this, &UpdateCheck::updateMenuClicked);
}

bool UpdateCheck::canCheck() const {
    return subject_.read && !updateAddress(urlDict_).isEmpty();
}

QString UpdateCheck::checkForupUpdates(const std::stop_token& stop) const {
    const auto description = subject_.read(updateAddress(urlDict_), stop);
    return description ? updateFor(subject_.version, *description) : QString();
}

std::jthread UpdateCheck::check(QObject& receiver,
                                std::function<void(const QString& version)> answered) {
    return std::jthread(
        [this, &receiver, answered = std::move(answered)](const std::stop_token& stop) {
            const QString version = checkForupUpdates(stop);
            QMetaObject::invokeMethod(
                &receiver, [answered, version] { answered(version); }, Qt::QueuedConnection);
        });
}

void UpdateCheck::showIfUpdateAvailable(const QObject* sender) {
    if (sender == nullptr) {
        if (canCheck()) {
            launchCheck_ = check(*this, [this](const QString& version) {
                if (!version.isEmpty()) {
                    offer(version);
                }
            });
        }
        return;
    }
    const std::optional<QString> version = canCheck() ? waitForCheck() : QString();
    if (!version) {
        return;
    }
    if (version->isEmpty()) {
        alerts_.show({tr("Your application is up to date"), tr("No update required."), {tr("Ok")}});
    } else {
        offer(*version);
    }
}

std::optional<QString> UpdateCheck::waitForCheck() {
    std::optional<QString> newer;
    QEventLoop loop;
    waiting_ = true;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    {
        const std::jthread checking = check(loop, [&](const QString& version) {
            newer = version;
            loop.quit();
        });
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    QGuiApplication::restoreOverrideCursor();
    waiting_ = false;
    return newer;
}

void UpdateCheck::offer(const QString& version) {
    alerts_.show({tr("New update available (Tarvin Duplicate File Remover %1)").arg(version),
                  tr("Would you like to update this version?"),
                  {tr("Update"), tr("Remind Me Later")},
                  1},
                 [this](int button) {
                     if (button == 0) {
                         launchApp(subject_.updater, {QStringLiteral("nothing")});
                     }
                 });
}

bool UpdateCheck::launchApp(const QString& application, const QStringList& arguments) {
    return !application.isEmpty() && desktop_.startProgram(application, arguments);
}

void UpdateCheck::updateMenuClicked() {
    if (!waiting_) {
        showIfUpdateAvailable(window_.updateMenuItem);
    }
}

}  // namespace tarvin
