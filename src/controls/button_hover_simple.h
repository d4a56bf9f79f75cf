#pragma once

#include "controls/painted_button.h"

#include <QIcon>
#include <cstdint>

namespace tarvin {

/// A button that is one picture, and another one under the pointer. The pointer counts only while
/// the button's window is the active one.
class ButtonHoverSimple final : public PaintedButton {
    Q_OBJECT

 public:
    explicit ButtonHoverSimple(QWidget* parent = nullptr);

    /// Keeps the four pictures and shows the first. The last two are kept for their owner and never
    /// shown by the button itself.
    void setImageNormal(const QIcon& normal, const QIcon& hover, const QIcon& disabled,
                        const QIcon& onClick);

    /// Forgets the pointer. Shows the normal picture if the button is enabled and resets its
    /// picture when the pointer goes. Nothing calls it.
    void resetButton();

    /// Whether the picture changes back when the pointer goes. First false.
    void setResetImageWhenNotHovering(bool reset) { resetImageWhenNotHovering_ = reset; }
    [[nodiscard]] bool resetImageWhenNotHovering() const { return resetImageWhenNotHovering_; }

    void setButtonID(std::int32_t buttonID) { buttonID_ = buttonID; }
    [[nodiscard]] std::int32_t buttonID() const { return buttonID_; }

    /// Set by the owner alone, and none does: the pointer's going then shows the hover picture.
    void setMouseDown(bool mouseDown) { mouseDown_ = mouseDown; }
    [[nodiscard]] bool mouseDown() const { return mouseDown_; }

    [[nodiscard]] const QIcon& normalImage() const { return normalImage_; }
    [[nodiscard]] const QIcon& hoverImage() const { return hoverImage_; }
    [[nodiscard]] const QIcon& disabledImage() const { return disabledImage_; }
    [[nodiscard]] const QIcon& onClickImage() const { return onClickImage_; }

    /// The picture that is shown.
    [[nodiscard]] const QIcon& image() const { return image_; }

    [[nodiscard]] QSize sizeHint() const override { return {45, 45}; }

 protected:
    void draw(QPainter& painter) override;
    void mouseEntered() override;
    void mouseExited() override;
    void changeEvent(QEvent* event) override;

 private:
    void setImage(const QIcon& image);

    std::int32_t buttonID_ = 0;
    bool mouseDown_ = false;
    bool resetImageWhenNotHovering_ = false;
    QIcon normalImage_;
    QIcon hoverImage_;
    QIcon disabledImage_;
    QIcon onClickImage_;
    QIcon image_;
};

}  // namespace tarvin
