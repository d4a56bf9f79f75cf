#pragma once

#include "controls/painted_button.h"

#include <QColor>
#include <QIcon>
#include <cstdint>

namespace tarvin {

/// A coloured tile with a title in its upper left and an image of 110 logical pixels in its middle.
/// Under the pointer its alpha is 0.8.
class ButtonHoverComplex final : public PaintedButton {
    Q_OBJECT

 public:
    explicit ButtonHoverComplex(QWidget* parent = nullptr);

    /// Keeps both images and paints only `normal`: its pixmap of width 110 unscaled, if it has one,
    /// otherwise resized to 110 x 110.
    void setImageNormal(const QIcon& normal, const QIcon& arrow);
    [[nodiscard]] const QIcon& normalImage() const { return normalImage_; }
    [[nodiscard]] const QIcon& arrowImage() const { return arrowImage_; }

    void setFillColor(const QColor& fillColor);
    [[nodiscard]] QColor fillColor() const { return fillColor_; }

    /// Resets the hover state. Nothing calls it.
    void resetButton() { setHovering(false); }

    void setButtonID(std::int32_t buttonID) { buttonID_ = buttonID; }
    [[nodiscard]] std::int32_t buttonID() const { return buttonID_; }

    /// Whether the mouse button is held down on it. Setting it repaints.
    void setMouseDown(bool mouseDown);
    [[nodiscard]] bool mouseDown() const { return mouseDown_; }

    [[nodiscard]] QSize sizeHint() const override { return {190, 160}; }

 protected:
    void draw(QPainter& painter) override;
    void mouseEntered() override;
    void mouseExited() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

 private:
    void drawPicture(QPainter& painter, const QRect& content) const;

    std::int32_t buttonID_ = 0;
    bool mouseDown_ = false;
    QIcon normalImage_;
    QIcon arrowImage_;
    QColor fillColor_;
};

}  // namespace tarvin
