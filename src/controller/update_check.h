#pragma once

#include "controller/alerts.h"
#include "controller/desktop.h"
#include "controller/url_reader.h"
#include "controller/urls.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <optional>
#include <stop_token>
#include <thread>

class QEventLoop;

namespace tarvin {

class MainWindow;

/// Learns whether a newer version is published, and offers to start the program that fetches it:
/// silently when the product starts, and with an answer when the help menu asks. Whatever fails
/// means that there is no update. Main thread.
class UpdateCheck final : public QObject {
    Q_OBJECT

 public:
    /// What the check is about.
    struct Subject {
        QString version{};  ///< that runs
        QString updater{};  ///< path of the updater; empty if there is none
        UrlReader read{};   ///< called on another thread; may be empty
    };

    /// What it refers to outlives it.
    UpdateCheck(MainWindow& window, Alerts& alerts, Desktop& desktop, Subject subject);
    UpdateCheck(const UpdateCheck&) = delete;
    UpdateCheck& operator=(const UpdateCheck&) = delete;
    /// Ends a check that still reads.
    ~UpdateCheck() override = default;

    /// Before the first check.
    void setUrls(const Urls& urls) { urlDict_ = urls; }

    /// The version to update to, or none. Blocks until the description is read; on another thread
    /// than the main one.
    [[nodiscard]] std::optional<QString> checkForupUpdates(const std::stop_token& stop) const;

    /// Checks on a thread of its own and offers an update. With a sender, the window waits for the
    /// answer, is drawn meanwhile, and says if there is none. One check for a sender at a time.
    void showIfUpdateAvailable(const QObject* sender = nullptr);

    /// The check without a sender.
    Q_SLOT void checkAtLaunch() { showIfUpdateAvailable(); }

    /// Starts a program that goes on without this one. False if it cannot be started.
    bool launchApp(const QString& application, const QStringList& arguments);

    /// The command of the help menu; nothing while such a check is under way.
    void updateMenuClicked();

 private:
    /// Whether there is anything to read.
    [[nodiscard]] bool canCheck() const;
    /// Puts the answer into `version` and calls the slot in the main thread.
    std::jthread check(std::optional<QString>& version, const char* slot);
    /// False if the program ends meanwhile.
    [[nodiscard]] bool waitForCheck(std::optional<QString>& version);
    Q_SLOT void launchChecked();
    Q_SLOT void menuChecked();
    void offer(const QString& version);

    MainWindow& window_;
    Alerts& alerts_;
    Desktop& desktop_;
    const Subject subject_;
    Urls urlDict_;
    QEventLoop* waiting_ = nullptr;         // while the help menu's check is under way
    bool answered_ = false;                 // that check
    std::optional<QString> launchVersion_;  // of the thread, until it has ended
    std::jthread launchCheck_;              // last: ends before what it reads
};

}  // namespace tarvin
