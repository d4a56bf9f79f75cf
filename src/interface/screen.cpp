#include "interface/screen.h"

#include "controls/solid_bars.h"

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

void Screen::showInBar(QWidget* control) {
    inBar_.push_back(control);
    control->hide();
}

QAction* Screen::addShortcut(const QList<QKeySequence>& keys, QAbstractButton* button) {
    QAction* shortcut = shortcuts_.add(keys, [button] { button->click(); });
    shortcut->setObjectName(button->objectName() + QStringLiteral("Shortcut"));
    return shortcut;
}

}  // namespace tarvin
