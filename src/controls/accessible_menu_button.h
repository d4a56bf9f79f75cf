#pragma once

#include <QAccessibleWidget>

namespace tarvin {

class MenuButton;

/// The accessible interface of a MenuButton: a button with a menu, which can be pressed. Owned by
/// Qt.
class AccessibleMenuButton final : public QAccessibleWidget {
 public:
    explicit AccessibleMenuButton(MenuButton& button);

    /// Makes Qt use this class for every MenuButton from now on. Further calls have no effect.
    static void install();

    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

 private:
    MenuButton& button_;
};

}  // namespace tarvin
