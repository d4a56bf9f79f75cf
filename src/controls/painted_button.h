#pragma once

#include "controls/borrowed_cursor.h"
#include "controls/focus_ring.h"

#include <QColor>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QString>
#include <QVector>

namespace tarvin {

/// What the program's own buttons have in common: they paint themselves whatever the style, have an
/// alpha of their own, know whether the pointer is inside, show the keyboard focus, and are pressed
/// by Space, Return and Enter. Owned by their parent. Main thread.
class PaintedButton : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(double alpha READ alpha WRITE setAlpha)

 public:
    /// When the pointer counts as inside.
    enum class Tracking {
        always,
        inKeyWindow,         ///< only while the button's window is the active one
        inActiveApplication  ///< only while a window of the program is active
    };

    explicit PaintedButton(QWidget* parent, Tracking tracking = Tracking::always);

    /// How opaque the whole button is, 0 to 1; values outside are clamped.
    void setAlpha(double alpha);
    [[nodiscard]] double alpha() const { return alpha_; }

    /// The visible text; it is text() too, and the accessible name unless another name was given.
    void setTitle(const QString& title);
    [[nodiscard]] QString title() const { return text(); }

    /// Whether the button takes the pointer for being inside. Setting it repaints, and does nothing
    /// else of what the pointer's coming and going does.
    void setHovering(bool hovering);
    [[nodiscard]] bool hovering() const { return hovering_; }

    /// Where and in which colour the keyboard focus is shown. First: outside, in the dark ring.
    void setFocusRing(FocusRing::Place place, const QColor& color);

    /// Whether the focus ring is to be seen now.
    [[nodiscard]] bool showsFocusRing() const;

    /// Who has the keyboard next if the button is disabled while it has it: the first of `controls`
    /// that is shown and enabled then. Without one it is the next control in the tab order, which
    /// may do something else altogether on the next key. Not owned.
    void setFocusAfterDisabling(const QVector<QWidget*>& controls);

    /// Looks where the pointer is and behaves as if it had just come in or gone out. Called by the
    /// button itself whenever it is shown, moved, resized, enabled, disabled or clicked, and when a
    /// menu has closed.
    void updateTrackingAreas();

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    /// Paints the button into its rect(), as if it were opaque.
    virtual void draw(QPainter& painter) = 0;

    /// What the pointer's coming and going does, after hovering() has changed. Both may come twice
    /// in a row.
    virtual void mouseEntered() {}
    virtual void mouseExited() {}

    /// The opacity to paint with; alpha() unless a class knows better.
    [[nodiscard]] virtual double shownOpacity() const { return alpha_; }

    /// The cursor over the whole button, also while it is disabled.
    void showCursor(Qt::CursorShape shape);

    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// One whose signals are blocked does not turn either.
    void nextCheckState() override;
    void paintEvent(QPaintEvent* event) override;

 private:
    [[nodiscard]] bool isTracked() const;
    void enter();
    void exit();
    void showRing(bool shown);

    Tracking tracking_;
    double alpha_ = 1.0;
    bool hovering_ = false;
    BorrowedCursor borrowedCursor_;
    FocusRing::Place ringPlace_ = FocusRing::Place::outside;
    QColor ringColor_;
    QPointer<FocusRing> ring_;
    QVector<QPointer<QWidget>> afterDisabling_;
};

}  // namespace tarvin
