#include "interface/painted_region.h"
#include "interface/result_cell_delegate.h"
#include "interface/result_screen.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

class ResultTableTest : public ShownWindow {
 protected:
    ResultTableTest() {
        window.selectTabViewItem(QStringLiteral("4"));
        table.setModel(&files);
        QCoreApplication::processEvents();
    }
    ~ResultTableTest() override { table.setModel(nullptr); }

    [[nodiscard]] QPoint middleOf(int row, int column) const {
        return table.visualRect(files.index(row, column)).center();
    }
    void click(const QPoint& position) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, position);
    }
    void doubleClick(const QPoint& position, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(table.viewport(), button, {}, position);
        QTest::mouseDClick(table.viewport(), button, {}, position);
        QTest::mouseRelease(table.viewport(), button, {}, position);
    }

    DrawnResult result{true};
    SomeFiles& files = result.files;
    ResultTable& table = *window.results->resultTable;
    const QPoint belowTheRows{60, 280};
};

TEST_F(ResultTableTest, ABoxReportsItsRowAndChangesNothing) {
    const QSignalSpy clicked(&table, &ResultTable::tableCheckBoxClicked);
    const QSignalSpy written(&files, &QAbstractItemModel::dataChanged);

    click(middleOf(3, ResultTable::ButtonCell));

    ASSERT_EQ(clicked.size(), 1);
    EXPECT_EQ(clicked.front().front().toInt(), 3);
    EXPECT_EQ(written.size(), 0);
    EXPECT_TRUE(table.selectionModel()->selectedRows().isEmpty());
}

TEST_F(ResultTableTest, TheReachOfABoxIsWiderThanTheBox) {
    const QSignalSpy clicked(&table, &ResultTable::tableCheckBoxClicked);
    const QPoint box = middleOf(1, ResultTable::ButtonCell);
    click(box + QPoint(14, 0));
    click(box - QPoint(14, 0));
    EXPECT_EQ(clicked.size(), 2);
    click(box + QPoint(20, 0));
    click(middleOf(1, ResultTable::fileGroup));
    EXPECT_EQ(clicked.size(), 2);
}

TEST_F(ResultTableTest, AClickOnABoxEndsInTheBoxWhereItBegan) {
    const QSignalSpy clicked(&table, &ResultTable::tableCheckBoxClicked);
    const QPoint first = middleOf(0, ResultTable::ButtonCell);
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, first);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, middleOf(1, ResultTable::ButtonCell));
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, middleOf(0, ResultTable::nameText));
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, first);
    QTest::mouseClick(table.viewport(), Qt::RightButton, {}, first);
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(ResultTableTest, APressOnABoxThatIsDraggedSelectsNothing) {
    const QPoint box = middleOf(0, ResultTable::ButtonCell);
    const QPoint place = middleOf(2, ResultTable::nameText);
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, box);
    QMouseEvent move(QEvent::MouseMove, place, table.viewport()->mapToGlobal(place), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(table.viewport(), &move);
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, place);
    EXPECT_TRUE(table.selectionModel()->selectedIndexes().isEmpty());
}

TEST_F(ResultTableTest, ARowRemovedDuringAPressReportsNothing) {
    const QSignalSpy clicked(&table, &ResultTable::tableCheckBoxClicked);
    const QPoint box = middleOf(0, ResultTable::ButtonCell);
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, box);
    files.removeRows(0, files.rowCount());
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, box);
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(ResultTableTest, ADoubleClickOpensTheRow) {
    const QSignalSpy opened(&table, &ResultTable::doubleClick);
    doubleClick(middleOf(2, ResultTable::nameText));
    doubleClick(middleOf(4, ResultTable::fileLocation));
    doubleClick(middleOf(1, ResultTable::fileGroup));
    ASSERT_EQ(opened.size(), 3);
    EXPECT_EQ(opened[0].front().toInt(), 2);
    EXPECT_EQ(opened[1].front().toInt(), 4);
    EXPECT_EQ(opened[2].front().toInt(), 1);
}

TEST_F(ResultTableTest, ADoubleClickOnABoxIsTwoClicksAndOpensNothing) {
    const QSignalSpy opened(&table, &ResultTable::doubleClick);
    const QSignalSpy clicked(&table, &ResultTable::tableCheckBoxClicked);
    table.selectRow(2);
    doubleClick(middleOf(2, ResultTable::ButtonCell));
    doubleClick(middleOf(2, ResultTable::ButtonCell) + QPoint(14, 0));
    EXPECT_EQ(clicked.size(), 4);
    EXPECT_EQ(opened.size(), 0);
}

