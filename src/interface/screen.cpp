#include "interface/screen.h"

#include "controls/view_top_bar.h"

#include <QAbstractButton>
#include <QAction>
#include <QKeySequence>
#include <utility>

namespace tarvin {

Screen::Screen(QString identifier, ViewTopBar* bar)
    : identifier_(std::move(identifier)), bar_(bar) {
    resize(designSize);
}

void Screen::setBarShown(bool shown) {
    for (QWidget* control : inBar_) {
        control->setVisible(shown);
    }
}

void Screen::beginWithKeyboard() {
    if (firstControl_ != nullptr) {
        firstControl_->setFocus(Qt::OtherFocusReason);
    }
}

void Screen::setShortcutsEnabled(bool enabled) {
    for (QAction* shortcut : shortcuts_) {
        shortcut->setEnabled(enabled);
    }
}

void Screen::showInBar(QWidget* control) {
    inBar_.push_back(control);
    control->hide();
}

QAction* Screen::addShortcut(const QList<QKeySequence>& keys, QAbstractButton* button) {
    auto* shortcut = new QAction(this);
    shortcut->setObjectName(button->objectName() + QStringLiteral("Shortcut"));
    shortcut->setShortcuts(keys);
    shortcut->setAutoRepeat(false);
    connect(shortcut, &QAction::triggered, button, [button] { button->click(); });
    addAction(shortcut);
    shortcuts_.push_back(shortcut);
    return shortcut;
}

}  // namespace tarvin
