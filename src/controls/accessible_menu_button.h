#pragma once

#include <QAccessibleWidget>

namespace tarvin {

class MenuButton;

/// How assistive technology finds a MenuButton: as a button with a menu, which it can press. Owned
/// by Qt.
class AccessibleMenuButton final : public QAccessibleWidget {
 public:
    explicit AccessibleMenuButton(MenuButton& button);

    /// Has Qt ask this class about every MenuButton from now on; once is enough.
    static void install();

    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

 private:
    MenuButton& button_;
};

}  // namespace tarvin
