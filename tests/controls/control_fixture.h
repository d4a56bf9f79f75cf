#pragma once

#include <gmock/gmock.h>

#include <QColor>
#include <QImage>
#include <QObject>
#include <QWidget>
#include <utility>

namespace tarvin {

/// Holds if a QColor is this one, give or take 2 in each part.
MATCHER_P3(IsRgb, red, green, blue, "") {
    *result_listener << arg.red() << ',' << arg.green() << ',' << arg.blue();
    constexpr int slack = 2;
    return std::abs(arg.red() - red) <= slack && std::abs(arg.green() - green) <= slack &&
           std::abs(arg.blue() - blue) <= slack;
}

/// While it is there nobody is told of the pointer's ways, as Qt does while a menu is open and
/// after it has closed.
class UntoldPointer final : public QObject {
 public:
    UntoldPointer();

    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// An active window of 300 x 250 with a background of one colour (the page colour, 243,246,248, at
/// first), on which a test lays out controls. The pointer starts outside.
class ControlFixture final {
 public:
    explicit ControlFixture(const QColor& background = QColor(243, 246, 248));
    ~ControlFixture();
    ControlFixture(const ControlFixture&) = delete;
    ControlFixture& operator=(const ControlFixture&) = delete;

    /// A control of the window, shown at `place`.
    template <typename Control, typename... Arguments>
    Control& add(const QRect& place, Arguments&&... arguments) {
        auto* control = new Control(std::forward<Arguments>(arguments)..., &window_);
        control->setGeometry(place);
        control->show();
        return *control;
    }

    [[nodiscard]] QWidget& window() { return window_; }

    /// Moves the pointer to a place in the window, or into the middle of a control.
    void movePointer(const QPoint& place);
    void movePointerTo(const QWidget& control);
    void movePointerAway();
    /// The pointer is outside the window, but nobody is told so.
    void loseThePointer();

    /// Takes the window for another one, so that ours is active no longer, and gives it back.
    void deactivate();
    void activate();

    /// The cursor that the window system was told to show.
    [[nodiscard]] Qt::CursorShape cursor() const;

    /// The colour at a place of the window, in logical pixels; halves mean the second pixel at the
    /// double density.
    [[nodiscard]] QColor at(double x, double y);

    /// Whether a colour, give or take 2, is anywhere in a part of the window.
    [[nodiscard]] bool holds(const QRect& part, const QColor& color);

    /// The part of the window as it is painted now.
    [[nodiscard]] QImage picture(const QRect& part);

 private:
    QWidget window_;
    QWidget other_;
};

/// Whether two colours are the same, give or take 2 in each part.
[[nodiscard]] bool isNear(const QColor& one, const QColor& other);

/// The smallest rectangle, in pixels, around all that differs from `background`.
[[nodiscard]] QRect inkBounds(const QImage& image, const QColor& background);

}  // namespace tarvin
