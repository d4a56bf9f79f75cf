#pragma once

#include "controller/desktop.h"

#include <QObject>
#include <QString>

namespace tarvin {

class MainWindow;

/// The help menu: user guide, support, about. Owned by AppDelegate; main thread.
class Help final : public QObject {
    Q_OBJECT

 public:
    /// Both outlive it.
    Help(MainWindow& window, Desktop& desktop);

    /// Reads the list of addresses that is installed with the program, a property list with the
    /// texts "Support", "FolderLocation" and "FolderName"; each is empty if it is missing. `path`
    /// may be empty.
    void readUrls(const QString& path);

    /// "Version ..." of the about window.
    void setVersion(const QString& version) const;

    void buttonHelpManualClicked();
    void helpMenuClicked();
    void supportMenuClicked();
    void aboutMenuClicked();
    /// Opens an address with the desktop's program for it; nothing if it is empty or damaged.
    void openURLS(const QString& address);

 private:
    MainWindow& window_;
    Desktop& desktop_;
    QString support_;
};

}  // namespace tarvin
