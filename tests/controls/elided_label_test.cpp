#include "controls/elided_label.h"

#include "controls/control_fixture.h"
#include "controls/look.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QHelpEvent>
#include <QToolTip>

namespace tarvin {
namespace {

constexpr QRect elidedLabelGeometry(20, 20, 200, 20);
const QString longPath =
    QStringLiteral("/Users/me/Pictures/2023 Summer/holidays/at the sea/IMG_2041.jpg");

TEST(ElidedLabel, AShortTextIsShownWhole) {
    ControlFixture fixture;
    auto& label = fixture.add<ElidedLabel>(elidedLabelGeometry, QStringLiteral("short"));
    EXPECT_FALSE(label.isElided());
    EXPECT_EQ(label.shownText(), QStringLiteral("short"));
    EXPECT_TRUE(fixture.holds(elidedLabelGeometry, QColor(20, 36, 46)));
}

TEST(ElidedLabel, ALongTextIsElidedInTheMiddle) {
    ControlFixture fixture;
    auto& label = fixture.add<ElidedLabel>(elidedLabelGeometry, longPath);
    EXPECT_TRUE(label.isElided());
    EXPECT_EQ(label.text(), longPath);
    EXPECT_TRUE(label.shownText().startsWith(QStringLiteral("/Users/")));
    EXPECT_TRUE(label.shownText().endsWith(QStringLiteral(".jpg")));
    EXPECT_TRUE(label.shownText().contains(QChar(0x2026)));
    EXPECT_LE(label.fontMetrics().horizontalAdvance(label.shownText()), 200);
}

TEST(ElidedLabel, OrItsEndIsElided) {
    ControlFixture fixture;
    auto& label = fixture.add<ElidedLabel>(elidedLabelGeometry, longPath);
    label.setElideMode(Qt::ElideRight);
    EXPECT_TRUE(label.shownText().startsWith(QStringLiteral("/Users/me/Pic")));
    EXPECT_TRUE(label.shownText().endsWith(QChar(0x2026)));
}

TEST(ElidedLabel, GrowsBackWithTheWindow) {
    ControlFixture fixture;
    auto& label = fixture.add<ElidedLabel>(elidedLabelGeometry, longPath);
    label.resize(2000, 20);
    EXPECT_EQ(label.shownText(), longPath);
}

TEST(ElidedLabel, TheToolTipIsTheFullText) {
    const ElidedLabel label(longPath);
    EXPECT_EQ(label.toolTip(), longPath);
}

TEST(ElidedLabel, TheToolTipIsShownOnlyForAnElidedText) {
    ControlFixture fixture;
    auto& label = fixture.add<ElidedLabel>(elidedLabelGeometry, QStringLiteral("short"));
    QHelpEvent ask(QEvent::ToolTip, QPoint(5, 5), label.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&label, &ask);
    EXPECT_EQ(QToolTip::text(), QString());
    label.setText(longPath);
    QCoreApplication::sendEvent(&label, &ask);
    EXPECT_EQ(QToolTip::text(), longPath);
    QToolTip::hideText();
}

TEST(ElidedLabel, MarkupIsShownUnchanged) {
    ControlFixture fixture;
    auto& label = fixture.add<ElidedLabel>(QRect(0, 20, 300, 20));
    label.setText(QStringLiteral("<b>a</b>&amp;<img src=x>"));
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_EQ(label.shownText(), QStringLiteral("<b>a</b>&amp;<img src=x>"));
    EXPECT_EQ(label.toolTip(),
              QStringLiteral("<span style=\"white-space:pre\">&lt;b&gt;a&lt;/b&gt;&amp;amp;&lt;img "
                             "src=x&gt;</span>"));
}

TEST(ElidedLabel, LineBreaksStayOnOneLine) {
    ControlFixture fixture;
    auto& label = fixture.add<ElidedLabel>(elidedLabelGeometry, QStringLiteral("a\nb"));
    EXPECT_EQ(label.shownText(), QStringLiteral("a b"));
    EXPECT_EQ(label.sizeHint().height(), label.fontMetrics().height());
}

TEST(ElidedLabel, IsPaintedInItsColourAndAlignment) {
    ControlFixture fixture;
    auto& label = fixture.add<ElidedLabel>(elidedLabelGeometry, QStringLiteral("HHH"));
    label.setTextColor(look::muted);
    EXPECT_EQ(label.textColor(), QColor(74, 91, 102));
    EXPECT_TRUE(fixture.holds(elidedLabelGeometry, QColor(74, 91, 102)));
    EXPECT_FALSE(fixture.holds(elidedLabelGeometry, QColor(20, 36, 46)));
    const QImage left = fixture.screenshot(elidedLabelGeometry);
    EXPECT_LT(inkBounds(left, QColor(243, 246, 248)).left() / left.devicePixelRatio(), 4);
    label.setAlignment(Qt::AlignRight);
    const QImage right = fixture.screenshot(elidedLabelGeometry);
    EXPECT_GT(inkBounds(right, QColor(243, 246, 248)).right() / right.devicePixelRatio(), 195);
}

TEST(ElidedLabel, AssistiveTechnologyReadsTheFullText) {
    ElidedLabel label(longPath);
    label.resize(50, 20);
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&label);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->text(QAccessible::Name), longPath);
}

TEST(ElidedLabel, AFramedOneIsInAWhiteField) {
    ControlFixture fixture;
    auto& label = fixture.add<ElidedLabel>(elidedLabelGeometry, QStringLiteral("HHH"));
    label.setFramed(true);
    const QPoint corner = elidedLabelGeometry.topLeft();
    EXPECT_THAT(fixture.at(corner.x(), corner.y() + 5), IsRgb(197, 207, 213));
    EXPECT_THAT(fixture.at(corner.x() + 3, corner.y() + 3), IsRgb(255, 255, 255));
    const QImage image = fixture.screenshot(elidedLabelGeometry.adjusted(1, 1, -1, -1));
    EXPECT_NEAR(inkBounds(image, Qt::white).left() / image.devicePixelRatio(), 12, 3);

    label.setText(longPath);
    const QImage full = fixture.screenshot(elidedLabelGeometry.adjusted(1, 1, -1, -1));
    EXPECT_LE((inkBounds(full, Qt::white).right() + 1) / full.devicePixelRatio(),
              elidedLabelGeometry.width() - 2 - 11);

    label.setFramed(false);
    EXPECT_THAT(fixture.at(corner.x(), corner.y() + 5), IsRgb(243, 246, 248));
}

TEST(ElidedLabel, MayBecomeNarrow) {
    const ElidedLabel label(longPath);
    EXPECT_LT(label.minimumSizeHint().width(), 20);
    EXPECT_GT(label.sizeHint().width(), 300);
}

}  // namespace
}  // namespace tarvin
