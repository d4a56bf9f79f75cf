#include "controls/look.h"
#include "interface/painted_region.h"
#include "interface/result_screen.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"
#include "interface/tree_row.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>

namespace tarvin {

namespace {

class ResultTreeViewTest : public ShownWindow {
 protected:
    ResultTreeViewTest() {
        window.selectTabViewItem(QStringLiteral("4"));
        tree.setModel(&sets);
        tree.expandAll();
        QCoreApplication::processEvents();
    }
    ~ResultTreeViewTest() override { tree.setModel(nullptr); }

    [[nodiscard]] QPoint nameOf(const QModelIndex& row) const {
        return tree.visualRect(row.siblingAtColumn(ResultTreeView::name)).center();
    }
    [[nodiscard]] QPoint boxOf(const QModelIndex& row) const { return parts(row).box().center(); }
    [[nodiscard]] TreeRow parts(const QModelIndex& row) const {
        const int top = tree.visualRect(row).top();
        return {QRect(0, top, tree.viewport()->width(), ResultTreeView::heightOfRows),
                ResultTreeView::isSet(row)};
    }
    void click(const QPoint& position, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, modifiers, position);
    }
    void doubleClick(const QPoint& position) {
        click(position);
        QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, position);
        QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, position);
    }
    [[nodiscard]] QString selected() const {
        return tree.selectedSet().siblingAtColumn(ResultTreeView::name).data().toString();
    }

    DrawnResult result{true};
    SomeSets& sets = result.sets;
    ResultTreeView& tree = *window.results->OView2;
};

TEST_F(ResultTreeViewTest, AClickOnASetSelectsIt) {
    click(nameOf(sets.setAt(0, 1)));
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 1));
    EXPECT_EQ(selected(), QStringLiteral("Set(2)"));

    click(nameOf(sets.setAt(2, 0)));
    EXPECT_EQ(tree.selectedSet(), sets.setAt(2, 0));
}

TEST_F(ResultTreeViewTest, TheWholeRowBesideTheBoxSelects) {
    const QRect row = tree.visualRect(sets.setAt(0, 1).siblingAtColumn(ResultTreeView::name));
    click({tree.viewport()->width() - 2, row.center().y()});
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 1));
    click({3, tree.visualRect(sets.setAt(0, 2)).center().y()});
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 2));
}

TEST_F(ResultTreeViewTest, AnExtensionIsNotSelected) {
    click(nameOf(sets.setAt(0, 1)));
    click(nameOf(sets.extensionAt(1)));
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 1));
}

TEST_F(ResultTreeViewTest, NoModifierAndNoOtherButtonSelectsOrClears) {
    click(nameOf(sets.setAt(0, 1)), Qt::ControlModifier);
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 1));
    click(nameOf(sets.setAt(0, 1)), Qt::ControlModifier);
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 1));
    click(nameOf(sets.setAt(1, 0)), Qt::ShiftModifier);
    EXPECT_EQ(tree.selectedSet(), sets.setAt(1, 0));
    QTest::mouseClick(tree.viewport(), Qt::RightButton, {}, nameOf(sets.setAt(0, 0)));
    EXPECT_EQ(tree.selectedSet(), sets.setAt(1, 0));
    EXPECT_EQ(tree.selectionModel()->selectedRows().size(), 1);
}

TEST_F(ResultTreeViewTest, AClickBelowTheRowsChangesNothing) {
    while (sets.rowCount() > 1) {
        sets.removeRow(1);
    }
    click(nameOf(sets.setAt(0, 1)));
    const QSignalSpy asked(&tree, &ResultTreeView::selectionShouldChange);
    click({60, tree.viewport()->height() - 5});
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 1));
    EXPECT_EQ(asked.size(), 0);
}

