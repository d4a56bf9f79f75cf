#pragma once

#include "controls/attributed_title.h"
#include "controls/painted_button.h"

#include <QColor>

namespace tarvin {

/// A flat button with a title. While hovered its alpha is 0.7 and the cursor is a hand; afterwards
/// the alpha is 1.0. A disabled button keeps its alpha and shows the not-allowed cursor. A button
/// that was disabled while hovered is painted as if not hovered, and its alpha is set to 1.0 when
/// it is enabled while not hovered.
class HoverButton : public PaintedButton {
    Q_OBJECT

 public:
    enum class Kind {
        filled,   ///< filled with a colour, white bold title
        quiet,    ///< white with an outline, ink title of medium weight
        outline,  ///< for the blue bars: white outline and title, no background
        text      ///< an underlined title without background or outline
    };

    explicit HoverButton(QWidget* parent = nullptr);
    HoverButton(Kind kind, const QString& title, QWidget* parent = nullptr);

    /// Sets the kind with its font, the colour of its focus ring and, for `quiet`, its background.
    void setKind(Kind kind);
    [[nodiscard]] Kind kind() const { return kind_; }

    /// The colour of a filled button; by default the blue of panels.
    void setFill(const QColor& fill);
    [[nodiscard]] QColor fill() const { return fill_; }

    /// The radius of the corners in logical pixels; 0 by default.
    void setCornerRadius(double radius);
    [[nodiscard]] double cornerRadius() const { return cornerRadius_; }

    /// Sets the title and its attributes. A disabled quiet button has its own title colour.
    void setAttributedTitle(const AttributedTitle& title);
    [[nodiscard]] AttributedTitle attributedTitle() const;

    /// The opacity of a disabled button, unless its alpha is less. 0.45 by default; 0.6 for Scan
    /// and Delete. Quiet buttons change their colours instead.
    void setDisabledOpacity(double opacity);
    [[nodiscard]] double disabledOpacity() const { return disabledOpacity_; }

    /// Whether a quiet button is on the grey bar, where its disabled colours are darker.
    void setOnGrayBar(bool onGrayBar);

    [[nodiscard]] QSize sizeHint() const override;

 protected:
    void draw(QPainter& painter) override;
    void mouseEntered() override;
    void mouseExited() override;
    [[nodiscard]] double shownOpacity() const override;
    void changeEvent(QEvent* event) override;

    /// Paints the background and the outline.
    void drawBackground(QPainter& painter);
    void drawTitle(QPainter& painter);

 private:
    struct QuietColors {
        QColor background;
        QColor line;
        QColor text;
    };

    [[nodiscard]] QuietColors quietColors() const;
    [[nodiscard]] QColor titleColor() const;
    void paintBackground(QPainter& painter, const QColor& color) const;
    void updateCursor();

    Kind kind_ = Kind::filled;
    QColor fill_;
    AttributedTitle look_;  // its text is not used; text() is the title
    double cornerRadius_ = 0;
    double disabledOpacity_ = 0.45;
    bool onGrayBar_ = false;
};

}  // namespace tarvin
