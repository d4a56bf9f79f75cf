#pragma once

#include "controller/alerts.h"
#include "controller/desktop.h"
#include "controller/stop_request.h"
#include "controller/url_reader.h"
#include "controller/urls.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <thread>

class QEventLoop;

namespace tarvin {

class MainWindow;

/// Checks whether an update is published and offers to start the updater: silently at the start,
/// and with a notice for the command of the help menu. Any failure counts as no update. Main thread
/// only.
class UpdateCheck final : public QObject {
    Q_OBJECT

 public:
    /// The program that is checked.
    struct Subject {
        QString version{};  ///< the running version
        QString updater{};  ///< path of the updater; empty if none
        UrlReader read{};   ///< called on another thread; may be empty
    };

    /// The referenced objects must outlive this one.
    UpdateCheck(MainWindow& window, Alerts& alerts, Desktop& desktop, Subject subject);
    UpdateCheck(const UpdateCheck&) = delete;
    UpdateCheck& operator=(const UpdateCheck&) = delete;
    /// Stops a running check and waits for it.
    ~UpdateCheck() override = default;

    /// Call before the first check.
    void setUrls(const Urls& urls) { urlDict_ = urls; }

    /// The version to update to; nullopt if none. Blocks until the description is read. Not on the
    /// main thread.
    [[nodiscard]] std::optional<QString> checkForupUpdates(const StopRequest& stop) const;

    /// Checks on a background thread and offers an update. With a sender, the window takes no input
    /// during the check, and a notice says if there is none. Only one check with a sender at a
    /// time.
    void showIfUpdateAvailable(const QObject* sender = nullptr);

    /// The check without a sender.
    Q_SLOT void checkAtLaunch() { showIfUpdateAvailable(); }

    /// Starts a detached process. Returns false if it cannot be started.
    bool launchApp(const QString& application, const QStringList& arguments);

    /// The command of the help menu. Does nothing while its check is running.
    void updateMenuClicked();

 private:
    /// Whether there is anything to read.
    [[nodiscard]] bool canCheck() const;
    /// One check on its own thread. Stopped and waited for on destruction.
    class Running final {
     public:
        explicit Running(const std::function<void(const StopRequest& stop)>& body);
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;
        ~Running();

     private:
        StopRequest stop_;
        std::thread thread_;
    };

    /// Stores the result in `version` and calls the slot on the main thread.
    std::unique_ptr<Running> check(std::optional<QString>& version, const char* slot);
    /// Returns false if the program ends before the check.
    [[nodiscard]] bool waitForCheck(std::optional<QString>& version);
    Q_SLOT void launchChecked();
    Q_SLOT void menuChecked();
    void offer(const QString& version);

    MainWindow& window_;
    Alerts& alerts_;
    Desktop& desktop_;
    const Subject subject_;
    Urls urlDict_;
    QEventLoop* waiting_ = nullptr;         // while the help menu's check is running
    bool answered_ = false;                 // that check has finished
    std::optional<QString> launchVersion_;  // written by the thread until it has ended
    std::unique_ptr<Running> launchCheck_;  // last: ends before what it reads
};

}  // namespace tarvin
