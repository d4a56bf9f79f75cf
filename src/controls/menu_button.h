#pragma once

#include "controls/hover_button.h"

#include <QMenu>

namespace tarvin {

/// A button of the blue bars with an icon instead of a title. Its owner opens the menu on
/// clicked(); the Down key clicks it, too. It looks pressed while the menu is open. Assistive
/// technology sees a button with a menu. Owned by its parent. Main thread only.
class MenuButton final : public HoverButton {
    Q_OBJECT

 public:
    /// `pictureName` is the name of an image. `menu` must outlive the button.
    MenuButton(QString pictureName, QMenu* menu, QWidget* parent = nullptr);

    [[nodiscard]] bool isOpen() const { return isOpen_; }
    [[nodiscard]] QSize sizeHint() const override { return {29, 29}; }

 protected:
    void draw(QPainter& painter) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void setOpen(bool open);

    const QString pictureName_;
    bool isOpen_ = false;
};

}  // namespace tarvin
