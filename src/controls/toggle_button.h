#pragma once

#include "controls/hover_button.h"

#include <QString>

namespace tarvin {

/// A square button that is on or off, with an icon for each; on it is tinted with a teal outline.
/// Its name is only for assistive technology. Hover as for HoverButton.
class ToggleButton final : public HoverButton {
    Q_OBJECT

 public:
    /// The glyphs are names of images of 20 x 20, such as "ui/ascending".
    ToggleButton(QString onGlyph, QString offGlyph, QWidget* parent = nullptr);

    /// The current icon.
    [[nodiscard]] const QString& glyph() const { return isChecked() ? onGlyph_ : offGlyph_; }

    [[nodiscard]] QSize sizeHint() const override { return {32, 32}; }

 protected:
    void draw(QPainter& painter) override;

 private:
    QString onGlyph_;
    QString offGlyph_;
};

}  // namespace tarvin
