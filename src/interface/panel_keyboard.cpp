#include "interface/panel_keyboard.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>

namespace tarvin {

void PanelKeyboard::setAnswers(const QVector<QWidget*>& controls, QWidget* first,
                               QAbstractButton* safe) {
    controls_ = controls;
    first_ = first;
    safe_ = safe;
}

void PanelKeyboard::take() {
    QWidget* holder = panel_->window()->focusWidget();
    if (holder != nullptr && !panel_->isAncestorOf(holder)) {
        before_ = holder;
    }
    begin();
}

void PanelKeyboard::giveBack() {
    if (std::exchange(handedOver_, false)) {
        return;
    }
    if (before_ != nullptr && before_->isVisible() && before_->isEnabled()) {
        before_->setFocus(Qt::PopupFocusReason);
    } else if (fallback_) {
        fallback_();
    }
    before_.clear();
}

void PanelKeyboard::handOver(PanelKeyboard& next) {
    next.before_ = before_;
    before_.clear();
    handedOver_ = true;
}

void PanelKeyboard::moveOn(bool next) {
    const auto count = controls_.size();
    const auto step = next ? 1 : count - 1;
    auto at = controls_.indexOf(panel_->window()->focusWidget());
    for (qsizetype tried = 0; tried < count; ++tried) {
        at = at < 0 ? 0 : (at + step) % count;
        QWidget* control = controls_[at];
        if (control->isVisible() && control->isEnabled()) {
            control->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return;
        }
    }
}

void PanelKeyboard::begin() {
    if (first_ != nullptr) {
        first_->setFocus(Qt::PopupFocusReason);
    }
}

bool PanelKeyboard::press(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Escape && safe_ != nullptr) {
        safe_->click();
        return true;
    }
    return false;
}

}  // namespace tarvin
