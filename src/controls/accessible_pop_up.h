#pragma once

#include <QAccessibleWidget>

namespace tarvin {

class PopUpButton;

/// How assistive technology finds a PopUpButton: as a combo box whose name is the button's own and
/// whose value is the item shown. Qt's own answer would give the item as the name. Owned by Qt.
class AccessiblePopUp final : public QAccessibleWidget {
 public:
    explicit AccessiblePopUp(PopUpButton& button);

    /// Has Qt ask this class about every PopUpButton from now on; once is enough.
    static void install();

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

 private:
    PopUpButton& button_;
};

}  // namespace tarvin