TEST_F(ResultTableTest, ADoubleClickOpensFromEdgeToEdgeBesideTheBox) {
    const QSignalSpy opened(&table, &ResultTable::doubleClick);
    const QSignalSpy clicked(&table, &ResultTable::tableCheckBoxClicked);
    const QPoint box = middleOf(2, ResultTable::ButtonCell);
    for (const int x : {1, box.x() - 20, box.x() + 20, table.viewport()->width() - 1}) {
        doubleClick({x, box.y()});
    }
    EXPECT_EQ(opened.size(), 4);
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(ResultTableTest, ADoubleClickOutsideTheRowsOpensNothing) {
    const QSignalSpy opened(&table, &ResultTable::doubleClick);
    table.selectRow(2);
    doubleClick(belowTheRows);
    doubleClick(middleOf(2, ResultTable::nameText), Qt::RightButton);
    files.removeRows(0, files.rowCount());
    doubleClick({60, 10});
    EXPECT_EQ(opened.size(), 0);
}

TEST_F(ResultTableTest, AClickAndAQuickOneOnAnotherRowOpenNothing) {
    const QSignalSpy opened(&table, &ResultTable::doubleClick);
    click(middleOf(1, ResultTable::nameText));
    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, middleOf(3, ResultTable::nameText));
    EXPECT_EQ(opened.size(), 0);
    EXPECT_EQ(table.currentIndex().row(), 3);
}

TEST_F(ResultTableTest, ReturnOpensAndSpaceMarksTheRowOfTheRing) {
    const QSignalSpy opened(&table, &ResultTable::doubleClick);
    const QSignalSpy clicked(&table, &ResultTable::tableCheckBoxClicked);
    table.selectRow(0);
    QTest::keyClick(&table, Qt::Key_Down);
    QTest::keyClick(&table, Qt::Key_Return);
    QTest::keyClick(&table, Qt::Key_Enter);
    QTest::keyClick(&table, Qt::Key_Space);
    ASSERT_EQ(opened.size(), 2);
    EXPECT_EQ(opened[0].front().toInt(), 1);
    ASSERT_EQ(clicked.size(), 1);
    EXPECT_EQ(clicked[0].front().toInt(), 1);
}

TEST_F(ResultTableTest, AHeldKeyActsOnce) {
    const QSignalSpy opened(&table, &ResultTable::doubleClick);
    const QSignalSpy clicked(&table, &ResultTable::tableCheckBoxClicked);
    table.selectRow(1);
    for (const int key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        hold(table, key);
    }
    EXPECT_EQ(opened.size(), 2);
    EXPECT_EQ(clicked.size(), 1);
}

TEST_F(ResultTableTest, ALetterFindsAName) {
    table.selectRow(0);
    QTest::keyClick(&table, Qt::Key_L);
    EXPECT_EQ(table.currentIndex().row(), 3);
}

TEST_F(ResultTableTest, AKeyThatCannotMoveSelectsTheCurrentRow) {
    const std::vector<std::pair<Qt::Key, int>> keys = {{Qt::Key_Up, 0},     {Qt::Key_Home, 0},
                                                       {Qt::Key_PageUp, 0}, {Qt::Key_Down, 4},
                                                       {Qt::Key_End, 4},    {Qt::Key_PageDown, 4}};
    const auto press = [this](Qt::Key key, int row) {
        table.selectionModel()->clearSelection();
        table.selectionModel()->setCurrentIndex(files.index(row, ResultTable::nameText),
                                                QItemSelectionModel::NoUpdate);
        EXPECT_EQ(table.selectedRow(), -1);
        QTest::keyClick(&table, key);
        return table.selectedRow();
    };
    for (const auto& [key, row] : keys) {
        EXPECT_EQ(press(key, row), row) << key;
    }
    // As while a panel covers the list.
    table.setSelectionMode(QAbstractItemView::NoSelection);
    for (const auto& [key, row] : keys) {
        EXPECT_EQ(press(key, row), -1) << key;
    }
}

