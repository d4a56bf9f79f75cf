#pragma once

#include "controls/hover_button.h"

#include <QMenu>

namespace tarvin {

/// A button of the blue bars with a picture in place of a title, for a menu that its owner opens
/// when it is clicked; Down clicks it, too. It looks pressed while the menu is open. Assistive
/// technology finds a button with a menu. Owned by its parent; main thread.
class MenuButton final : public HoverButton {
    Q_OBJECT

 public:
    /// `pictureName` is that of a drawing, `menu` outlives the button.
    MenuButton(QString pictureName, QMenu* menu, QWidget* parent = nullptr);

    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] QSize sizeHint() const override { return {29, 29}; }

 protected:
    void draw(QPainter& painter) override;
    void drawBackground(QPainter& painter) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void setOpen(bool open);

    const QString pictureName_;
    bool isOpen_ = false;
};

}  // namespace tarvin
