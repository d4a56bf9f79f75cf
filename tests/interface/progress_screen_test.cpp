#include "interface/progress_screen.h"

#include "controls/state_label.h"
#include "interface/shown_window.h"

#include <QAccessible>
#include <QLabel>

namespace tarvin {

namespace {

class ProgressScreenTest : public ShownWindow {
 protected:
    ProgressScreenTest() { window.selectTabViewItem(QStringLiteral("5")); }

    ProgressScreen& screen = *window.progress;
};

TEST_F(ProgressScreenTest, HasTheDetailsBelowTheCurrentFile) {
    EXPECT_EQ(geometryOf(screen.progressDetails), QRect(188, 396, 640, 18));
    resizeTo({1400, 900});
    EXPECT_EQ(geometryOf(screen.progressDetails), QRect(380, 581, 640, 18));
}

TEST_F(ProgressScreenTest, ShowsAStateOverTheFootOfTheAnimation) {
    EXPECT_FALSE(screen.progressState->isVisible());
    screen.showState(QStringLiteral("Paused"));
    EXPECT_TRUE(screen.progressState->isVisible());
    const QRect place = geometryOf(screen.progressState);
    EXPECT_EQ(place.top(), 256);
    EXPECT_EQ(place.height(), 24);
    EXPECT_EQ(place.width(),
              screen.progressState->fontMetrics().horizontalAdvance(QStringLiteral("Paused")) + 24);
    EXPECT_NEAR(place.left() + place.width() / 2.0, 508, 1);
    // Not behind the animation.
    QWidget* page = screen.progressState->parentWidget();
    EXPECT_EQ(page->childAt(screen.progressState->geometry().center()), screen.progressState);
    resizeTo({1400, 900});
    EXPECT_EQ(geometryOf(screen.progressState), place.translated(192, 185));
    screen.showState({});
    EXPECT_FALSE(screen.progressState->isVisible());
}

TEST_F(ProgressScreenTest, FitsTheStateToItsText) {
    screen.showState(QStringLiteral("Paused"));
    const int width = screen.progressState->width();
    screen.showState(QStringLiteral("Stopping…"));
    EXPECT_GT(screen.progressState->width(), width);
    EXPECT_NEAR(geometryOf(screen.progressState).center().x(), 508, 1);
}

TEST_F(ProgressScreenTest, AddsNoStopOfTheTabKey) {
    screen.showState(QStringLiteral("Paused"));
    EXPECT_EQ(screen.progressState->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(screen.progressDetails->focusPolicy(), Qt::NoFocus);
}

/// Screen readers present alerts that appear.
TEST_F(ProgressScreenTest, StateIsAnAlert) {
    screen.showState(QStringLiteral("Paused"));
    const QAccessibleInterface* state = QAccessible::queryAccessibleInterface(screen.progressState);
    EXPECT_EQ(state->role(), QAccessible::AlertMessage);
    EXPECT_EQ(state->text(QAccessible::Name), QStringLiteral("Paused"));
}

}  // namespace

}  // namespace tarvin
