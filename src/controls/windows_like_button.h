#pragma once

#include "controls/hover_button.h"

#include <QString>

namespace tarvin {

/// A teal square with a white edge of 2 logical pixels and a white chevron: back and next. Hover as
/// for HoverButton; opacity 0.4 when disabled.
// NOLINTNEXTLINE(readability-identifier-naming)
class WIndowsLikeButton final : public HoverButton {
    Q_OBJECT

 public:
    /// `glyph` is the name of an image of 20 x 20, such as "ui/back".
    explicit WIndowsLikeButton(QString glyph, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override { return {32, 32}; }

 protected:
    void draw(QPainter& painter) override;

 private:
    QString glyph_;
};

}  // namespace tarvin
