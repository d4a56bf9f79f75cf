#include "controls/hover_button.h"
#include "interface/frames.h"
#include "interface/shown_window.h"
#include "support/on_screen.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QScrollBar>
#include <QSignalSpy>

namespace tarvin {

namespace {

/// The colour on the screen of the second pixel from the left: inside a thin outline, part of a
/// wide one.
QColor edgeOf(const LocationFrame& frame) {
    const QImage image = onScreen(frame);
    const double ratio = frame.devicePixelRatio();
    return image.pixelColor(static_cast<int>(1.5 * ratio), image.height() / 2);
}

class LocationTableTest : public ShownWindow {
 protected:
    LocationTableTest() {
        rows.add(QStringLiteral("/home/me/Pictures"), QStringLiteral("folder.png"), false);
        rows.add(QStringLiteral("/home/me/Music"), QStringLiteral("folder.png"), true);
        window.selectTabViewItem(QStringLiteral("2"));
        table.setModel(&rows);
    }
    ~LocationTableTest() override { table.setModel(nullptr); }

    [[nodiscard]] QPoint middleOf(int row, int column) const {
        return table.visualRect(rows.index(row, column)).center();
    }

    /// The events of a real double click, which ends with a release.
    void doubleClick(const QPoint& point, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(table.viewport(), button, {}, point);
        QTest::mouseDClick(table.viewport(), button, {}, point);
        QTest::mouseRelease(table.viewport(), button, {}, point);
    }

    void makeCurrent(int row) { table.setCurrentIndex(rows.index(row, LocationTable::mainCell)); }

    SomeLocations rows;
    LocationTable& table = *window.locations->tableExact;
};

TEST_F(LocationTableTest, ADoubleClickOpensTheRow) {
    const QSignalSpy opened(&table, &LocationTable::rowOpened);
    const QPoint row = middleOf(1, LocationTable::mainCell);

    doubleClick(row);

    ASSERT_EQ(opened.size(), 1);
    EXPECT_EQ(opened.front().front().toModelIndex().row(), 1);
}

TEST_F(LocationTableTest, ADoubleClickOnACheckBoxTogglesItTwiceAndOpensNothing) {
    const QSignalSpy opened(&table, &LocationTable::rowOpened);
    const QSignalSpy turned(&rows, &QAbstractItemModel::dataChanged);
    const QPoint box = middleOf(1, LocationTable::buttonCell);

    doubleClick(box);

    EXPECT_EQ(turned.size(), 2);
    EXPECT_EQ(rows.index(1, LocationTable::buttonCell).data(Qt::CheckStateRole).toInt(),
              static_cast<int>(Qt::Checked));
    EXPECT_EQ(opened.size(), 0);
}

TEST_F(LocationTableTest, ADoubleClickOpensBesideTheBoxToo) {
    const QSignalSpy opened(&table, &LocationTable::rowOpened);
    const QSignalSpy turned(&rows, &QAbstractItemModel::dataChanged);
    const QPoint box = middleOf(1, LocationTable::buttonCell);
    for (const int x : {1, box.x() - 20, box.x() + 20, table.viewport()->width() - 1}) {
        doubleClick({x, box.y()});
    }
    EXPECT_EQ(opened.size(), 4);
    EXPECT_EQ(turned.size(), 0);
    // Within the reach of the box it is two clicks.
    doubleClick(box + QPoint(15, 0));
    EXPECT_EQ(opened.size(), 4);
    EXPECT_EQ(turned.size(), 2);
}

TEST_F(LocationTableTest, ADoubleClickOfTheOtherButtonOpensNothing) {
    const QSignalSpy opened(&table, &LocationTable::rowOpened);
    const QPoint row = middleOf(1, LocationTable::mainCell);
    doubleClick(row, Qt::RightButton);
    EXPECT_EQ(opened.size(), 0);
}

TEST_F(LocationTableTest, AHeldKeyActsOnce) {
    const QSignalSpy opened(&table, &LocationTable::rowOpened);
    const QSignalSpy turned(&rows, &QAbstractItemModel::dataChanged);
    makeCurrent(1);
    hold(table, Qt::Key_Return);
    EXPECT_EQ(opened.size(), 1);
    hold(table, Qt::Key_Space);
    EXPECT_EQ(turned.size(), 1);
    table.setCurrentIndex(rows.index(0, LocationTable::buttonCell));
    hold(table, Qt::Key_Space);
    EXPECT_EQ(turned.size(), 2);
}

TEST_F(LocationTableTest, TheScrollBarBeginsBelowTheHeader) {
    for (int more = 0; more < 20; ++more) {
        rows.add(QStringLiteral("/home/me/more"), QStringLiteral("folder.png"), false);
    }
    const QScrollBar& bar = *table.verticalScrollBar();
    ASSERT_TRUE(QTest::qWaitFor([&] { return bar.isVisible(); }, 20000));
    EXPECT_EQ(bar.mapTo(&table, QPoint(0, 0)).y(), LocationTable::heightOfHeader);
    // The band of the header continues above the bar.
    EXPECT_EQ(table.grab().toImage().pixelColor(table.width() - 3, 10), QColor(233, 239, 242));
}

TEST_F(LocationTableTest, AClickOpensNothing) {
    const QSignalSpy opened(&table, &LocationTable::rowOpened);

    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, middleOf(1, LocationTable::mainCell));

