#pragma once

#include "interface/shortcuts.h"

#include <QString>
#include <QVector>
#include <QWidget>

class QAbstractButton;
class QAction;
class QKeySequence;

namespace tarvin {

class ViewTopBar;

/// One page of the main window's tab view, with what it shows in the bar above. Owned by the
/// window. Main thread.
class Screen : public QWidget {
    Q_OBJECT

 public:
    /// The size of a screen in the design, below the bar.
    static constexpr QSize designSize{1016, 486};
    static constexpr int barHeight = 45;

    /// `identifier` is the name by which the tab view selects the screen.
    Screen(QString identifier, ViewTopBar* bar);

    [[nodiscard]] const QString& identifier() const { return identifier_; }

    /// Shows or hides what this screen has in the bar.
    void setBarShown(bool shown);

    /// The controls that take the keyboard, in reading order.
    [[nodiscard]] const QVector<QWidget*>& readingOrder() const { return readingOrder_; }

    /// Gives the keyboard to the control where a person begins. Does nothing if it is disabled.
    void beginWithKeyboard();

    /// Switches the shortcuts of addShortcut() off and on again.
    void setShortcutsEnabled(bool enabled) { shortcuts_.setEnabled(enabled); }

 protected:
    [[nodiscard]] ViewTopBar* bar() const { return bar_; }
    /// `control` stands in the bar while the screen is shown.
    void showInBar(QWidget* control);
    void setReadingOrder(const QVector<QWidget*>& controls) { readingOrder_ = controls; }
    void setFirstControl(QWidget* control) { firstControl_ = control; }
    /// `keys` press `button` while this screen is shown; nothing happens if it is disabled. The
    /// action is named after the button, with "Shortcut" at the end.
    QAction* addShortcut(const QList<QKeySequence>& keys, QAbstractButton* button);

 private:
    QString identifier_;
    ViewTopBar* bar_;
    QVector<QWidget*> inBar_;
    QVector<QWidget*> readingOrder_;
    QWidget* firstControl_ = nullptr;
    Shortcuts shortcuts_{*this};
};

}  // namespace tarvin
