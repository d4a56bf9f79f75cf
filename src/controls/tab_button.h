#pragma once

#include "controls/hover_button.h"

#include <QString>

namespace tarvin {

/// A tab in the white bar of the results: an icon and a title. The current tab is the disabled one,
/// so its disabled look is the selected look, at any alpha: a tint, a bold title and a line at the
/// bottom. Hover as for HoverButton.
class TabButton final : public HoverButton {
    Q_OBJECT

 public:
    /// `glyph` is the name of an image of 20 x 20, such as "ui/tab_all".
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
