#pragma once

#include <QObject>

namespace tarvin {

/// Reports when a menu or the list of a pop-up button has closed. While it is open it grabs the
/// pointer, and Qt sends the widgets below no leave event afterwards. One for the program. Main
/// thread only.
class PopupWatch final : public QObject {
    Q_OBJECT

 public:
    /// Created by the first call, which needs the application object.
    static PopupWatch& instance();

    bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
    /// A menu or list was hidden.
    void closed();

 private:
    explicit PopupWatch(QObject* application);
};

}  // namespace tarvin
