#include "interface/shortcuts.h"

#include <QAction>
#include <QWidget>

namespace tarvin {

QAction* Shortcuts::add(const QList<QKeySequence>& keys, const std::function<void()>& act) {
    auto* shortcut = new QAction(&owner_);
    shortcut->setShortcuts(keys);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QAction::triggered, &owner_, act);
    owner_.addAction(shortcut);
    actions_.push_back(shortcut);
    return shortcut;
}

void Shortcuts::setEnabled(bool enabled) {
    for (QAction* action : actions_) {
        action->setEnabled(enabled);
    }
}

}  // namespace tarvin
