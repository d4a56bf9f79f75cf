#include "controls/tab_button.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>

namespace tarvin {
namespace {

constexpr QRect tabButtonGeometry(20, 20, 124, 40);

class TabButtonTest : public testing::Test {
 protected:
    TabButtonTest() : tab(fixture.add<TabButton>(tabButtonGeometry, glyph, title)) {}

    const QString glyph = QStringLiteral("ui/tab_documents");
    const QString title = QStringLiteral("Documents");
    ControlFixture fixture;
    TabButton& tab;
};

TEST_F(TabButtonTest, ItsTitleIsItsName) {
    EXPECT_EQ(tab.text(), title);
    EXPECT_EQ(tab.accessibleName(), title);
    EXPECT_EQ(tab.glyph(), glyph);
}

TEST_F(TabButtonTest, AnUnselectedOneHasNoBackgroundAndNoLine) {
    EXPECT_THAT(fixture.at(22, 22), IsRgb(243, 246, 248));
    EXPECT_THAT(fixture.at(80, 58), IsRgb(243, 246, 248));
}

TEST_F(TabButtonTest, TheDisabledOneLooksSelected) {
    tab.setEnabled(false);
    EXPECT_THAT(fixture.at(22, 22), IsRgb(230, 244, 247));
    EXPECT_THAT(fixture.at(80, 56.5), IsRgb(230, 244, 247));
    EXPECT_THAT(fixture.at(80, 57), IsRgb(14, 116, 138));
    EXPECT_THAT(fixture.at(80, 59.5), IsRgb(14, 116, 138));
    EXPECT_TRUE(fixture.holds(tabButtonGeometry, QColor(11, 97, 115)));
}

TEST_F(TabButtonTest, HeldDownAnUnselectedOneIsTintedWithoutALine) {
    tab.setDown(true);
    EXPECT_THAT(fixture.at(22, 22), IsRgb(230, 244, 247));
    EXPECT_THAT(fixture.at(80, 58), IsRgb(230, 244, 247));
}

TEST_F(TabButtonTest, TheSelectedOneIsOpaqueWhateverItsAlpha) {
    tab.setEnabled(false);
    for (const double alpha : {0.5, 0.7, 0.0}) {
        tab.setAlpha(alpha);
        EXPECT_THAT(fixture.at(80, 58), IsRgb(14, 116, 138)) << alpha;
        EXPECT_THAT(fixture.at(22, 22), IsRgb(230, 244, 247)) << alpha;
        EXPECT_TRUE(fixture.holds(tabButtonGeometry, QColor(11, 97, 115))) << alpha;
    }
}

TEST_F(TabButtonTest, OneSelectedWhileHoveredLooksSelected) {
    QObject::connect(&tab, &QAbstractButton::clicked, [this] { tab.setEnabled(false); });
    fixture.movePointerTo(tab);
    QTest::mouseClick(fixture.window().windowHandle(), Qt::LeftButton, {},
                      tabButtonGeometry.center());
    ASSERT_FALSE(tab.isEnabled());
    EXPECT_THAT(fixture.at(22, 22), IsRgb(230, 244, 247));
    EXPECT_THAT(fixture.at(80, 58), IsRgb(14, 116, 138));
    EXPECT_TRUE(fixture.holds(tabButtonGeometry, QColor(11, 97, 115)));
    fixture.movePointerAway();
    EXPECT_THAT(fixture.at(80, 58), IsRgb(14, 116, 138));
    // Another tab is selected.
    tab.setEnabled(true);
    EXPECT_DOUBLE_EQ(tab.alpha(), 1.0);
    EXPECT_TRUE(fixture.holds(tabButtonGeometry, QColor(20, 36, 46)));
}

TEST_F(TabButtonTest, GlyphAndTitleAreCentredTogether) {
    const QRect ink = inkBounds(fixture.screenshot(tabButtonGeometry), QColor(243, 246, 248));
    const double ratio = tab.devicePixelRatioF();
    const double left = ink.left() / ratio;
    const double right = tabButtonGeometry.width() - (ink.right() + 1) / ratio;
    EXPECT_NEAR(left, right, 4);
    EXPECT_GT(left, 4);
}

TEST_F(TabButtonTest, HoveringMakesItFainter) {
    fixture.movePointerTo(tab);
    EXPECT_DOUBLE_EQ(tab.alpha(), 0.7);
    EXPECT_EQ(fixture.cursor(), Qt::PointingHandCursor);
    fixture.movePointerAway();
    EXPECT_DOUBLE_EQ(tab.alpha(), 1.0);
}

TEST_F(TabButtonTest, OnlyAnUnselectedOneCanBePressed) {
    const QSignalSpy clicks(&tab, &QAbstractButton::clicked);
    QTest::mouseClick(&tab, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 1);
    tab.setEnabled(false);
    QTest::mouseClick(&tab, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 1);
}

TEST_F(TabButtonTest, ItsSizeHintIsGlyphGapAndTitle) {
    const TabButton shorter(glyph, QStringLiteral("All"));
    EXPECT_EQ(tab.sizeHint().height(), 40);
    EXPECT_GT(tab.sizeHint().width(), shorter.sizeHint().width());
    EXPECT_GT(shorter.sizeHint().width(), 18 + 7);
}

}  // namespace
}  // namespace tarvin
