#include "controls/check_box.h"
#include "controls/control_fixture.h"
#include "controls/custom_table_cell_view.h"
#include "controls/images.h"
#include "controls/location_cell_delegate.h"
#include "controls/row_painter.h"

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

namespace tarvin {
namespace {

/// A list of three rows of 56 at (0, 0) of the window; the wide column has 216, the other 84.
class LocationListTest : public testing::Test {
 protected:
    LocationListTest() : model_(3, 2), table_(fixture_.add<QTableView>(QRect(0, 0, 300, 200))) {
        for (int row = 0; row < 3; ++row) {
            auto* item = new QStandardItem(QStringLiteral("/media/me/Archive"));
            item->setData(QStringLiteral("Archive"), CustomTableCellView::additionalTextCountRole);
            item->setEditable(false);
            model_.setItem(row, 0, item);
            auto* check = new QStandardItem;
            check->setCheckable(true);
            check->setEditable(false);
            model_.setItem(row, 1, check);
        }
        table_.setModel(&model_);
        table_.show();
        table_.setFrameShape(QFrame::NoFrame);
        table_.setShowGrid(false);
        table_.horizontalHeader()->hide();
        table_.verticalHeader()->hide();
        table_.verticalHeader()->setDefaultSectionSize(56);
        table_.setSelectionBehavior(QAbstractItemView::SelectRows);
        table_.setColumnWidth(0, 216);
        table_.setColumnWidth(1, 84);
        table_.setItemDelegate(&delegate_);
    }

    /// A list tracks the pointer from its first painting on.
    void paintOnce() { table_.grab(); }

    void click(const QPoint& position) {
        QTest::mouseClick(fixture_.window().windowHandle(), Qt::LeftButton, {}, position);
    }