TEST_F(ResultTreeViewTest, AskedBeforeTheSelectionChanges) {
    click(nameOf(sets.setAt(0, 1)));
    QStringList seen;
    QObject::connect(
        &tree, &ResultTreeView::selectionShouldChange, &tree, [&](const QModelIndex& set) {
            seen.push_back(set.siblingAtColumn(ResultTreeView::name).data().toString() +
                           QStringLiteral(" while ") + selected());
        });

    click(nameOf(sets.setAt(0, 0)));
    click(nameOf(sets.setAt(0, 0)));
    click(nameOf(sets.extensionAt(0)));
    click(boxOf(sets.setAt(0, 2)));

    EXPECT_EQ(seen, QStringList({QStringLiteral("Set(4) while Set(2)"),
                                 QStringLiteral("Set(4) while Set(4)")}));
}

TEST_F(ResultTreeViewTest, ADoubleClickRequestsTheSetOnce) {
    const QSignalSpy asked(&tree, &ResultTreeView::selectionShouldChange);
    doubleClick(nameOf(sets.setAt(0, 1)));
    EXPECT_EQ(asked.size(), 1);
}

TEST_F(ResultTreeViewTest, AQuickClickOnAnotherSetSelectsThat) {
    click(nameOf(sets.setAt(0, 1)));
    QTest::mouseDClick(tree.viewport(), Qt::LeftButton, {}, nameOf(sets.setAt(0, 2)));
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 2));
}

TEST_F(ResultTreeViewTest, DraggingSelectsNothingMore) {
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, nameOf(sets.setAt(0, 0)));
    QMouseEvent move(QEvent::MouseMove, nameOf(sets.setAt(0, 2)),
                     tree.viewport()->mapToGlobal(nameOf(sets.setAt(0, 2))), Qt::NoButton,
                     Qt::LeftButton, {});
    QCoreApplication::sendEvent(tree.viewport(), &move);
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, nameOf(sets.setAt(0, 2)));
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 0));
}

TEST_F(ResultTreeViewTest, KeysMoveTheRingAndNeverTheSelection) {
    click(nameOf(sets.setAt(0, 0)));
    const QSignalSpy asked(&tree, &ResultTreeView::selectionShouldChange);
    const QSignalSpy changed(tree.selectionModel(), &QItemSelectionModel::selectionChanged);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End, Qt::Key_Up,
                              Qt::Key_Home, Qt::Key_Z, Qt::Key_Return, Qt::Key_Down}) {
        for (const Qt::KeyboardModifiers with :
             {Qt::KeyboardModifiers(), Qt::KeyboardModifiers(Qt::ShiftModifier)}) {
            QTest::keyClick(&tree, key, with);
        }
    }
    EXPECT_NE(tree.currentIndex().siblingAtColumn(0), sets.setAt(0, 0));
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 0));
    EXPECT_EQ(asked.size(), 0);
    EXPECT_EQ(changed.size(), 0);
}

TEST_F(ResultTreeViewTest, ArrowsVisitExtensionsAndSets) {
    tree.selectSet(sets.setAt(0, 2));
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_EQ(tree.currentIndex().siblingAtColumn(0), sets.extensionAt(1));
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_EQ(tree.currentIndex().siblingAtColumn(0), sets.setAt(1, 0));
    QTest::keyClick(&tree, Qt::Key_Up);
    EXPECT_EQ(tree.currentIndex().siblingAtColumn(0), sets.extensionAt(1));
}

TEST_F(ResultTreeViewTest, LeftAndRightCollapseAndExpand) {
    tree.selectSet(sets.setAt(0, 2));
    QTest::keyClick(&tree, Qt::Key_Down);
    QTest::keyClick(&tree, Qt::Key_Left);
    EXPECT_FALSE(tree.isExpanded(sets.extensionAt(1)));
    QTest::keyClick(&tree, Qt::Key_Right);
    EXPECT_TRUE(tree.isExpanded(sets.extensionAt(1)));
}

