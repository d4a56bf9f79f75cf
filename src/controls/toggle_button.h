#pragma once

#include "controls/hover_button.h"

#include <QString>

namespace tarvin {

/// A square button that is on or off and shows a drawing for each; on it is tinted with a teal
/// line. Its name is for assistive technology alone. Behaves under the pointer as every
/// HoverButton.
class ToggleButton final : public HoverButton {
    Q_OBJECT

 public:
    /// The glyphs name drawings of 20 x 20, such as "ui/ascending".
    ToggleButton(QString onGlyph, QString offGlyph, QWidget* parent = nullptr);

    /// The drawing that is shown.
    [[nodiscard]] const QString& glyph() const { return isChecked() ? onGlyph_ : offGlyph_; }

    [[nodiscard]] QSize sizeHint() const override { return {32, 32}; }

 protected:
    void draw(QPainter& painter) override;
    void drawBackground(QPainter& painter) override;

 private:
    QString onGlyph_;
    QString offGlyph_;
};

}  // namespace tarvin