    EXPECT_EQ(opened.size(), 0);
    EXPECT_EQ(table.currentIndex().row(), 1);
}

TEST_F(LocationTableTest, ReturnOpensTheRowInsteadOfScanning) {
    const QSignalSpy opened(&table, &LocationTable::rowOpened);
    const QSignalSpy scans(window.locations->findDuplicateExact, &QAbstractButton::clicked);
    makeCurrent(1);

    QTest::keyClick(&table, Qt::Key_Return);

    ASSERT_EQ(opened.size(), 1);
    EXPECT_EQ(opened.front().front().toModelIndex().row(), 1);
    EXPECT_EQ(scans.size(), 0);
}

TEST_F(LocationTableTest, ReturnScansWhileNoRowIsCurrent) {
    const QSignalSpy opened(&table, &LocationTable::rowOpened);
    const QSignalSpy scans(window.locations->findDuplicateExact, &QAbstractButton::clicked);
    table.setCurrentIndex({});

    QTest::keyClick(&table, Qt::Key_Return);

    EXPECT_EQ(opened.size(), 0);
    EXPECT_EQ(scans.size(), 1);
}

TEST_F(LocationTableTest, ReturnWithCtrlScansFromARow) {
    const QSignalSpy opened(&table, &LocationTable::rowOpened);
    const QSignalSpy scans(window.locations->findDuplicateExact, &QAbstractButton::clicked);
    makeCurrent(1);

    QTest::keyClick(&table, Qt::Key_Return, Qt::ControlModifier);

    EXPECT_EQ(opened.size(), 0);
    EXPECT_EQ(scans.size(), 1);
}

TEST_F(LocationTableTest, AnEmptyListShowsTheFocusAroundItself) {
    const auto edge = [this] { return edgeOf(*window.locations->tableFrame); };
    rows.removeRows(0, 2);
    EXPECT_EQ(edge(), QColor(255, 255, 255));

    window.locations->addPhotos->setFocus();
    QTest::keyClick(window.locations->addPhotos, Qt::Key_Backtab);
    EXPECT_EQ(edge(), QColor(10, 58, 82));

    QTest::keyClick(&table, Qt::Key_Tab);
    EXPECT_EQ(edge(), QColor(255, 255, 255));
}

TEST_F(LocationTableTest, SpaceTogglesTheCheckBoxOfTheRow) {
    makeCurrent(0);
    QTest::keyClick(&table, Qt::Key_Space);
    EXPECT_TRUE(rows.isChecked(0));
    EXPECT_TRUE(rows.isChecked(1));

    QTest::keyClick(&table, Qt::Key_Space);
    EXPECT_FALSE(rows.isChecked(0));
}

TEST_F(LocationTableTest, AClickOnTheCheckBoxTogglesIt) {
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, middleOf(1, LocationTable::buttonCell));

    EXPECT_FALSE(rows.isChecked(1));
    EXPECT_FALSE(rows.isChecked(0));
}

TEST_F(LocationTableTest, ABoxTakesClicksUpToEightPixelsOutsideItsEdge) {
    const QPoint box = middleOf(0, LocationTable::buttonCell);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, box + QPoint(16, 0));
    EXPECT_TRUE(rows.isChecked(0));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, box + QPoint(18, 0));
    EXPECT_TRUE(rows.isChecked(0));
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, middleOf(0, LocationTable::mainCell));
    EXPECT_TRUE(rows.isChecked(0));
}

TEST_F(LocationTableTest, AClickThatEndsInAnotherRowTogglesNothing) {
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, middleOf(0, LocationTable::buttonCell));
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {},
                        middleOf(1, LocationTable::buttonCell));
    EXPECT_FALSE(rows.isChecked(0));
    EXPECT_TRUE(rows.isChecked(1));
}

TEST_F(LocationTableTest, OtherMouseButtonsToggleNothing) {
    QTest::mouseClick(table.viewport(), Qt::RightButton, {},
                      middleOf(0, LocationTable::buttonCell));
    EXPECT_FALSE(rows.isChecked(0));
}

TEST_F(LocationTableTest, SpaceTogglesTheBoxOfTheRowFromEitherColumn) {
    makeCurrent(0);
    QTest::keyClick(&table, Qt::Key_Space);
    EXPECT_TRUE(rows.isChecked(0));
    table.setCurrentIndex(rows.index(0, LocationTable::buttonCell));
    QTest::keyClick(&table, Qt::Key_Space);
    EXPECT_FALSE(rows.isChecked(0));
    QTest::keyClick(&table, Qt::Key_X);
    EXPECT_FALSE(rows.isChecked(0));
}

TEST_F(LocationTableTest, ADisabledBoxIgnoresClicksAndKeys) {
    rows.item(0, LocationTable::buttonCell)->setEnabled(false);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, middleOf(0, LocationTable::buttonCell));
    makeCurrent(0);
    QTest::keyClick(&table, Qt::Key_Space);
    EXPECT_FALSE(rows.isChecked(0));
}

