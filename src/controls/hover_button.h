#pragma once

#include "controls/attributed_title.h"
#include "controls/painted_button.h"

#include <QColor>

namespace tarvin {

/// A flat button with a title. Under the pointer its alpha is 0.7 with a hand for a cursor, and 1.0
/// when the pointer has gone; a disabled one keeps its alpha and shows the not-allowed cursor. One
/// that was disabled under the pointer is painted as if the pointer had never come, and gets its
/// alpha of 1.0 back when it is enabled elsewhere.
class HoverButton : public PaintedButton {
    Q_OBJECT

 public:
    enum class Kind {
        filled,   ///< a coloured ground, white bold title
        quiet,    ///< white with a thin line, ink title of medium weight
        outline,  ///< for the blue bars: a thin white line, white title, no ground
        text      ///< an underlined title without ground or frame
    };

    explicit HoverButton(QWidget* parent = nullptr);
    HoverButton(Kind kind, const QString& title, QWidget* parent = nullptr);

    /// Sets the kind with its font, the colour of its focus ring and, for `quiet`, of its ground.
    void setKind(Kind kind);
    [[nodiscard]] Kind kind() const { return kind_; }

    /// The ground of a filled button. First the blue of panels.
    void setFill(const QColor& fill);
    [[nodiscard]] QColor fill() const { return fill_; }

    /// Rounds the corners by so many logical pixels. First 0.
    void setCornerRadius(double radius);
    [[nodiscard]] double cornerRadius() const { return cornerRadius_; }

    /// Sets the title and its looks. A colour here does not outlive the button's being disabled if
    /// the button is quiet, which has a colour for that.
    void setAttributedTitle(const AttributedTitle& title);
    [[nodiscard]] AttributedTitle attributedTitle() const;

    /// How opaque a disabled button is, unless its alpha is even less. First 0.45; 0.6 for Scan and
    /// Delete. Quiet buttons change their colours instead.
    void setDisabledOpacity(double opacity);
    [[nodiscard]] double disabledOpacity() const { return disabledOpacity_; }

    /// Says that a quiet button lies on the grey bar, where its disabled colours are darker.
    void setOnGrayBar(bool onGrayBar);

    [[nodiscard]] QSize sizeHint() const override;

 protected:
    void draw(QPainter& painter) override;
    void mouseEntered() override;
    void mouseExited() override;
    [[nodiscard]] double shownOpacity() const override;
    void changeEvent(QEvent* event) override;

    /// Paints the ground and the line round it.
    virtual void drawBackground(QPainter& painter);
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
    AttributedTitle look_;  // its text is not used; the button's own is
    double cornerRadius_ = 0;
    double disabledOpacity_ = 0.45;
    bool onGrayBar_ = false;
};

}  // namespace tarvin
