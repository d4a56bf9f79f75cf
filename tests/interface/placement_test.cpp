#include "interface/placement.h"

#include "interface/print_rect.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>

namespace tarvin {

namespace {

constexpr QSize design{1000, 500};

class PlacementTest : public testing::Test {
 protected:
    // Qt sends resize events only to visible widgets.
    PlacementTest() {
        parent.resize(design);
        parent.show();
    }

    QWidget* placed(const Place& place) {
        auto* control = new QWidget;
        placement.place(control, place);
        return control;
    }

    /// A control whose text needs `width`.
    QPushButton* needing(int width, QRect drawn, Growth across) {
        auto* button = new QPushButton;
        button->setMinimumWidth(width);
        placement.place(button, {drawn, across, atStart});
        return button;
    }

    QWidget parent;
    Placement placement{&parent, design, {900, 1100}};
};

TEST_F(PlacementTest, GivesControlsTheGeometryOfTheDesign) {
    const QWidget* control = placed({{10, 20, 30, 40}, atEnd, inMiddle});

    EXPECT_EQ(control->parentWidget(), &parent);
    EXPECT_EQ(control->geometry(), QRect(10, 20, 30, 40));
}

TEST_F(PlacementTest, KeepsTheDistanceToTheSideItIsTiedTo) {
    const QWidget* left = placed({{10, 20, 30, 40}, atStart, atStart});
    const QWidget* right = placed({{900, 450, 90, 40}, atEnd, atEnd});
    const QWidget* middle = placed({{450, 200, 100, 100}, inMiddle, inMiddle});
    const QWidget* wide = placed({{10, 20, 980, 460}, stretching, stretching});

    parent.resize(1200, 600);

    EXPECT_EQ(left->geometry(), QRect(10, 20, 30, 40));
    EXPECT_EQ(right->geometry(), QRect(1100, 550, 90, 40));
    EXPECT_EQ(middle->geometry(), QRect(550, 250, 100, 100));
    EXPECT_EQ(wide->geometry(), QRect(10, 20, 1180, 560));
}

TEST_F(PlacementTest, GivesNeighboursTheirSharesWithoutGaps) {
    const QWidget* tree = placed({{0, 0, 200, 500}, {0, 0.18}, stretching});
    const QWidget* list = placed({{200, 0, 500, 500}, {0.18, 0.52}, stretching});
    const QWidget* preview = placed({{700, 0, 300, 500}, {0.7, 0.3}, stretching});

    for (const int width : {1000, 1001, 1003, 1017, 1333, 1999}) {
        parent.resize(width, 500);
        EXPECT_EQ(tree->geometry().right() + 1, list->x()) << width;
        EXPECT_EQ(list->geometry().right() + 1, preview->x()) << width;
        EXPECT_EQ(preview->geometry().right() + 1, width);
    }
}

TEST_F(PlacementTest, LetsAColumnGrowAndThenKeepsItInTheMiddle) {
    const QWidget* list = placed(
        {.design = {50, 0, 900, 100}, .across = stretching, .down = atStart, .inColumn = true});
    const QWidget* right =
        placed({.design = {850, 100, 100, 30}, .across = atEnd, .down = atStart, .inColumn = true});

    parent.resize(1100, 500);
    EXPECT_EQ(list->geometry(), QRect(50, 0, 1000, 100));
    EXPECT_EQ(right->geometry(), QRect(950, 100, 100, 30));

    parent.resize(1600, 500);
    EXPECT_EQ(list->geometry(), QRect(250, 0, 1100, 100));
    EXPECT_EQ(right->geometry(), QRect(1250, 100, 100, 30));
}

TEST_F(PlacementTest, TreatsASmallParentAsOneOfTheDesignsSize) {
    const QWidget* right = placed({{900, 450, 90, 40}, atEnd, atEnd});

    parent.resize(600, 300);

    EXPECT_EQ(right->geometry(), QRect(900, 450, 90, 40));
}

TEST_F(PlacementTest, GivesAControlANewPlace) {
    QWidget* control = placed({{10, 20, 30, 40}});

    placement.place(control, {{100, 200, 30, 40}, atEnd, atStart});
    parent.resize(1100, 500);

    EXPECT_EQ(control->geometry(), QRect(200, 200, 30, 40));
}

TEST_F(PlacementTest, LeavesAHiddenControlHidden) {
    auto* control = new QWidget(&parent);
    control->hide();

    placement.place(control, {{10, 20, 30, 40}});

    EXPECT_FALSE(control->isVisible());
}

TEST_F(PlacementTest, PushesNeighboursToTheFreeSide) {
    QWidget* filler = placed({{100, 0, 492, 30}, stretching, atStart});
    QWidget* first = needing(0, {600, 0, 100, 30}, atEnd);
    QWidget* second = needing(140, {708, 0, 100, 30}, atEnd);
    QWidget* third = needing(90, {816, 0, 80, 30}, atEnd);
    placement.row({first, second, third}, filler);

    EXPECT_EQ(third->geometry(), QRect(806, 0, 90, 30));
    EXPECT_EQ(second->geometry(), QRect(658, 0, 140, 30));
    EXPECT_EQ(first->geometry(), QRect(550, 0, 100, 30));
    EXPECT_EQ(filler->geometry(), QRect(100, 0, 442, 30));
}

TEST_F(PlacementTest, PushesARowAtTheLeftToTheRight) {
    QWidget* first = needing(130, {50, 0, 100, 30}, atStart);
    QWidget* second = needing(0, {158, 0, 100, 30}, atStart);
    placement.row({first, second});

    EXPECT_EQ(first->geometry(), QRect(50, 0, 130, 30));
    EXPECT_EQ(second->geometry(), QRect(188, 0, 100, 30));
}

TEST_F(PlacementTest, MakesRoomWhenATextBecomesLonger) {
    auto* button = new QPushButton(QStringLiteral("Short"));
    placement.place(button, {{800, 0, 150, 30}, atEnd, atStart});
    placement.row({button});
    button->show();
    ASSERT_EQ(button->width(), 150);

    button->setText(QStringLiteral("A title that needs far more room than was drawn for it"));
    QCoreApplication::sendPostedEvents();

    EXPECT_GT(button->width(), 150);
    EXPECT_EQ(button->geometry().right() + 1, 950);
    EXPECT_GE(button->width(), button->sizeHint().width());
}

TEST_F(PlacementTest, GrowsATextDownwardsOrAboutItsMiddle) {
    const auto broken = [] {
        auto* label = new QLabel(QStringLiteral("one two three four five six seven eight nine"));
        label->setWordWrap(true);
        return label;
    };
    QLabel* down = broken();
    QLabel* around = broken();
    placement.place(down, {.design = {0, 100, 60, 10}, .fit = Fit::taller});
    placement.place(around, {.design = {100, 100, 60, 10}, .fit = Fit::tallerAround});
    placement.apply();

    const int needed = down->heightForWidth(60);
    ASSERT_GT(needed, 30);
    EXPECT_EQ(down->geometry(), QRect(0, 100, 60, needed));
    EXPECT_EQ(around->geometry(), QRect(100, 100 - (needed - 10) / 2, 60, needed));
}

}  // namespace

}  // namespace tarvin