TEST_F(ResultTableTest, WithoutARowKeysReportNothing) {
    const QSignalSpy opened(&table, &ResultTable::doubleClick);
    const QSignalSpy clicked(&table, &ResultTable::tableCheckBoxClicked);
    files.removeRows(0, files.rowCount());
    QTest::keyClick(&table, Qt::Key_Return);
    QTest::keyClick(&table, Qt::Key_Space);
    EXPECT_EQ(opened.size(), 0);
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(ResultTableTest, ColumnsFillItAtEverySize) {
    const auto widths = [this] {
        return QVector<int>{table.columnWidth(0), table.columnWidth(1), table.columnWidth(2),
                            table.columnWidth(3)};
    };
    EXPECT_EQ(widths(), QVector<int>({165, 256, 52, 58}));
    EXPECT_EQ(table.horizontalHeader()->height(), 28);
    EXPECT_EQ(table.rowHeight(0), 30);

    resizeTo({1440, 900});
    EXPECT_EQ(widths(), QVector<int>({233, 409, 52, 58}));
    EXPECT_EQ(table.viewport()->width(), 752);
}

TEST_F(ResultTableTest, TheLocationGivesWayToAScrollBar) {
    for (int more = 0; more < 20; ++more) {
        files.add(QStringLiteral("a"), QStringLiteral("/b"), 1, false);
    }
    ASSERT_TRUE(QTest::qWaitFor([this] { return table.verticalScrollBar()->isVisible(); }, 20000));
    EXPECT_EQ(table.columnWidth(ResultTable::nameText), 165);
    EXPECT_EQ(table.columnWidth(ResultTable::fileLocation),
              256 - table.verticalScrollBar()->width());
    // The bar begins below the header, whose band continues above it.
    const int top = table.verticalScrollBar()->mapTo(&table, QPoint(0, 0)).y();
    EXPECT_EQ(top, ResultTable::heightOfHeader);
    EXPECT_EQ(table.grab().toImage().pixelColor(table.width() - 3, 10), QColor(233, 239, 242));
}

TEST_F(ResultTableTest, EverySecondRowIsTinted) {
    const QImage image = table.viewport()->grab().toImage();
    EXPECT_EQ(image.pixelColor(3, 3), QColor(255, 255, 255));
    EXPECT_EQ(image.pixelColor(3, 33), QColor(247, 250, 251));
    EXPECT_EQ(image.pixelColor(3, 63), QColor(255, 255, 255));
    table.selectRow(1);
    EXPECT_EQ(table.viewport()->grab().toImage().pixelColor(3, 33), QColor(217, 239, 243));
}

TEST_F(ResultTableTest, OneMarkRepaintsItsRowAlone) {
    PaintedRegion painted(table.viewport());
    files.item(1, ResultTable::ButtonCell)->setCheckState(Qt::Unchecked);
    EXPECT_EQ(painted.bounds(), QRect(0, 30, table.viewport()->width(), 30));
}

TEST_F(ResultTableTest, MarksLeaveTheCurrentRowAndThePlace) {
    for (int more = 0; more < 40; ++more) {
        files.add(QStringLiteral("a"), QStringLiteral("/b"), 1, false);
    }
    QCoreApplication::processEvents();
    table.selectRow(30);
    QCoreApplication::processEvents();
    const int position = table.verticalScrollBar()->value();
    ASSERT_GT(position, 0);

    Q_EMIT files.dataChanged(files.index(0, ResultTable::ButtonCell),
                             files.index(44, ResultTable::ButtonCell));
    QCoreApplication::processEvents();

    EXPECT_EQ(table.verticalScrollBar()->value(), position);
    EXPECT_EQ(table.currentIndex().row(), 30);
}

TEST_F(ResultTableTest, KeysRequestTheMenuOfTheCurrentRowAlsoFarAway) {
    for (int more = 0; more < 40; ++more) {
        files.add(QStringLiteral("a"), QStringLiteral("/b"), 1, false);
    }
    QCoreApplication::processEvents();
    QSignalSpy requests(&table, &ResultTable::menuRequested);
    for (const int row : {1, 43}) {
        table.setCurrentIndex(files.index(row, ResultTable::fileLocation));
        table.verticalScrollBar()->setValue(row == 1 ? table.verticalScrollBar()->maximum() : 0);
        QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
        QCoreApplication::sendEvent(&table, &byKey);
        ASSERT_EQ(requests.size(), 1);
        EXPECT_EQ(requests.front().at(0).toInt(), row);
        const QRect name = table.visualRect(files.index(row, ResultTable::nameText));
        EXPECT_TRUE(table.viewport()->rect().contains(name));
        EXPECT_EQ(requests.front().at(1).toPoint(),
                  table.viewport()->mapToGlobal(name.bottomLeft() + QPoint(0, 1)));
        requests.clear();
    }
}

/// A confusing file name: a line break, markup, Hebrew and an invalid byte.
const QString hostile = QStringLiteral("a\nb<b>c</b>\u05D0\u05D1\u05D2\uFFFD");
const QString longHostile = hostile + QString(60, QLatin1Char('m'));

TEST_F(ResultTableTest, AHostileNameStaysOnItsLine) {
    const auto cellAt = [this](int row, int column) {
        return table.viewport()->grab(table.visualRect(files.index(row, column))).toImage();
    };
    for (const int column : {ResultTable::nameText, ResultTable::fileLocation}) {
        const auto write = [&](int row, const QString& text) {
            files.setData(files.index(row, column), text);
        };
        write(0, hostile);
        write(2, QString(hostile).replace(QLatin1Char('\n'), QLatin1Char(' ')));
        EXPECT_EQ(cellAt(0, column), cellAt(2, column));
        for (int length = 1; length < hostile.size(); ++length) {
            write(4, hostile.left(length));
            EXPECT_NE(cellAt(0, column), cellAt(4, column)) << column << ' ' << length;
        }
    }
}

class ResultTableTipTest : public ResultTableTest {
 protected:
    void ask(int row, int column) {
        const QPoint position = middleOf(row, column);
        QHelpEvent help(QEvent::ToolTip, position, table.viewport()->mapToGlobal(position));
        QCoreApplication::sendEvent(table.viewport(), &help);
    }
};

TEST_F(ResultTableTipTest, ALongTextIsShownInFullLetterForLetter) {
    files.setData(files.index(0, ResultTable::nameText), longHostile);
    ask(0, ResultTable::nameText);
    EXPECT_EQ(QToolTip::text(),
              QStringLiteral("<span style=\"white-space:pre\">a b&lt;b&gt;c&lt;/b&gt;\u05D0\u05D1"
                             "\u05D2\uFFFD") +
                  QString(60, QLatin1Char('m')) + QStringLiteral("</span>"));

    ask(3, ResultTable::fileLocation);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("/Users/me/Documents/Blog/2023/08/header"));
}

