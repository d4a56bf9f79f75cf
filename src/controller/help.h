#pragma once

#include "controller/desktop.h"
#include "controller/urls.h"

#include <QObject>
#include <QString>

namespace tarvin {

class MainWindow;

/// The help menu: user guide, support, about. Owned by AppDelegate. Main thread only.
class Help final : public QObject {
    Q_OBJECT

 public:
    /// Window and desktop must outlive this object. `guide` is the path of the user guide; may be
    /// empty.
    Help(MainWindow& window, Desktop& desktop, QString guide);

    void setUrls(const Urls& urls);

    /// Shows "Version ..." in the about window.
    void setVersion(const QString& version) const;

    void buttonHelpManualClicked();
    void helpMenuClicked();
    void supportMenuClicked() { openURLS(urlDict_.support); }
    void aboutMenuClicked();
    /// Opens a URL in the default application. Does nothing if it is empty or invalid.
    void openURLS(const QString& url);

 private:
    MainWindow& window_;
    Desktop& desktop_;
    const QString guide_;
    Urls urlDict_;
};

}  // namespace tarvin
