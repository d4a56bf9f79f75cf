#pragma once

#include <gmock/gmock.h>

#include <QColor>
#include <QImage>
#include <QObject>
#include <QWidget>
#include <utility>

namespace tarvin {

/// Matches a QColor whose channels differ by at most 2.
MATCHER_P3(IsRgb, red, green, blue, "") {
    *result_listener << arg.red() << ',' << arg.green() << ',' << arg.blue();
    constexpr int slack = 2;
    return std::abs(arg.red() - red) <= slack && std::abs(arg.green() - green) <= slack &&
           std::abs(arg.blue() - blue) <= slack;
}

/// Suppresses enter and leave events, as Qt does while a menu is open and after it has closed.
class UntoldPointer final : public QObject {
 public:
    UntoldPointer();

    bool eventFilter(QObject* watched, QEvent* event) override;
};

/// An active window of 300 x 250 on which a test places controls. The background is the page
/// colour, 243,246,248, by default. The pointer starts outside.
class ControlFixture final {
 public:
    explicit ControlFixture(const QColor& background = QColor(243, 246, 248));
    ~ControlFixture();
    ControlFixture(const ControlFixture&) = delete;
    ControlFixture& operator=(const ControlFixture&) = delete;

    /// Adds a control to the window and shows it.
    template <typename Control, typename... Arguments>
    Control& add(const QRect& geometry, Arguments&&... arguments) {
        auto* control = new Control(std::forward<Arguments>(arguments)..., &window_);
        control->setGeometry(geometry);
        control->show();
        return *control;
    }

    [[nodiscard]] QWidget& window() { return window_; }

    /// Moves the pointer to a point in the window, or to the centre of a control.
    void movePointer(const QPoint& position);
    void movePointerTo(const QWidget& control);
    void movePointerAway();
    /// Moves the pointer out of the window without an event.
    void loseThePointer();

    /// Activates another window, or this one again.
    void deactivate();
    void activate();

    /// The cursor set on the platform window.
    [[nodiscard]] Qt::CursorShape cursor() const;

    /// The colour at a point of the window, in logical pixels; .5 is the second pixel at device
    /// pixel ratio 2.
    [[nodiscard]] QColor at(double x, double y);

    /// Waits until a point of the window has a colour on the screen, with a tolerance of 2. Unlike
    /// at() it does not paint: a missing update() is visible. Returns false after 20 s.
    [[nodiscard]] bool isShownAt(double x, double y, const QColor& color) const;

    /// Whether an area of the window contains a colour, with a tolerance of 2.
    [[nodiscard]] bool holds(const QRect& part, const QColor& color);

    /// A screenshot of an area of the window.
    [[nodiscard]] QImage screenshot(const QRect& part);

 private:
    QWidget window_;
    QWidget other_;
};

/// Whether the channels of two colours differ by at most 2.
[[nodiscard]] bool isNear(const QColor& one, const QColor& other);

/// The bounding rectangle, in pixels, of all pixels that differ from `background`.
[[nodiscard]] QRect inkBounds(const QImage& image, const QColor& background);

}  // namespace tarvin
