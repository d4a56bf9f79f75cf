#include "controls/view_transparent.h"

#include "controls/control_fixture.h"
#include "controls/hover_button.h"

#include <gtest/gtest.h>

#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace tarvin {
namespace {

/// Counts the mouse events that reach it.
class MouseCounter final : public QWidget {
 public:
    using QWidget::QWidget;
    [[nodiscard]] int count() const { return count_; }

 protected:
    void mousePressEvent(QMouseEvent*) override { ++count_; }
    void mouseReleaseEvent(QMouseEvent*) override { ++count_; }
    void mouseDoubleClickEvent(QMouseEvent*) override { ++count_; }
    void mouseMoveEvent(QMouseEvent*) override { ++count_; }
    void wheelEvent(QWheelEvent*) override { ++count_; }
    void contextMenuEvent(QContextMenuEvent*) override { ++count_; }

 private:
    int count_ = 0;
};

TEST(ViewTransparent, AClickOnItReachesNothingBelow) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(QRect(20, 20, 100, 36));
    fixture.add<ViewTransparent>(QRect(0, 0, 300, 250));
    const QSignalSpy clicks(&button, &QPushButton::clicked);
    QTest::mouseClick(fixture.window().windowHandle(), Qt::LeftButton, {}, QPoint(60, 40));
    fixture.movePointer(QPoint(60, 40));
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_FALSE(button.hovering());
    EXPECT_FALSE(button.isDown());
}

TEST(ViewTransparent, NoMouseEventReachesItsParent) {
    ControlFixture fixture;
    auto& parent = fixture.add<MouseCounter>(QRect(0, 0, 300, 250));
    parent.setMouseTracking(true);
    ViewTransparent overlay(&parent);
    overlay.resize(300, 250);
    overlay.show();
    QWindow* window = fixture.window().windowHandle();
    QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(60, 40));
    QTest::mouseDClick(window, Qt::LeftButton, {}, QPoint(60, 40));
    fixture.movePointer(QPoint(70, 50));
    QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, QPoint(0, 120), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&overlay, &wheel);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(&overlay, &menu);
    EXPECT_EQ(parent.count(), 0);
    overlay.hide();
    QTest::mouseClick(window, Qt::LeftButton, {}, QPoint(60, 40));
    EXPECT_GT(parent.count(), 0);
}

TEST(ViewTransparent, PaintsNothing) {
    ControlFixture fixture;
    fixture.add<HoverButton>(QRect(20, 20, 100, 36));
    const QImage before = fixture.screenshot(QRect(0, 0, 300, 250));
    fixture.add<ViewTransparent>(QRect(0, 0, 300, 250));
    EXPECT_EQ(fixture.screenshot(QRect(0, 0, 300, 250)), before);
}

TEST(ViewTransparent, AClickFocusesIt) {
    ControlFixture fixture;
    auto& overlay = fixture.add<ViewTransparent>(QRect(0, 0, 300, 250));
    QTest::mouseClick(fixture.window().windowHandle(), Qt::LeftButton, {}, QPoint(60, 40));
    EXPECT_TRUE(overlay.hasFocus());
}

TEST(ViewTransparent, SignalsOfOthersAreCounted) {
    ViewTransparent overlay;
    ViewTransparent other;
    EXPECT_EQ(overlay.viewsOverlaidCount(), 0);
    overlay.viewTransparentAddedNote(&other);
    overlay.viewTransparentAddedNote(nullptr);
    EXPECT_EQ(overlay.viewsOverlaidCount(), 2);
    overlay.viewTransparentRemovedNote(&other);
    EXPECT_EQ(overlay.viewsOverlaidCount(), 1);
}

TEST(ViewTransparent, ItsOwnSignalsAreNotCounted) {
    ViewTransparent overlay;
    overlay.viewTransparentAddedNote(&overlay);
    overlay.viewTransparentRemovedNote(&overlay);
    EXPECT_EQ(overlay.viewsOverlaidCount(), 0);
}

TEST(ViewTransparent, SignalsCarryTheOverlay) {
    ViewTransparent overlay;
    ViewTransparent listener;
    QObject::connect(&overlay, &ViewTransparent::addedNote, &listener,
                     &ViewTransparent::viewTransparentAddedNote);
    QObject::connect(&overlay, &ViewTransparent::removedNote, &listener,
                     &ViewTransparent::viewTransparentRemovedNote);
    QSignalSpy removed(&overlay, &ViewTransparent::removedNote);
    overlay.postAddedNotification();
    EXPECT_EQ(listener.viewsOverlaidCount(), 1);
    overlay.postRemovedNotification();
    EXPECT_EQ(listener.viewsOverlaidCount(), 0);
    ASSERT_EQ(removed.count(), 1);
    EXPECT_EQ(removed.at(0).at(0).value<QObject*>(), &overlay);
}

TEST(ViewTransparent, TheCountMayBeSet) {
    ViewTransparent overlay;
    const QSignalSpy changes(&overlay, &ViewTransparent::viewsOverlaidCountChanged);
    overlay.setviewsOverlaidCount(3);
    overlay.setviewsOverlaidCount(3);
    EXPECT_EQ(overlay.viewsOverlaidCount(), 3);
    EXPECT_EQ(changes.count(), 1);
}

}  // namespace
}  // namespace tarvin
