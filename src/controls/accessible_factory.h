#pragma once

#include <QAccessible>
#include <QObject>

namespace tarvin {

/// Makes Qt use `Interface` as the accessible interface of every `Control` from now on. Further
/// calls have no effect. Main thread only.
template <class Control, class Interface>
void installAccessible() {
    [[maybe_unused]] static const bool done = [] {
        QAccessible::installFactory([](const QString&, QObject* object) -> QAccessibleInterface* {
            auto* control = qobject_cast<Control*>(object);
            return control == nullptr ? nullptr : new Interface(*control);
        });
        return true;
    }();
}

}  // namespace tarvin
