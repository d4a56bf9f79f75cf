#include "controls/accessible_menu_button.h"

#include "controls/menu_button.h"

namespace tarvin {

namespace {

QAccessibleInterface* menuButtonInterface(const QString& className, QObject* object) {
    Q_UNUSED(className)
    auto* button = qobject_cast<MenuButton*>(object);
    return button == nullptr ? nullptr : new AccessibleMenuButton(*button);
}

}  // namespace

AccessibleMenuButton::AccessibleMenuButton(MenuButton& button)
    : QAccessibleWidget(&button, QAccessible::ButtonMenu), button_(button) {}

void AccessibleMenuButton::install() {
    [[maybe_unused]] static const bool done = [] {
        QAccessible::installFactory(menuButtonInterface);
        return true;
    }();
}

QAccessible::State AccessibleMenuButton::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.hasPopup = true;
    state.expandable = true;
    state.expanded = button_.isOpen();
    state.collapsed = !state.expanded;
    return state;
}

QStringList AccessibleMenuButton::actionNames() const {
    return {pressAction(), setFocusAction()};
}

void AccessibleMenuButton::doAction(const QString& actionName) {
    if (actionName == pressAction()) {
        button_.click();
    } else {
        QAccessibleWidget::doAction(actionName);
    }
}

}  // namespace tarvin
