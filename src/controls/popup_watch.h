#pragma once

#include <QObject>

namespace tarvin {

/// Says when a menu, or the list of a pop-up button, has closed. While it is open the pointer
/// belongs to it, and Qt does not tell what is under the pointer afterwards that it was left. One
/// for the program; main thread.
class PopupWatch final : public QObject {
    Q_OBJECT

 public:
    /// Made at the first call, after the application.
    static PopupWatch& instance();

    bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
    /// It is gone from the screen.
    void closed();

 private:
    explicit PopupWatch(QObject* application);
};

}  // namespace tarvin
