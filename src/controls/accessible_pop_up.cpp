#include "controls/accessible_pop_up.h"

#include "controls/pop_up_button.h"

#include <QAbstractItemView>

namespace tarvin {

namespace {

QAccessibleInterface* popUpInterface(const QString& className, QObject* object) {
    Q_UNUSED(className)
    auto* button = qobject_cast<PopUpButton*>(object);
    return button == nullptr ? nullptr : new AccessiblePopUp(*button);
}

}  // namespace

AccessiblePopUp::AccessiblePopUp(PopUpButton& button)
    : QAccessibleWidget(&button, QAccessible::ComboBox), button_(button) {}

void AccessiblePopUp::install() {
    [[maybe_unused]] static const bool done = [] {
        QAccessible::installFactory(popUpInterface);
        return true;
    }();
}

QString AccessiblePopUp::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? button_.currentText() : QAccessibleWidget::text(kind);
}

QAccessible::State AccessiblePopUp::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.expandable = true;
    state.expanded = button_.view()->isVisible();
    state.collapsed = !state.expanded;
    return state;
}

QStringList AccessiblePopUp::actionNames() const {
    return {showMenuAction(), setFocusAction()};
}

void AccessiblePopUp::doAction(const QString& actionName) {
    if (actionName != showMenuAction()) {
        QAccessibleWidget::doAction(actionName);
    } else if (button_.isEnabled()) {
        button_.view()->isVisible() ? button_.hidePopup() : button_.showPopup();
    }
}

}  // namespace tarvin
