#pragma once

#include "controls/painted_button.h"

#include <QIcon>
#include <cstdint>

namespace tarvin {

/// A button with one image, and another one while hovered. It is hovered only while its window is
/// active.
class ButtonHoverSimple final : public PaintedButton {
    Q_OBJECT

 public:
    explicit ButtonHoverSimple(QWidget* parent = nullptr);

    /// Keeps the four images and shows the first. The button itself never shows the last two.
    void setImageNormal(const QIcon& normal, const QIcon& hover, const QIcon& disabled,
                        const QIcon& onClick);

    /// Resets the hover state and, if the button is enabled and resets its image, shows the normal
    /// image. Nothing calls it.
    void resetButton();

    /// Whether the image changes back when the pointer leaves. False by default.
    void setResetImageWhenNotHovering(bool reset) { resetImageWhenNotHovering_ = reset; }
    [[nodiscard]] bool resetImageWhenNotHovering() const { return resetImageWhenNotHovering_; }

    void setButtonID(std::int32_t buttonID) { buttonID_ = buttonID; }
    [[nodiscard]] std::int32_t buttonID() const { return buttonID_; }

    /// Set only by the owner, which does not: then the hover image is shown when the pointer
    /// leaves.
    void setMouseDown(bool mouseDown) { mouseDown_ = mouseDown; }
    [[nodiscard]] bool mouseDown() const { return mouseDown_; }

    [[nodiscard]] const QIcon& normalImage() const { return normalImage_; }
    [[nodiscard]] const QIcon& hoverImage() const { return hoverImage_; }
    [[nodiscard]] const QIcon& disabledImage() const { return disabledImage_; }
    [[nodiscard]] const QIcon& onClickImage() const { return onClickImage_; }

    /// The current image.
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