TEST_F(ResultTreeViewTest, ALetterFindsTheNextExtension) {
    tree.selectSet(sets.setAt(0, 2));
    QTest::keyClick(&tree, Qt::Key_P);
    EXPECT_EQ(tree.currentIndex(), sets.extensionAt(1));
    QTest::keyClick(&tree, Qt::Key_P);
    EXPECT_EQ(tree.currentIndex(), sets.extensionAt(4));
    QTest::keyClick(&tree, Qt::Key_P);
    EXPECT_EQ(tree.currentIndex(), sets.extensionAt(1));
    QTest::keyClick(&tree, Qt::Key_X);
    EXPECT_EQ(tree.currentIndex(), sets.extensionAt(1));
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 2));
    sets.removeRows(0, sets.rowCount());
    QTest::keyClick(&tree, Qt::Key_P);
    EXPECT_FALSE(tree.currentIndex().isValid());
}

TEST_F(ResultTreeViewTest, SpaceReportsTheRowOfTheRing) {
    const QSignalSpy clicked(&tree, &ResultTreeView::checkBoxClicked);
    tree.selectSet(sets.setAt(0, 2));
    QTest::keyClick(&tree, Qt::Key_Space);
    QTest::keyClick(&tree, Qt::Key_Down);
    QTest::keyClick(&tree, Qt::Key_Space);

    ASSERT_EQ(clicked.size(), 2);
    EXPECT_EQ(clicked[0].front().toModelIndex(), sets.setAt(0, 2));
    EXPECT_EQ(clicked[1].front().toModelIndex(), sets.extensionAt(1));
}

TEST_F(ResultTreeViewTest, AHeldSpaceReportsOnce) {
    const QSignalSpy clicked(&tree, &ResultTreeView::checkBoxClicked);
    tree.selectSet(sets.setAt(0, 2));
    hold(tree, Qt::Key_Space);
    EXPECT_EQ(clicked.size(), 1);
}

TEST_F(ResultTreeViewTest, SpaceWithoutARowReportsNothing) {
    const QSignalSpy clicked(&tree, &ResultTreeView::checkBoxClicked);
    tree.setCurrentIndex({});
    QTest::keyClick(&tree, Qt::Key_Space);
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(ResultTreeViewTest, ABoxReportsItsClickAndChangesNothing) {
    click(nameOf(sets.setAt(0, 0)));
    const QSignalSpy clicked(&tree, &ResultTreeView::checkBoxClicked);
    const QSignalSpy written(&sets, &QAbstractItemModel::dataChanged);

    click(boxOf(sets.setAt(1, 0)));
    click(boxOf(sets.extensionAt(1)));

    ASSERT_EQ(clicked.size(), 2);
    EXPECT_EQ(clicked[0].front().toModelIndex(), sets.setAt(1, 0));
    EXPECT_EQ(clicked[1].front().toModelIndex(), sets.extensionAt(1));
    EXPECT_EQ(written.size(), 0);
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 0));
}

TEST_F(ResultTreeViewTest, TheReachOfABoxIsWiderThanTheBox) {
    const QSignalSpy clicked(&tree, &ResultTreeView::checkBoxClicked);
    const TreeRow row = parts(sets.setAt(0, 1));
    click(row.box().topLeft() - QPoint(4, 3));
    click(row.box().bottomRight() + QPoint(4, 3));
    EXPECT_EQ(clicked.size(), 2);
    click(row.name().topLeft() + QPoint(1, 4));
    EXPECT_EQ(clicked.size(), 2);
}

TEST_F(ResultTreeViewTest, AClickOnABoxEndsInTheBoxWhereItBegan) {
    const QSignalSpy clicked(&tree, &ResultTreeView::checkBoxClicked);
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, boxOf(sets.setAt(0, 0)));
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, boxOf(sets.setAt(0, 1)));
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, boxOf(sets.setAt(0, 0)));
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, nameOf(sets.setAt(0, 0)));
    QTest::mouseClick(tree.viewport(), Qt::RightButton, {}, boxOf(sets.setAt(0, 0)));
    EXPECT_EQ(clicked.size(), 0);
    EXPECT_FALSE(tree.selectedSet().isValid());
}

TEST_F(ResultTreeViewTest, ADoubleClickOnABoxIsTwoClicksAndOpensNothing) {
    const QSignalSpy clicked(&tree, &ResultTreeView::checkBoxClicked);
    doubleClick(boxOf(sets.extensionAt(0)));
    EXPECT_EQ(clicked.size(), 2);
    EXPECT_TRUE(tree.isExpanded(sets.extensionAt(0)));
}

