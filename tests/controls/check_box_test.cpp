#include "controls/check_box.h"

#include "controls/control_fixture.h"

#include <gtest/gtest.h>

#include <QStandardItem>
#include <QStandardItemModel>

namespace tarvin {
namespace {

/// A check box of `side` on white at device pixel ratio 3.
QImage paint(Qt::CheckState state, bool enabled = true, int side = 18) {
    constexpr int ratio = 3;
    QImage image(QSize(side, side) * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintCheckBox(painter, QRect(0, 0, side, side), state, enabled);
    return image;
}

TEST(CheckBox, AnEmptyOneIsALine) {
    const QImage image = paint(Qt::Unchecked);
    EXPECT_THAT(image.pixelColor(4, 27), IsRgb(107, 124, 135));
    EXPECT_THAT(image.pixelColor(27, 27), IsRgb(255, 255, 255));
}

TEST(CheckBox, AFullOneIsTealWithAWhiteCheck) {
    const QImage image = paint(Qt::Checked);
    EXPECT_THAT(image.pixelColor(8, 10), IsRgb(14, 116, 138));
    // The lowest point of the check, at 7.9, 12.2 of 18.
    EXPECT_THAT(image.pixelColor(23, 36), IsRgb(255, 255, 255));
}

TEST(CheckBox, AHalfOneIsTealWithADash) {
    const QImage image = paint(Qt::PartiallyChecked);
    EXPECT_THAT(image.pixelColor(27, 27), IsRgb(255, 255, 255));
    EXPECT_THAT(image.pixelColor(27, 38), IsRgb(14, 116, 138));
}

TEST(CheckBox, ADisabledOneIsPale) {
    EXPECT_THAT(paint(Qt::Checked, false).pixelColor(8, 10), IsRgb(147, 192, 202));
}

TEST(CheckBox, TreesUseASmallerOne) {
    const QImage image = paint(Qt::Checked, true, 16);
    EXPECT_THAT(image.pixelColor(8, 10), IsRgb(14, 116, 138));
    EXPECT_THAT(image.pixelColor(47, 24), IsRgb(255, 255, 255));
}

TEST(CheckBox, ThePainterKeepsItsOpacity) {
    QImage image(18, 18, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setOpacity(0.5);
    paintCheckBox(painter, QRect(0, 0, 18, 18), Qt::Checked, false);
    EXPECT_DOUBLE_EQ(painter.opacity(), 0.5);
}

TEST(CheckBox, IsCentredInItsCell) {
    EXPECT_EQ(checkBoxIn(QRect(822, 56, 84, 56)), QRect(855, 75, 18, 18));
    EXPECT_EQ(checkBoxIn(QRect(0, 0, 58, 30), 16), QRect(21, 7, 16, 16));
}

TEST(CheckBox, ACellIsFilledFromItsItem) {
    QStandardItemModel model(1, 1);
    auto* item = new QStandardItem;
    item->setCheckable(true);
    item->setCheckState(Qt::PartiallyChecked);
    item->setEnabled(false);
    model.setItem(0, 0, item);
    const CheckBoxCell cell(model.index(0, 0));
    EXPECT_EQ(cell.checkBox(), Qt::PartiallyChecked);
    EXPECT_FALSE(cell.isEnabled());
}

TEST(CheckBox, ACellBeginsUncheckedAndMayBeSet) {
    CheckBoxCell cell;
    EXPECT_EQ(cell.checkBox(), Qt::Unchecked);
    EXPECT_TRUE(cell.isEnabled());
    cell.setCheckBox(Qt::Checked);
    EXPECT_EQ(cell.checkBox(), Qt::Checked);
}

}  // namespace
}  // namespace tarvin
