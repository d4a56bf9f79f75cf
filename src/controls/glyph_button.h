#pragma once

#include "controls/hover_button.h"

#include <QString>

namespace tarvin {

/// A quiet button with an image instead of a title. Its owner sets the accessible name. Main thread
/// only.
class GlyphButton final : public HoverButton {
    Q_OBJECT

 public:
    /// `glyph` is the name of an image of 18 x 18, such as "ui/move_up".
    explicit GlyphButton(QString glyph, QWidget* parent = nullptr);

 protected:
    void draw(QPainter& painter) override;

 private:
    QString glyph_;
};

}  // namespace tarvin
