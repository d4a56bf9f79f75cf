#include "controls/painted_button.h"

#include "controls/control_fixture.h"
#include "controls/hover_button.h"

#include <gtest/gtest.h>

#include <QShortcut>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleFactory>
#include <QTest>
#include <memory>

namespace tarvin {
namespace {

constexpr QRect paintedButtonGeometry(20, 20, 100, 36);

TEST(PaintedButton, SpaceReturnAndEnterPressIt) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        ControlFixture fixture;
        auto& button = fixture.add<HoverButton>(paintedButtonGeometry);
        const QSignalSpy clicks(&button, &QPushButton::clicked);
        button.setFocus();
        QTest::keyClick(fixture.window().windowHandle(), key);
        EXPECT_EQ(clicks.count(), 1) << key;
    }
}

TEST(PaintedButton, ADisabledOneTakesNoKeysAndNoClicks) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(paintedButtonGeometry);
    button.setEnabled(false);
    const QSignalSpy clicks(&button, &QPushButton::clicked);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::mouseClick(fixture.window().windowHandle(), Qt::LeftButton, {},
                      paintedButtonGeometry.center());
    EXPECT_EQ(clicks.count(), 0);
}

TEST(PaintedButton, AClickPressesIt) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(paintedButtonGeometry);
    const QSignalSpy clicks(&button, &QPushButton::clicked);
    QTest::mouseClick(fixture.window().windowHandle(), Qt::LeftButton, {},
                      paintedButtonGeometry.center());
    EXPECT_EQ(clicks.count(), 1);
}

TEST(PaintedButton, AClickThatEndsOutsideDoesNot) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(paintedButtonGeometry);
    const QSignalSpy clicks(&button, &QPushButton::clicked);
    QTest::mousePress(fixture.window().windowHandle(), Qt::LeftButton, {},
                      paintedButtonGeometry.center());
    QTest::mouseRelease(fixture.window().windowHandle(), Qt::LeftButton, {}, QPoint(200, 200));
    EXPECT_EQ(clicks.count(), 0);
}

TEST(PaintedButton, AHeldKeyPressesItOnce) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        ControlFixture fixture;
        auto& button = fixture.add<HoverButton>(paintedButtonGeometry);
        const QSignalSpy clicks(&button, &QPushButton::clicked);
        button.setFocus();
        const auto send = [&](QEvent::Type type, bool repeated) {
            QKeyEvent event(type, key, Qt::NoModifier, QString(), repeated);
            QCoreApplication::sendEvent(&button, &event);
        };
        send(QEvent::KeyPress, false);
        // As window systems send it: a release with each repetition.
        for (int repetition = 0; repetition < 3; ++repetition) {
            send(QEvent::KeyRelease, true);
            send(QEvent::KeyPress, true);
        }
        send(QEvent::KeyRelease, false);
        EXPECT_EQ(clicks.count(), 1) << key;
    }
}

TEST(PaintedButton, DisablingItMovesTheFocusToTheGivenControl) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(QRect(20, 20, 60, 36));
    auto& next = fixture.add<HoverButton>(QRect(90, 20, 60, 36));
    auto& counterpart = fixture.add<HoverButton>(QRect(160, 20, 60, 36));
    auto& list = fixture.add<HoverButton>(QRect(20, 80, 60, 36));
    button.setFocusAfterDisabling({&counterpart, &list});
    const auto disabled = [&] {
        button.setEnabled(true);
        button.setFocus();
        button.setEnabled(false);
        return fixture.window().focusWidget();
    };
    EXPECT_EQ(disabled(), &counterpart);
    counterpart.setEnabled(false);
    EXPECT_EQ(disabled(), &list);
    counterpart.setEnabled(true);
    counterpart.hide();
    EXPECT_EQ(disabled(), &list);
    list.hide();
    EXPECT_EQ(disabled(), &next);
}

TEST(PaintedButton, TabMovesToTheNextControlNotToTheOneAfterDisabling) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(QRect(20, 20, 60, 36));
    auto& next = fixture.add<HoverButton>(QRect(90, 20, 60, 36));
    auto& counterpart = fixture.add<HoverButton>(QRect(160, 20, 60, 36));
    button.setFocusAfterDisabling({&counterpart});
    button.setFocus();
    QTest::keyClick(fixture.window().windowHandle(), Qt::Key_Tab);
    EXPECT_EQ(fixture.window().focusWidget(), &next);
}

TEST(PaintedButton, TheFocusedOneTakesReturnBeforeTheScreen) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(paintedButtonGeometry);
    const QShortcut shortcut(QKeySequence(Qt::Key_Return), &fixture.window());
    const QSignalSpy screens(&shortcut, &QShortcut::activated);
    const QSignalSpy clicks(&button, &QPushButton::clicked);
    button.setFocus();
    QTest::keyClick(fixture.window().windowHandle(), Qt::Key_Return);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(screens.count(), 0);
    button.clearFocus();
    QTest::keyClick(fixture.window().windowHandle(), Qt::Key_Return);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(screens.count(), 1);
}

