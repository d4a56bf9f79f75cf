#pragma once

#include <QAccessibleWidget>

namespace tarvin {

class PopUpButton;

/// The accessible interface of a PopUpButton: a combo box with the button's name, whose value is
/// the current item. Qt's own would use the item as the name. Owned by Qt.
class AccessiblePopUp final : public QAccessibleWidget {
 public:
    explicit AccessiblePopUp(PopUpButton& button);

    /// Makes Qt use this class for every PopUpButton from now on. Further calls have no effect.
    static void install();

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

 private:
    PopUpButton& button_;
};

}  // namespace tarvin