TEST_F(ResultTreeViewTest, TheChevronAndADoubleClickOnTheNameCollapse) {
    const QSignalSpy clicked(&tree, &ResultTreeView::checkBoxClicked);
    click(parts(sets.extensionAt(0)).branch().center());
    EXPECT_FALSE(tree.isExpanded(sets.extensionAt(0)));
    click(parts(sets.extensionAt(0)).branch().center());
    EXPECT_TRUE(tree.isExpanded(sets.extensionAt(0)));
    doubleClick(nameOf(sets.extensionAt(0)));
    EXPECT_FALSE(tree.isExpanded(sets.extensionAt(0)));
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(ResultTreeViewTest, ARowRemovedDuringAPressReportsNothing) {
    const QSignalSpy clicked(&tree, &ResultTreeView::checkBoxClicked);
    const QPoint box = boxOf(sets.setAt(0, 0));
    QTest::mousePress(tree.viewport(), Qt::LeftButton, {}, box);
    sets.clear();
    QTest::mouseRelease(tree.viewport(), Qt::LeftButton, {}, box);
    EXPECT_EQ(clicked.size(), 0);
}

TEST_F(ResultTreeViewTest, SelectSetScrollsToItAndEmitsNothing) {
    const QSignalSpy asked(&tree, &ResultTreeView::selectionShouldChange);
    tree.selectSet(sets.setAt(5, 1));
    EXPECT_EQ(tree.selectedSet(), sets.setAt(5, 1));
    EXPECT_EQ(tree.currentIndex(), sets.setAt(5, 1));
    EXPECT_TRUE(tree.viewport()->rect().contains(parts(sets.setAt(5, 1)).box()));
    EXPECT_EQ(asked.size(), 0);

    tree.selectSet(sets.extensionAt(0));
    tree.selectSet({});
    EXPECT_EQ(tree.selectedSet(), sets.setAt(5, 1));
}

TEST_F(ResultTreeViewTest, NothingIsSelectedWithoutAModel) {
    tree.setModel(nullptr);
    tree.expandAll();
    EXPECT_FALSE(tree.selectedSet().isValid());
    tree.setModel(&sets);
    EXPECT_FALSE(tree.selectedSet().isValid());
}

TEST_F(ResultTreeViewTest, MarksLeaveExpansionSelectionAndPlace) {
    tree.selectSet(sets.setAt(5, 1));
    tree.collapse(sets.extensionAt(1));
    QCoreApplication::processEvents();
    const int position = tree.verticalScrollBar()->value();
    ASSERT_GT(position, 0);

    sets.itemFromIndex(sets.setAt(4, 0))->setCheckState(Qt::Unchecked);
    for (int extension = 0; extension < sets.rowCount(); ++extension) {
        const QModelIndex first = sets.setAt(extension, 0);
        Q_EMIT sets.dataChanged(first, sets.setAt(extension, sets.rowCount(first.parent()) - 1));
    }
    QCoreApplication::processEvents();

    EXPECT_EQ(tree.verticalScrollBar()->value(), position);
    EXPECT_EQ(tree.selectedSet(), sets.setAt(5, 1));
    EXPECT_FALSE(tree.isExpanded(sets.extensionAt(1)));
    EXPECT_TRUE(tree.isExpanded(sets.extensionAt(4)));
}

TEST_F(ResultTreeViewTest, OneMarkRepaintsItsRowAlone) {
    PaintedRegion painted(tree.viewport());
    sets.itemFromIndex(sets.setAt(0, 1))->setCheckState(Qt::Unchecked);
    const int top = tree.visualRect(sets.setAt(0, 1)).top();
    EXPECT_EQ(painted.bounds(),
              QRect(0, top, tree.viewport()->width(), ResultTreeView::heightOfRows));
}

TEST_F(ResultTreeViewTest, AMarkOutOfViewRepaintsNothing) {
    PaintedRegion painted(tree.viewport());
    sets.itemFromIndex(sets.setAt(5, 1))->setCheckState(Qt::Checked);
    EXPECT_TRUE(painted.bounds().isEmpty());
}

TEST_F(ResultTreeViewTest, AMarkInAnExtensionThatIsCollapsedRepaintsNothing) {
    tree.collapse(sets.extensionAt(0));
    PaintedRegion painted(tree.viewport());
    sets.itemFromIndex(sets.setAt(0, 1))->setCheckState(Qt::Unchecked);
    EXPECT_TRUE(painted.bounds().isEmpty());
}

TEST_F(ResultTreeViewTest, TheLastRowInViewIsRepaintedAtEveryScrollPosition) {
    for (int position = 0; position < ResultTreeView::heightOfRows; ++position) {
        tree.verticalScrollBar()->setValue(position);
        const int bottom = tree.viewport()->height() - 1;
        const QModelIndex last = tree.indexAt({0, bottom});
        ASSERT_TRUE(last.isValid());
        PaintedRegion painted(tree.viewport());
        Q_EMIT sets.dataChanged(last, last);
        EXPECT_EQ(painted.bounds().bottom(), bottom) << position;
        EXPECT_LE(painted.bounds().height(), ResultTreeView::heightOfRows) << position;
    }
}

TEST_F(ResultTreeViewTest, AMarkBehindAllOthersIsRepaintedAgain) {
    Q_EMIT sets.dataChanged(sets.setAt(0, 0), sets.setAt(0, 1));
    PaintedRegion painted(tree.viewport());
    const QModelIndex row = sets.setAt(0, 1);
    Q_EMIT sets.dataChanged(row, row);
    EXPECT_EQ(painted.bounds(), QRect(0, tree.visualRect(row).top(), tree.viewport()->width(),
                                      ResultTreeView::heightOfRows));
}

TEST_F(ResultTreeViewTest, TheRingMovesByRepaintingTwoRows) {
    tree.selectSet(sets.setAt(0, 0));
    tree.setFocus(Qt::TabFocusReason);
    PaintedRegion painted(tree.viewport());
    QTest::keyClick(&tree, Qt::Key_Down);
    const int top = tree.visualRect(sets.setAt(0, 0)).top();
    EXPECT_EQ(painted.bounds(),
              QRect(0, top, tree.viewport()->width(), 2 * ResultTreeView::heightOfRows));
}

TEST_F(ResultTreeViewTest, RowsHaveTheHeightOfTheDesign) {
    EXPECT_EQ(tree.visualRect(sets.extensionAt(0)).height(), 26);
    EXPECT_EQ(tree.visualRect(sets.setAt(0, 0)).top() - tree.visualRect(sets.extensionAt(0)).top(),
              26);
    EXPECT_EQ(tree.header()->height(), 25);
}

TEST_F(ResultTreeViewTest, BoxesAndNamesHaveTheGeometryOfTheDesign) {
    // In the content of the window; the tree's rows begin at 13, 125.
    const QPoint first = tree.viewport()->mapTo(&window, QPoint(0, 0));
    EXPECT_EQ(first, QPoint(13, 125));
    EXPECT_EQ(parts(sets.extensionAt(0)).branch(), QRect(6, 6, 14, 14));
    EXPECT_EQ(parts(sets.extensionAt(0)).box(), QRect(24, 5, 16, 16));
    EXPECT_EQ(parts(sets.extensionAt(0)).name().left(), 48);
    EXPECT_EQ(parts(sets.setAt(0, 0)).box(), QRect(42, 31, 16, 16));
    EXPECT_EQ(parts(sets.setAt(0, 0)).name().left(), 66);
}

TEST_F(ResultTreeViewTest, EachStateIsPainted) {
    const auto boxAt = [this](const QModelIndex& row) {
        return tree.viewport()->grab(parts(row).box()).toImage();
    };
    const QImage mixed = boxAt(sets.setAt(0, 0));
    const QImage on = boxAt(sets.setAt(0, 1));
    const QImage off = boxAt(sets.setAt(1, 0));
    EXPECT_NE(mixed, on);
    EXPECT_NE(mixed, off);
    EXPECT_NE(on, off);
    EXPECT_EQ(off.pixelColor(off.rect().center()), QColor(255, 255, 255));
}

/// A confusing file name: a line break, markup, Hebrew and an invalid byte.
const QString hostileName = QStringLiteral("a\nb<b>c</b>\u05D0\u05D1\u05D2\uFFFD");

TEST_F(ResultTreeViewTest, AHostileNameStaysOnItsLine) {
    // As far as there is room.
    const QString name = QStringLiteral("a\n<b>\u05D0\u05D1\u05D2\uFFFD");
    const auto write = [this](int set, const QString& text) {
        sets.setData(sets.index(set, ResultTreeView::name, sets.extensionAt(0)), text);
    };
    write(0, name);
    write(1, QString(name).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    const auto nameAt = [this](int set) {
        const QModelIndex index = sets.setAt(0, set).siblingAtColumn(ResultTreeView::name);
        return tree.viewport()->grab(tree.visualRect(index)).toImage();
    };
    EXPECT_EQ(nameAt(0), nameAt(1));
    for (int length = 1; length < name.size(); ++length) {
        write(1, name.left(length));
        EXPECT_NE(nameAt(0), nameAt(1)) << length;
    }
}

TEST_F(ResultTreeViewTest, ALongNameIsShownInFullLetterForLetter) {
    const QModelIndex longOne = sets.index(0, ResultTreeView::name, sets.extensionAt(0));
    sets.setData(longOne, QString(hostileName + QString(60, QLatin1Char('m'))));
    const auto ask = [this](const QModelIndex& index) {
        const QPoint position = tree.visualRect(index).center();
        QHelpEvent help(QEvent::ToolTip, position, tree.viewport()->mapToGlobal(position));
        QCoreApplication::sendEvent(tree.viewport(), &help);
    };
    ask(longOne);
    EXPECT_EQ(QToolTip::text(),
              QStringLiteral("<span style=\"white-space:pre\">a b&lt;b&gt;c&lt;/b&gt;\u05D0\u05D1"
                             "\u05D2\uFFFD") +
                  QString(60, QLatin1Char('m')) + QStringLiteral("</span>"));

    ask(sets.index(1, ResultTreeView::name, sets.extensionAt(0)));
    EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }, 20000));
}