TEST(PaintedButton, TheTitleIsItsTextAndItsAccessibleName) {
    HoverButton button;
    button.setTitle(QStringLiteral("Pause"));
    EXPECT_EQ(button.text(), QStringLiteral("Pause"));
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Pause"));
    button.setTitle(QStringLiteral("Resume"));
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Resume"));
}

TEST(PaintedButton, AGivenNameIsKept) {
    HoverButton button;
    button.setAccessibleName(QStringLiteral("Back"));
    button.setTitle(QStringLiteral("<"));
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Back"));
}

TEST(PaintedButton, AnAmpersandIsALetter) {
    HoverButton button;
    button.setTitle(QStringLiteral("Sets & files"));
    EXPECT_EQ(button.text(), QStringLiteral("Sets & files"));
    EXPECT_TRUE(button.shortcut().isEmpty());
}

TEST(PaintedButton, OneShownUnderThePointerIsHoveredImmediately) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(paintedButtonGeometry);
    button.hide();
    fixture.movePointer(paintedButtonGeometry.center());
    EXPECT_FALSE(button.hovering());
    button.show();
    EXPECT_TRUE(button.hovering());
    button.hide();
    EXPECT_FALSE(button.hovering());
    EXPECT_DOUBLE_EQ(button.alpha(), 1.0);
}

TEST(PaintedButton, OneMovedOrResizedFromUnderThePointerIsNotHoveredAnyMore) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(paintedButtonGeometry);
    fixture.movePointer(paintedButtonGeometry.center());
    button.move(150, 20);
    EXPECT_FALSE(button.hovering());
    button.move(paintedButtonGeometry.topLeft());
    EXPECT_TRUE(button.hovering());
    button.resize(10, 10);
    EXPECT_FALSE(button.hovering());
}

TEST(PaintedButton, ACoveredOneIsNotHovered) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(paintedButtonGeometry);
    fixture.add<QWidget>(QRect(0, 0, 300, 250));
    fixture.movePointer(paintedButtonGeometry.center());
    button.resize(90, 30);
    EXPECT_FALSE(button.hovering());
}

TEST(PaintedButton, NoStyleChangesIt) {
    for (const QString& name : QStyleFactory::keys()) {
        ControlFixture fixture;
        const std::unique_ptr<QStyle> style(QStyleFactory::create(name));
        auto& button = fixture.add<HoverButton>(paintedButtonGeometry);
        button.setStyle(style.get());
        button.setFill(QColor(14, 116, 138));
        EXPECT_THAT(fixture.at(20, 20), IsRgb(14, 116, 138)) << name.toStdString();
        EXPECT_THAT(fixture.at(119.5, 55.5), IsRgb(14, 116, 138)) << name.toStdString();
        delete &button;
    }
}

TEST(PaintedButton, ADarkPaletteDoesNotChangeIt) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(paintedButtonGeometry, HoverButton::Kind::quiet,
                                            QStringLiteral("OOO"));
    const QImage light = fixture.screenshot(paintedButtonGeometry);
    QPalette dark(Qt::black);
    dark.setColor(QPalette::ButtonText, Qt::white);
    button.setPalette(dark);
    EXPECT_EQ(fixture.screenshot(paintedButtonGeometry), light);
}

/// Green, with a white square in its middle.
class TwoLayers final : public PaintedButton {
 public:
    using PaintedButton::PaintedButton;

 protected:
    void draw(QPainter& painter) override {
        painter.fillRect(rect(), QColor(0, 100, 0));
        painter.fillRect(rect().adjusted(30, 10, -30, -10), Qt::white);
    }
};

TEST(PaintedButton, IsFadedAsAWholeAtEveryPixelRatio) {
    ControlFixture fixture(QColor(200, 200, 200));
    auto& button = fixture.add<TwoLayers>(paintedButtonGeometry);
    button.setAlpha(0.6);
    for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        QImage image((QSizeF(fixture.window().size()) * ratio).toSize(), QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        fixture.window().render(&image);
        const auto at = [&](QPoint point) {
            return image.pixelColor((QPointF(point) * ratio).toPoint());
        };
        EXPECT_THAT(at(paintedButtonGeometry.center()), IsRgb(233, 233, 233)) << ratio;
        EXPECT_THAT(at(paintedButtonGeometry.topLeft() + QPoint(5, 5)), IsRgb(80, 140, 80))
            << ratio;
        EXPECT_THAT(at(paintedButtonGeometry.bottomRight() - QPoint(1, 1)), IsRgb(80, 140, 80))
            << ratio;
        EXPECT_THAT(at(paintedButtonGeometry.bottomRight() + QPoint(3, 3)), IsRgb(200, 200, 200))
            << ratio;
    }
}

}  // namespace
}  // namespace tarvin
