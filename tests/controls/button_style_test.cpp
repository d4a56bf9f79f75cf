#include "controls/button_style.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

constexpr QRect buttonStyleGeometry(20, 20, 120, 34);

TEST(ButtonStyle, AStyledButtonHasItsColourCornersAndTitle) {
    HoverButton button(HoverButton::Kind::quiet, QString());
    setButtonAtrribute(button, 6, QColor(21, 138, 162), {QStringLiteral("Review"), Qt::white, 14});
    EXPECT_EQ(button.kind(), HoverButton::Kind::filled);
    EXPECT_EQ(button.fill(), QColor(21, 138, 162));
    EXPECT_DOUBLE_EQ(button.cornerRadius(), 6);
    EXPECT_EQ(button.text(), QStringLiteral("Review"));
    const AttributedTitle title = button.attributedTitle();
    EXPECT_EQ(title.color, QColor(Qt::white));
    EXPECT_EQ(title.pixelSize, 14);
    EXPECT_EQ(title.alignment, Qt::AlignHCenter);
    EXPECT_FALSE(title.underline);
}

TEST(ButtonStyle, PaintsTheAnswerOfTheInformationWindow) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(buttonStyleGeometry);
    setButtonAtrribute(button, 0, QColor(21, 138, 162), {QStringLiteral("Review"), Qt::white, 14});
    EXPECT_THAT(fixture.at(20, 20), IsRgb(21, 138, 162));
    EXPECT_TRUE(fixture.holds(buttonStyleGeometry, Qt::white));
}

TEST(ButtonStyle, TheLongFormSetsAlignmentAndUnderline) {
    const AttributedTitle title =
        setCenterAttributes(Qt::red, QStringLiteral("x"), true, Qt::AlignRight, 20);
    EXPECT_EQ(title.alignment, Qt::AlignRight);
    EXPECT_TRUE(title.underline);
    EXPECT_EQ(title.pixelSize, 20);
}

TEST(ButtonStyle, AnUnderlineIsPaintedUnderTheWholeTitle) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(buttonStyleGeometry);
    button.setFill(Qt::black);
    const QString text = QStringLiteral("aaaa");
    button.setAttributedTitle(setCenterAttributes(Qt::white, text, 14));
    const QRect plain = inkBounds(fixture.screenshot(buttonStyleGeometry), Qt::black);
    button.setAttributedTitle(setCenterAttributes(Qt::white, text, true, Qt::AlignHCenter, 14));
    const QRect underlined = inkBounds(fixture.screenshot(buttonStyleGeometry), Qt::black);
    EXPECT_GT(underlined.bottom(), plain.bottom());
}

TEST(ButtonStyle, AlignmentMovesTheTitle) {
    ControlFixture fixture;
    auto& button = fixture.add<HoverButton>(buttonStyleGeometry);
    button.setFill(Qt::black);
    const QString text = QStringLiteral("HH");
    button.setAttributedTitle(setCenterAttributes(Qt::white, text, false, Qt::AlignLeft, 14));
    const QImage left = fixture.screenshot(buttonStyleGeometry);
    EXPECT_LT(inkBounds(left, Qt::black).left() / left.devicePixelRatio(), 8);
    button.setAttributedTitle(setCenterAttributes(Qt::white, text, false, Qt::AlignRight, 14));
    const QImage right = fixture.screenshot(buttonStyleGeometry);
    EXPECT_GT(inkBounds(right, Qt::black).right() / right.devicePixelRatio(), 112);
}

TEST(ButtonStyle, AColourKeepsItsSpaceAndComponents) {
    const QColor color = QColor::fromHsvF(0.3F, 0.4F, 0.5F, 0.6F);
    EXPECT_EQ(NSColorToCGColor(color), color);
    EXPECT_EQ(NSColorToCGColor(color).spec(), QColor::Hsv);
}

}  // namespace
}  // namespace tarvin