TEST_F(ResultTreeViewTest, TheToolTipOfASetHasItsDetails) {
    const QModelIndex label = sets.index(0, ResultTreeView::name, sets.extensionAt(0));
    sets.setData(label, QStringLiteral("a.jpg\n5 files"), ResultTreeView::detailsRole);
    const auto ask = [this, &label] {
        const QPoint position = tree.visualRect(label).center();
        QHelpEvent help(QEvent::ToolTip, position, tree.viewport()->mapToGlobal(position));
        QCoreApplication::sendEvent(tree.viewport(), &help);
    };
    ask();
    EXPECT_EQ(QToolTip::text(), QStringLiteral("a.jpg\n5 files"));

    const QString longName(60, QLatin1Char('m'));
    sets.setData(label, longName);
    ask();
    EXPECT_EQ(QToolTip::text(), longName + QStringLiteral("\na.jpg\n5 files"));

    sets.setData(label, QStringLiteral("<b>a</b>\n5 files"), ResultTreeView::detailsRole);
    sets.setData(label, QStringLiteral("Set(4)"));
    ask();
    EXPECT_EQ(QToolTip::text(), QStringLiteral("<span style=\"white-space:pre\">"
                                               "&lt;b&gt;a&lt;/b&gt;\n5 files</span>"));
}

