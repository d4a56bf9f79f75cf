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
    return subject_.read && !updateUrl(urlDict_).isEmpty();
}

std::optional<QString> UpdateCheck::checkForupUpdates(const StopRequest& stop) const {
    const auto description = subject_.read(updateUrl(urlDict_), stop);
    return description ? updateFor(subject_.version, *description) : std::nullopt;
}

UpdateCheck::Running::Running(const std::function<void(const StopRequest& stop)>& body)
    : thread_([this, body] { body(stop_); }) {}

UpdateCheck::Running::~Running() {
    stop_.request();
    thread_.join();
}

std::unique_ptr<UpdateCheck::Running> UpdateCheck::check(std::optional<QString>& version,
                                                         const char* slot) {
    return std::make_unique<Running>([this, &version, slot](const StopRequest& stop) {
        version = checkForupUpdates(stop);
        QMetaObject::invokeMethod(this, slot, Qt::QueuedConnection);
    });
}

void UpdateCheck::showIfUpdateAvailable(const QObject* sender) {
    if (sender == nullptr) {
        if (canCheck()) {
            launchCheck_ = check(launchVersion_, "launchChecked");
        }
        return;
    }
    std::optional<QString> version;
    if (canCheck() && !waitForCheck(version)) {
        return;
    }
    if (version) {
        offer(*version);
    } else {
        alerts_.show({tr("Your application is up to date"), tr("No update required."), {tr("Ok")}});
    }
}

void UpdateCheck::launchChecked() {
    launchCheck_.reset();
    if (launchVersion_) {
        offer(*launchVersion_);
    }
}

bool UpdateCheck::waitForCheck(std::optional<QString>& version) {
    QEventLoop loop;
    waiting_ = &loop;
    answered_ = false;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    {
        const std::unique_ptr<Running> checking = check(version, "menuChecked");
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    QGuiApplication::restoreOverrideCursor();
    waiting_ = nullptr;
    return answered_;
}

void UpdateCheck::menuChecked() {
    if (waiting_ != nullptr) {
        answered_ = true;
        waiting_->quit();
    }
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
    if (waiting_ == nullptr) {
        showIfUpdateAvailable(window_.updateMenuItem);
    }
}

}  // namespace tarvin
