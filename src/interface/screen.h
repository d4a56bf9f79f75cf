#pragma once

#include "interface/shortcuts.h"

#include <QString>
#include <QVector>
#include <QWidget>
#include <functional>

class QAbstractButton;
class QAction;
class QKeySequence;

namespace tarvin {

class ButtonHoverSimple;
class ElidedLabel;
class ViewTopBar;

/// One page of the main window's tab view, with its controls in the bar above. Owned by the window.
/// Main thread only.
class Screen : public QWidget {
    Q_OBJECT

 public:
    /// The size of a screen in the design, below the bar.
    static constexpr QSize designSize{1016, 486};
    static constexpr int barHeight = 45;

    /// The tab view selects the screen by `identifier`.
    Screen(QString identifier, ViewTopBar* bar);

    [[nodiscard]] const QString& identifier() const { return identifier_; }

    /// Shows or hides the controls of this screen in the bar.
    void setBarShown(bool shown);

    /// The focusable controls in reading order.
    [[nodiscard]] const QVector<QWidget*>& readingOrder() const { return readingOrder_; }

    /// Focuses the first control, unless it is disabled.
    void beginWithKeyboard();

    /// Enables or disables the shortcuts of addShortcut().
    void setShortcutsEnabled(bool enabled) { shortcuts_.setEnabled(enabled); }

 protected:
    /// Shows `control` in the bar while the screen is shown.
    void showInBar(QWidget* control);
    /// Whether `control`, given to showInBar() before, is shown with the others. True at first.
    void setWantedInBar(QWidget* control, bool wanted);
    /// The title of the screen in the bar, elided at the end.
    ElidedLabel* makeTitle(const char* name, const QString& title);
    /// A home button in the bar with its accessible name. The owner of the window sets its images.
    ButtonHoverSimple* makeHomeButton(const char* name);
    void setReadingOrder(const QVector<QWidget*>& controls) { readingOrder_ = controls; }
    void setFirstControl(QWidget* control) { firstControl_ = control; }
    /// Lets `keys` click `button` while this screen is shown and the button is enabled. The object
    /// name of the action is the button's with "Shortcut" appended.
    QAction* addShortcut(const QList<QKeySequence>& keys, QAbstractButton* button);
    /// Lets `keys` call `act` while this screen is shown.
    QAction* addShortcut(const QList<QKeySequence>& keys, const std::function<void()>& act) {
        return shortcuts_.add(keys, act);
    }

 private:
    struct InBar {
        QWidget* control = nullptr;
        bool isWanted = true;
    };

    QString identifier_;
    ViewTopBar* bar_;
    QVector<InBar> inBar_;
    bool isBarShown_ = false;
    QVector<QWidget*> readingOrder_;
    QWidget* firstControl_ = nullptr;
    Shortcuts shortcuts_{*this};
};

}  // namespace tarvin