TEST_F(ResultTreeViewTest, TheSizeOfASetEndsBesideTheEdgeOrTheScrollBar) {
    const TreeRow row(QRect(0, 26, 181, 26), true);
    const QRect atEdge =
        row.size({.name = QStringLiteral("Set(4)"), .size = QStringLiteral("9 MB")});
    EXPECT_EQ(atEdge.right() + 1, 173);
    EXPECT_EQ(atEdge.top(), 26);
    EXPECT_EQ(atEdge.height(), 26);
    const QRect atBar = row.size({.name = QStringLiteral("Set(4)"),
                                  .size = QStringLiteral("9 MB"),
                                  .isBesideScrollBar = true});
    EXPECT_EQ(atBar.right() + 1, 177);
    EXPECT_EQ(atBar.width(), atEdge.width());
    EXPECT_TRUE(row.size({.name = QStringLiteral("Set(4)"), .size = QString()}).isEmpty());
}

TEST_F(ResultTreeViewTest, TheSizeOfASetLeavesFourPixelsToTheName) {
    const QString name = QStringLiteral("Set(4)");
    const QString size = QStringLiteral("9 MB");
    const QRect place = TreeRow(QRect(0, 0, 181, 26), true).size({.name = name, .size = size});
    const TreeRow wide(QRect(0, 0, 181, 26), true);
    const int end = wide.name().left() + QFontMetrics(wide.nameFont()).horizontalAdvance(name);
    const int spare = place.left() - end - 4;
    ASSERT_GT(spare, 0);
    const auto sizeIn = [&](int width) {
        return TreeRow(QRect(0, 0, width, 26), true).size({.name = name, .size = size});
    };
    EXPECT_FALSE(sizeIn(181 - spare).isEmpty());
    EXPECT_TRUE(sizeIn(180 - spare).isEmpty());
}