TEST_F(ResultTableTipTest, TheModelsOwnTipIsPreferred) {
    files.setData(files.index(3, ResultTable::fileLocation), QStringLiteral("/whole/path"),
                  Qt::ToolTipRole);
    ask(3, ResultTable::fileLocation);
    EXPECT_EQ(QToolTip::text(), QStringLiteral("/whole/path"));
}

TEST_F(ResultTableTipTest, FittingTextsAndBoxesHaveNoTip) {
    const auto isHidden = [] { return !QToolTip::isVisible(); };
    QToolTip::hideText();
    ASSERT_TRUE(QTest::qWaitFor(isHidden, 20000));
    ask(0, ResultTable::nameText);
    EXPECT_EQ(QToolTip::text(), QString());
    ask(0, ResultTable::ButtonCell);
    EXPECT_EQ(QToolTip::text(), QString());
    // The tip of another cell is hidden.
    ask(3, ResultTable::fileLocation);
    EXPECT_TRUE(QToolTip::isVisible());
    ask(0, ResultTable::nameText);
    EXPECT_TRUE(QTest::qWaitFor(isHidden, 20000));
}

TEST_F(ResultTableTest, AssistiveTechnologyFindsNamesAndStates) {
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&table);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->role(), QAccessible::Table);
    QAccessibleTableInterface* rows = told->tableInterface();
    ASSERT_NE(rows, nullptr);
    EXPECT_EQ(rows->rowCount(), 5);
    EXPECT_EQ(rows->columnDescription(ResultTable::fileLocation), QStringLiteral("Location"));
    QAccessibleInterface* box = rows->cellAt(1, ResultTable::ButtonCell);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(QAccessible::Name), QStringLiteral("Mark IMG_2041 copy.jpg"));
    EXPECT_TRUE(box->state().checked);
    EXPECT_FALSE(rows->cellAt(0, ResultTable::ButtonCell)->state().checked);
}

}  // namespace

}  // namespace tarvin
