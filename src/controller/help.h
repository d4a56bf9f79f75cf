#pragma once

#include "controller/desktop.h"
#include "controller/urls.h"

#include <QObject>
#include <QString>

namespace tarvin {

class MainWindow;

/// The help menu: user guide, support, about. Owned by AppDelegate; main thread.
class Help final : public QObject {
    Q_OBJECT

 public:
    /// Window and desktop must outlive this object. `guide` is the path of the user guide; may be
    /// empty.
    Help(MainWindow& window, Desktop& desktop, QString guide);

    void setUrls(const Urls& urls);

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
    const QString guide_;
    Urls urlDict_;
};

}  // namespace tarvin