TEST_F(ResultTreeViewTest, TheSizeOfASetIsNotElided) {
    const QFontMetricsF exact(look::font(12));
    for (int tenths = 0; tenths < 1000; ++tenths) {
        const QString size = QString::number(tenths / 10.0, 'f', 1) + QStringLiteral(" KB");
        const QRect place = TreeRow(QRect(0, 0, 400, 26), true).size({.name = {}, .size = size});
        EXPECT_LE(exact.horizontalAdvance(size), place.width()) << size.toStdString();
    }
}

TEST_F(ResultTreeViewTest, PaintsTheSizeOfASet) {
    const QModelIndex label = sets.index(0, ResultTreeView::name, sets.extensionAt(0));
    const QRect row = tree.visualRect(label);
    const QRect right(tree.viewport()->width() - 50, row.top(), 50, row.height());
    const QImage before = tree.viewport()->grab(right).toImage();
    sets.setData(label, QStringLiteral("19 MB"), ResultTreeView::sizeRole);
    EXPECT_NE(tree.viewport()->grab(right).toImage(), before);
}

TEST_F(ResultTreeViewTest, ANeighbourIsClickedAlsoInACollapsedExtension) {
    const QSignalSpy asked(&tree, &ResultTreeView::selectionShouldChange);
    tree.clickNeighbour(1);
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 0));
    tree.clickNeighbour(-1);
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 0));
    EXPECT_EQ(asked.size(), 1);
    tree.selectSet(sets.setAt(0, 2));
    tree.collapse(sets.extensionAt(1));
    tree.clickNeighbour(1);
    EXPECT_EQ(tree.selectedSet(), sets.setAt(1, 0));
    EXPECT_TRUE(tree.isExpanded(sets.extensionAt(1)));
    tree.clickNeighbour(-1);
    EXPECT_EQ(tree.selectedSet(), sets.setAt(0, 2));
    EXPECT_EQ(asked.size(), 3);
    tree.selectSet(sets.setAt(5, 1));
    tree.clickNeighbour(1);
    EXPECT_EQ(tree.selectedSet(), sets.setAt(5, 1));
}

TEST_F(ResultTreeViewTest, TheMenuOpensOnlyOnARow) {
    QMenu& menu = *window.results->outlineMenu;
    Q_EMIT tree.customContextMenuRequested(nameOf(sets.setAt(0, 0)));
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    while (sets.rowCount() > 1) {
        sets.removeRow(1);
    }
    Q_EMIT tree.customContextMenuRequested({60, tree.viewport()->height() - 5});
    EXPECT_FALSE(menu.isVisible());
}

