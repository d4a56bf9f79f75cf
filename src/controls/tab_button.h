#pragma once

#include "controls/hover_button.h"

#include <QString>

namespace tarvin {

/// A tab in the white bar of the results: a drawing and a title beside it. The tab that is shown is
/// the disabled one, so its disabled look is the selected look: a tint, a bold title and a line at
/// the foot, whatever its alpha. Behaves under the pointer as every HoverButton.
class TabButton final : public HoverButton {
    Q_OBJECT

 public:
    /// `glyph` names a drawing of 20 x 20, such as "ui/tab_all".
    TabButton(QString glyph, const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] QString glyph() const { return glyph_; }

    [[nodiscard]] QSize sizeHint() const override;

 protected:
    void draw(QPainter& painter) override;
    [[nodiscard]] double shownOpacity() const override;

 private:
    QString glyph_;
};

}  // namespace tarvin