    LocationCellDelegate delegate_{1};
    QStandardItemModel model_;
    ControlFixture fixture_;
    QTableView& table_;
};

TEST_F(LocationListTest, ARowIsWhiteWithALineBelow) {
    EXPECT_THAT(fixture_.at(1, 1), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture_.at(299, 54), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture_.at(1, 55), IsRgb(230, 235, 238));
    EXPECT_THAT(fixture_.at(299.5, 55.5), IsRgb(230, 235, 238));
    EXPECT_THAT(fixture_.at(1, 56), IsRgb(255, 255, 255));
}

TEST(RowPainterTest, ARowMayHaveOtherColoursAndNoLine) {
    QImage image(10, 10, QImage::Format_RGB32);
    QPainter painter(&image);
    QStyleOptionViewItem row;
    row.rect = image.rect();
    const RowStyle style{.background = Qt::yellow, .selected = Qt::cyan, .line = QColor()};

    paintRow(painter, row, {}, style);
    EXPECT_EQ(image.pixelColor(5, 5), QColor(Qt::yellow));
    EXPECT_EQ(image.pixelColor(5, 9), QColor(Qt::yellow));

    row.state |= QStyle::State_Selected;
    paintRow(painter, row, {}, style);
    EXPECT_EQ(image.pixelColor(5, 9), QColor(Qt::cyan));
}

TEST_F(LocationListTest, ARowIs56High) {
    EXPECT_EQ(delegate_.sizeHint({}, {}).height(), 56);
}

TEST_F(LocationListTest, ASelectedRowHasItsColour) {
    table_.selectRow(1);
    EXPECT_THAT(fixture_.at(1, 60), IsRgb(217, 239, 243));
    EXPECT_THAT(fixture_.at(299, 60), IsRgb(217, 239, 243));
    EXPECT_THAT(fixture_.at(1, 1), IsRgb(255, 255, 255));
}

TEST_F(LocationListTest, HoveringColoursTheWholeRow) {
    paintOnce();
    fixture_.movePointer(QPoint(100, 80));
    EXPECT_THAT(fixture_.at(1, 60), IsRgb(238, 246, 248));
    EXPECT_THAT(fixture_.at(299, 60), IsRgb(238, 246, 248));
    fixture_.movePointer(QPoint(280, 20));
    EXPECT_THAT(fixture_.at(1, 60), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture_.at(1, 1), IsRgb(238, 246, 248));
    fixture_.movePointerAway();
    EXPECT_THAT(fixture_.at(1, 1), IsRgb(255, 255, 255));
}

TEST_F(LocationListTest, TheSelectionOverridesHovering) {
    table_.selectRow(0);
    paintOnce();
    fixture_.movePointer(QPoint(100, 20));
    EXPECT_THAT(fixture_.at(1, 1), IsRgb(217, 239, 243));
}

TEST_F(LocationListTest, ARemovedHoveredRowIsForgotten) {
    paintOnce();
    fixture_.movePointer(QPoint(100, 20));
    model_.removeRow(0);
    EXPECT_THAT(fixture_.at(1, 1), IsRgb(255, 255, 255));
}

TEST_F(LocationListTest, TheImageHasItsGeometry) {
    QPixmap pixmap(74, 74);
    pixmap.fill(Qt::red);
    model_.item(0, 0)->setData(pixmap, Qt::DecorationRole);
    EXPECT_THAT(fixture_.at(16, 8), IsRgb(255, 0, 0));
    EXPECT_THAT(fixture_.at(55.5, 47.5), IsRgb(255, 0, 0));
    EXPECT_THAT(fixture_.at(15.5, 20), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture_.at(56, 20), IsRgb(255, 255, 255));
}

TEST_F(LocationListTest, AFlatThumbnailKeepsItsProportions) {
    QPixmap pixmap(74, 37);
    pixmap.fill(Qt::red);
    model_.item(0, 0)->setData(pixmap, Qt::DecorationRole);
    EXPECT_THAT(fixture_.at(20, 10), IsRgb(255, 255, 255));
    EXPECT_THAT(fixture_.at(20, 28), IsRgb(255, 0, 0));
}

TEST_F(LocationListTest, ARowWithoutAnImageShowsAFolder) {
    const QRect area(16, 8, 40, 40);
    const QImage without = fixture_.screenshot(area);
    EXPECT_FALSE(inkBounds(without, Qt::white).isEmpty());
    model_.item(0, 0)->setData(pictureIcon(QStringLiteral("folder")), Qt::DecorationRole);
    EXPECT_EQ(fixture_.screenshot(area), without);
}

TEST_F(LocationListTest, NameAboveAndPathBelow) {
    const QRect name(72, 9, 120, 19);
    const QRect path(72, 29, 120, 17);
    EXPECT_TRUE(fixture_.holds(name, QColor(20, 36, 46)));
    EXPECT_FALSE(fixture_.holds(path, QColor(20, 36, 46)));
    EXPECT_TRUE(fixture_.holds(path, QColor(74, 91, 102)));
}

TEST_F(LocationListTest, ALongPathEndsBeforeTheColumnDoes) {
    model_.item(0, 0)->setText(QString(100, QLatin1Char('m')));
    EXPECT_FALSE(inkBounds(fixture_.screenshot(QRect(170, 29, 22, 17)), Qt::white).isEmpty());
    EXPECT_TRUE(inkBounds(fixture_.screenshot(QRect(193, 1, 22, 50)), Qt::white).isEmpty());
}

TEST_F(LocationListTest, TheSizeOfAFileIsOnTheRight) {
    table_.setColumnWidth(0, 400);
    const auto sizeGeometry = [this] {
        const QImage image = table_.grab(QRect(272, 10, 104, 36)).toImage();
        return inkBounds(image, Qt::white);
    };
    table_.resize(500, 200);
    EXPECT_TRUE(sizeGeometry().isEmpty());
    model_.item(0, 0)->setData(QStringLiteral("4.87 MB"), CustomTableCellView::additionalTextRole);
    EXPECT_FALSE(sizeGeometry().isEmpty());
    EXPECT_GT(sizeGeometry().right() / table_.devicePixelRatioF(), 100);
}

TEST_F(LocationListTest, PaintsTheBoxInItsColumn) {
    EXPECT_THAT(fixture_.at(252.5, 22), IsRgb(255, 255, 255));
    model_.item(0, 1)->setCheckState(Qt::Checked);
    EXPECT_THAT(fixture_.at(252.5, 22), IsRgb(14, 116, 138));
}

TEST_F(LocationListTest, TheDelegateLeavesClicksAndKeysToTheList) {
    click(QPoint(258, 28));
    table_.setFocus();
    table_.setCurrentIndex(model_.index(0, 1));
    QTest::keyClick(fixture_.window().windowHandle(), Qt::Key_Space);
    EXPECT_EQ(model_.item(0, 1)->checkState(), Qt::Unchecked);
}

TEST_F(LocationListTest, ADisabledBoxIsNotToggled) {
    model_.item(0, 1)->setEnabled(false);
    EXPECT_FALSE(toggleCheckState(model_, model_.index(0, 1)));
    EXPECT_EQ(model_.item(0, 1)->checkState(), Qt::Unchecked);
    EXPECT_FALSE(toggleCheckState(model_, model_.index(0, 0)));
}

TEST_F(LocationListTest, APartiallyCheckedBoxBecomesChecked) {
    model_.item(0, 1)->setCheckState(Qt::PartiallyChecked);
    EXPECT_TRUE(toggleCheckState(model_, model_.index(0, 1)));
    EXPECT_EQ(model_.item(0, 1)->checkState(), Qt::Checked);
}

TEST_F(LocationListTest, TheFocusRingSurroundsTheWholeRow) {
    table_.setFocus();
    table_.setCurrentIndex(model_.index(1, 0));
    EXPECT_THAT(fixture_.at(0, 70), IsRgb(217, 239, 243));
    fixture_.window().setAttribute(Qt::WA_KeyboardFocusChange);
    EXPECT_THAT(fixture_.at(0, 70), IsRgb(10, 58, 82));
    EXPECT_THAT(fixture_.at(1.5, 70), IsRgb(10, 58, 82));
    EXPECT_THAT(fixture_.at(2, 70), IsRgb(217, 239, 243));
    EXPECT_THAT(fixture_.at(299.5, 70), IsRgb(10, 58, 82));
    EXPECT_THAT(fixture_.at(216, 70), IsRgb(217, 239, 243));
    table_.clearFocus();
    EXPECT_THAT(fixture_.at(0, 70), IsRgb(217, 239, 243));
}

TEST(CustomTableCellViewTest, KeepsItsTexts) {
    CustomTableCellView view;
    view.setTextField(QStringLiteral("/a/b"));
    view.setAdditionalTextCount(QStringLiteral("b"));
    view.setAdditionalText(QStringLiteral("1.00 KB"));
    view.setFileName(QStringLiteral("file"));
    EXPECT_EQ(view.textField(), QStringLiteral("/a/b"));
    EXPECT_EQ(view.additionalTextCount(), QStringLiteral("b"));
    EXPECT_EQ(view.additionalText(), QStringLiteral("1.00 KB"));
    EXPECT_EQ(view.fileName(), QStringLiteral("file"));
}

TEST(CustomTableCellViewTest, IsFilledFromAnItem) {
    QStandardItemModel model(1, 1);
    auto* item = new QStandardItem(QStringLiteral("/a/b"));
    item->setData(QStringLiteral("b"), CustomTableCellView::additionalTextCountRole);
    item->setData(QStringLiteral("1.00 KB"), CustomTableCellView::additionalTextRole);
    item->setData(pictureIcon(QStringLiteral("usb_drive.png")), Qt::DecorationRole);
    model.setItem(0, 0, item);
    const CustomTableCellView view(model.index(0, 0));
    EXPECT_EQ(view.textField(), QStringLiteral("/a/b"));
    EXPECT_EQ(view.additionalTextCount(), QStringLiteral("b"));
    EXPECT_EQ(view.additionalText(), QStringLiteral("1.00 KB"));
    EXPECT_EQ(view.image().name(), QStringLiteral("usb_drive.png"));
}

}  // namespace
}  // namespace tarvin
