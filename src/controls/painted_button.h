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

/// The base of the program's buttons: painted independent of the style, with an alpha, hover state
/// and focus ring, and activated by Space, Return and Enter. Owned by its parent. Main thread only.
class PaintedButton : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(double alpha READ alpha WRITE setAlpha)

 public:
    /// When the button counts as hovered.
    enum class Tracking {
        always,
        inKeyWindow,         ///< only while the button's window is the active one
        inActiveApplication  ///< only while a window of the program is active
    };

    explicit PaintedButton(QWidget* parent, Tracking tracking = Tracking::always);

    /// The opacity of the whole button, 0 to 1; clamped.
    void setAlpha(double alpha);
    [[nodiscard]] double alpha() const { return alpha_; }

    /// The visible text, returned by text(); also the accessible name unless another one was set.
    void setTitle(const QString& title);
    [[nodiscard]] QString title() const { return text(); }

    /// Whether the button is hovered. Setting it repaints, but does not call mouseEntered() or
    /// mouseExited().
    void setHovering(bool hovering);
    [[nodiscard]] bool hovering() const { return hovering_; }

    /// Position and colour of the focus ring. By default outside and dark.
    void setFocusRing(FocusRing::Position position, const QColor& color);

    /// Whether the focus ring is shown.
    [[nodiscard]] bool showsFocusRing() const;

    /// The controls that get the focus when the button is disabled while it has the focus: the
    /// first one that is then shown and enabled. Otherwise it is the next control in the tab order,
    /// which may do something unrelated on the next key. Not owned.
    void setFocusAfterDisabling(const QVector<QWidget*>& controls);

    /// Updates the hover state from the position of the pointer. Called by the button whenever it
    /// is shown, moved, resized, enabled, disabled or clicked, and when a menu has closed.
    void updateTrackingAreas();

    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    /// Paints the button into its rect() at full opacity.
    virtual void draw(QPainter& painter) = 0;

    /// Called after hovering() has changed. Either may be called twice in a row.
    virtual void mouseEntered() {}
    virtual void mouseExited() {}

    /// The opacity to paint with; alpha() by default.
    [[nodiscard]] virtual double shownOpacity() const { return alpha_; }

    /// Sets the cursor over the button, even while it is disabled.
    void showCursor(Qt::CursorShape shape);

    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void changeEvent(QEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    /// A button with blocked signals does not change its check state.
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
    FocusRing::Position ringPosition_ = FocusRing::Position::outside;
    QColor ringColor_;
    QPointer<FocusRing> ring_;
    QVector<QPointer<QWidget>> afterDisabling_;
};

}  // namespace tarvin