TEST_F(ResultTreeViewTest, KeysOpenTheMenuOfTheCurrentRowAlsoFarAway) {
    QMenu& menu = *window.results->outlineMenu;
    tree.setFocus();
    tree.selectSet(sets.setAt(0, 1));
    tree.scrollToBottom();
    ASSERT_LT(tree.visualRect(sets.setAt(0, 1)).top(), 0);
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(&tree, &byKey);
    EXPECT_TRUE(menu.isVisible());
    const QRect box = tree.visualRect(sets.setAt(0, 1));
    EXPECT_TRUE(tree.viewport()->rect().contains(box));
    EXPECT_EQ(menu.pos(), tree.viewport()->mapToGlobal(box.bottomLeft()));
    menu.close();
}

TEST_F(ResultTreeViewTest, AssistiveTechnologyFindsNamesAndStates) {
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&tree);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->text(QAccessible::Name), QStringLiteral("Extensions and sets"));
    EXPECT_EQ(told->role(), QAccessible::Tree);
    QAccessibleTableInterface* rows = told->tableInterface();
    ASSERT_NE(rows, nullptr);
    EXPECT_EQ(rows->rowCount(), 17);
    QAccessibleInterface* box = rows->cellAt(1, ResultTreeView::check);
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(QAccessible::Name), QStringLiteral("Mark Set(4)"));
    EXPECT_TRUE(box->state().checkable);
    EXPECT_FALSE(box->state().checked);
    EXPECT_TRUE(rows->cellAt(2, ResultTreeView::check)->state().checked);
    EXPECT_EQ(rows->cellAt(2, ResultTreeView::name)->text(QAccessible::Name),
              QStringLiteral("Set(2)"));
}

class ResultTreeViewParts : public ResultTreeViewTest {
 protected:
    ResultTreeViewParts() {
        tree.collapseAll();
        tree.setSetsOfPart(4);  // the first two extensions have three sets and one
    }

    [[nodiscard]] int expanded() const {
        int count = 0;
        for (int row = 0; row < sets.rowCount(); ++row) {
            count += static_cast<int>(tree.isExpanded(sets.extensionAt(row)));
        }
        return count;
    }
};

TEST_F(ResultTreeViewParts, ExpandTheFirstExtensionsAtOnceAndTheOthersSoon) {
    tree.expandAll();
    EXPECT_TRUE(tree.isExpandingAll());
    EXPECT_EQ(expanded(), 2);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !tree.isExpandingAll(); }, 20000));
    EXPECT_EQ(expanded(), sets.rowCount());
    const int last = sets.rowCount() - 1;
    EXPECT_EQ(tree.rowOf(sets.setAt(last, sets.rowCount(sets.extensionAt(last)) - 1)),
              tree.shownRows() - 1);
}

TEST_F(ResultTreeViewParts, AreOneIfTheyHoldAllSets) {
    tree.setSetsOfPart(100);
    tree.expandAll();
    EXPECT_FALSE(tree.isExpandingAll());
    EXPECT_EQ(expanded(), sets.rowCount());
}

TEST_F(ResultTreeViewParts, AreAllExpandedBeforeAKeyActs) {
    tree.setCurrentIndex(sets.extensionAt(0));
    tree.expandAll();
    QTest::keyClick(&tree, Qt::Key_End);
    EXPECT_FALSE(tree.isExpandingAll());
    EXPECT_EQ(expanded(), sets.rowCount());
    EXPECT_EQ(tree.rowOf(tree.currentIndex()), tree.shownRows() - 1);
}

TEST_F(ResultTreeViewParts, EndWithAnotherList) {
    tree.expandAll();
    ASSERT_TRUE(tree.isExpandingAll());
    tree.reset();
    EXPECT_FALSE(tree.isExpandingAll());
    tree.expandAll();
    ASSERT_TRUE(tree.isExpandingAll());
    SomeSets none;
    tree.setModel(&none);
    EXPECT_FALSE(tree.isExpandingAll());
    tree.setModel(nullptr);
}

}  // namespace

}  // namespace tarvin