TEST_F(LocationTableTest, TabLeavesTheList) {
    makeCurrent(0);

    QTest::keyClick(&table, Qt::Key_Tab);

    EXPECT_EQ(window.focusWidget(), window.locations->addPhotos);
}

TEST_F(LocationTableTest, AnEmptyListShowsItsLine) {
    const auto inkInTheMiddle = [this] {
        const QImage image = table.viewport()->grab().toImage();
        int dark = 0;
        for (int x = image.width() / 4; x < image.width() * 3 / 4; ++x) {
            for (int y = image.height() / 2 - 12; y < image.height() / 2 + 12; ++y) {
                dark += qGray(image.pixel(x, y)) < 160 ? 1 : 0;
            }
        }
        return dark;
    };
    EXPECT_EQ(inkInTheMiddle(), 0);

    rows.removeRows(0, 2);

    EXPECT_GT(inkInTheMiddle(), 50);
}

TEST_F(LocationTableTest, AnotherLineForAnEmptyListIsShown) {
    rows.removeRows(0, 2);
    // No painting is pending.
    ASSERT_TRUE(isUpToDate(*table.viewport()));
    const QImage before = onScreen(*table.viewport());

    table.setEmptyText(QStringLiteral("Nothing to scan."));

    EXPECT_TRUE(onScreen(*table.viewport()) != before);
    EXPECT_TRUE(isUpToDate(*table.viewport()));
}

TEST_F(LocationTableTest, TheMenuKnowsItsRow) {
    const QSignalSpy shown(window.locations->tableMenu, &QMenu::aboutToShow);

    Q_EMIT table.customContextMenuRequested(middleOf(1, LocationTable::mainCell));

    EXPECT_EQ(shown.size(), 1);
    EXPECT_EQ(window.locations->clickedRow(), 1);
    window.locations->tableMenu->close();
}

TEST_F(LocationTableTest, KeysOpenTheMenuOfTheCurrentRowAlsoFarAway) {
    for (int more = 0; more < 40; ++more) {
        rows.add(QStringLiteral("/a"), QStringLiteral("folder"), false);
    }
    const QSignalSpy shown(window.locations->tableMenu, &QMenu::aboutToShow);
    table.setFocus();
    table.setCurrentIndex(rows.index(1, LocationTable::mainCell));
    table.scrollToBottom();
    QTest::keyClick(&table, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(shown.size(), 1);
    EXPECT_EQ(window.locations->clickedRow(), 1);
    const QRect row = table.visualRect(rows.index(1, LocationTable::mainCell));
    EXPECT_TRUE(table.viewport()->rect().contains(row));
    EXPECT_EQ(window.locations->tableMenu->pos(), table.viewport()->mapToGlobal(row.bottomLeft()));
    window.locations->tableMenu->close();
    table.setCurrentIndex({});
    QTest::keyClick(&table, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(shown.size(), 1);
}

TEST_F(LocationTableTest, ThereIsNoMenuBelowTheRows) {
    const QSignalSpy shown(window.locations->tableMenu, &QMenu::aboutToShow);

    Q_EMIT table.customContextMenuRequested({100, 300});

    EXPECT_EQ(shown.size(), 0);
}

/// A model that records what is dropped.
class Taking final : public QStandardItemModel {
 public:
    [[nodiscard]] bool canDropMimeData(const QMimeData*, Qt::DropAction, int, int,
                                       const QModelIndex&) const override {
        return accepts;
    }
    bool dropMimeData(const QMimeData* data, Qt::DropAction, int, int,
                      const QModelIndex&) override {
        taken = data->text();
        return true;
    }
    [[nodiscard]] Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }

    bool accepts = true;
    QString taken;
};

class LocationDropTest : public ShownWindow {
 protected:
    LocationDropTest() {
        model.setColumnCount(2);
        data.setText(QStringLiteral("something"));
        window.selectTabViewItem(QStringLiteral("2"));
        table.setModel(&model);
    }
    ~LocationDropTest() override { table.setModel(nullptr); }

    void enter() {
        QDragEnterEvent event({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(table.viewport(), &event);
    }

    [[nodiscard]] QColor frameColor() const { return edgeOf(*window.locations->tableFrame); }

    QMimeData data;
    Taking model;
    LocationTable& table = *window.locations->tableExact;
};

TEST_F(LocationDropTest, AHoveringDragIsShownByTheFrame) {
    EXPECT_EQ(frameColor(), QColor(255, 255, 255));

    enter();
    EXPECT_TRUE(table.isDragHovering());
    EXPECT_EQ(frameColor(), QColor(0, 155, 178));

    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(table.viewport(), &leave);
    EXPECT_FALSE(table.isDragHovering());
    EXPECT_EQ(frameColor(), QColor(255, 255, 255));
}

TEST_F(LocationDropTest, ADropGoesToTheModel) {
    enter();
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(table.viewport(), &drop);

    EXPECT_EQ(model.taken, QStringLiteral("something"));
    EXPECT_FALSE(table.isDragHovering());
}

}  // namespace

}  // namespace tarvin
