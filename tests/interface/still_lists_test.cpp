#include "controls/hover_button.h"
#include "interface/location_screen.h"
#include "interface/location_table.h"
#include "interface/result_screen.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"
#include "support/on_screen.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

/// A user action on a list.
struct Act {
    std::string name;
    std::function<void()> done;
};

/// Lists do not scroll horizontally on any input.
class StillLists : public ShownWindow {
 protected:
    ~StillLists() override {
        tree.setModel(nullptr);
        table.setModel(nullptr);
        locations.setModel(nullptr);
    }

    void showResults() {
        window.selectTabViewItem(QStringLiteral("4"));
        tree.setModel(&result.sets);
        tree.expandAll();
        table.setModel(&result.files);
        QCoreApplication::processEvents();
    }

    void showLocations() {
        window.selectTabViewItem(QStringLiteral("2"));
        rows.add(QStringLiteral("/home/me/Pictures"), QStringLiteral("folder.png"), false);
        rows.add(QStringLiteral("/home/me/Music"), QStringLiteral("folder.png"), true);
        locations.setModel(&rows);
        QCoreApplication::processEvents();
    }

    /// A real click at a point of a list.
    void click(const QAbstractItemView& list, const QPoint& position) {
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                          list.viewport()->mapTo(&window, position));
    }

    Act clickAt(QAbstractItemView& list, const QPoint& position) {
        return {"click at " + std::to_string(position.x()) + ", " + std::to_string(position.y()),
                [this, &list, position] { click(list, position); }};
    }
    static Act press(QAbstractItemView& list, Qt::Key key) {
        return {QKeySequence(key).toString().toStdString(), [&list, key] {
                    list.setFocus();
                    QTest::keyClick(list.window()->windowHandle(), key);
                }};
    }
    /// Turns the wheel horizontally by one notch.
    static Act wheel(QAbstractItemView& list, int angle) {
        return {"wheel " + std::to_string(angle), [&list, angle] {
                    const QPoint position = list.viewport()->rect().center();
                    QWheelEvent turn(position, list.viewport()->mapToGlobal(position), {},
                                     {angle, 0}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                                     false);
                    QCoreApplication::sendEvent(list.viewport(), &turn);
                }};
    }
    static std::vector<Act> keysAndWheel(QAbstractItemView& list) {
        std::vector<Act> acts;
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Home, Qt::Key_Right, Qt::Key_Right,
                                  Qt::Key_Left, Qt::Key_Left, Qt::Key_Right, Qt::Key_Down}) {
            acts.push_back(press(list, key));
        }
        for (const int angle : {-120, -120, 120}) {
            acts.push_back(wheel(list, angle));
        }
        return acts;
    }

    static void expectNoRange(QAbstractItemView& list, const std::string& when) {
        EXPECT_EQ(list.horizontalScrollBar()->minimum(), 0) << when;
        EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0) << when;
        EXPECT_EQ(list.horizontalScrollBar()->value(), 0) << when;
    }

    /// After each action the header is unchanged, and the rows are as in a new painting.
    void expectStill(QAbstractItemView& list, QHeaderView& header, const std::vector<Act>& acts) {
        const QImage titles = onScreen(header);
        expectNoRange(list, "at first");
        for (const Act& act : acts) {
            act.done();
            EXPECT_TRUE(onScreen(header) == titles) << act.name;
            EXPECT_TRUE(isUpToDate(*list.viewport())) << act.name;
            expectNoRange(list, act.name);
        }
    }

    /// The first dark pixel of the tree on a line, from `left` on.
    [[nodiscard]] int darkPixel(int left, int line) {
        const QImage seen = onScreen(*tree.viewport());
        int x = left;
        while (x < seen.width() && qGray(seen.pixel(x, line)) > 160) {
            ++x;
        }
        return x;
    }

    /// The box is painted where it is clicked: `left` is its position in its row, `row` the row of
    /// the click.
    void expectBoxWhereItIsHit(const QModelIndex& row, int left) {
        const int line = tree.visualRect(row).center().y();
        constexpr int behindTheBranch = 22;
        const int drawn = darkPixel(behindTheBranch, line);
        EXPECT_NEAR(drawn, left, 1);
        const QSignalSpy clicked(&tree, &ResultTreeView::checkBoxClicked);
        click(tree, {drawn + 8, line});
        ASSERT_EQ(clicked.size(), 1);
        EXPECT_EQ(clicked.front().front().toModelIndex(), row);
    }

    DrawnResult result{true};
    SomeLocations rows;
    ResultTreeView& tree = *window.results->OView2;
    ResultTable& table = *window.results->resultTable;
    LocationTable& locations = *window.locations->tableExact;
};

TEST_F(StillLists, TheTreeStaysWhereItIs) {
    showResults();
    std::vector<Act> acts{clickAt(tree, {90, 39}), clickAt(tree, {160, 65})};
    for (Act& act : keysAndWheel(tree)) {
        acts.push_back(std::move(act));
    }
    expectStill(tree, *tree.header(), acts);
}

TEST_F(StillLists, BoxesOfTheTreeAreClickedWhereTheyArePainted) {
    showResults();
    constexpr int ofExtensions = 24;
    constexpr int ofSets = 42;
    expectBoxWhereItIsHit(result.sets.setAt(1, 0), ofSets);
    click(tree, {90, 39});
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Home}) {
        press(tree, key).done();
        expectBoxWhereItIsHit(result.sets.setAt(1, 0), ofSets);
    }
    wheel(tree, -120).done();
    expectBoxWhereItIsHit(result.sets.extensionAt(1), ofExtensions);
}

TEST_F(StillLists, TheFileListStaysWhereItIs) {
    showResults();
    std::vector<Act> acts{clickAt(table, {30, 45}), clickAt(table, {300, 75}),
                          clickAt(table, {440, 105})};
    for (Act& act : keysAndWheel(table)) {
        acts.push_back(std::move(act));
    }
    expectStill(table, *table.horizontalHeader(), acts);
}

TEST_F(StillLists, TheLocationsStayWhereTheyAre) {
    showLocations();
    std::vector<Act> acts{clickAt(locations, {30, 30}), clickAt(locations, {700, 90})};
    for (Act& act : keysAndWheel(locations)) {
        acts.push_back(std::move(act));
    }
    expectStill(locations, *locations.horizontalHeader(), acts);
}

TEST_F(StillLists, HaveNothingBesideThemAtAnySize) {
    for (int more = 0; more < 60; ++more) {
        result.files.add(QStringLiteral("a"), QStringLiteral("/b"), 1, false);
    }
    showResults();
    for (const QSize size : {QSize(1440, 900), QSize(1016, 531), QSize(1017, 700)}) {
        resizeTo(size);
        expectNoRange(tree, std::to_string(size.width()));
        expectNoRange(table, std::to_string(size.width()));
        EXPECT_EQ(tree.header()->length(), tree.viewport()->width());
        EXPECT_EQ(table.horizontalHeader()->length(), table.viewport()->width());
    }
}

class RingOfLists : public StillLists {
 protected:
    /// Focuses a list by Tab: only then the ring is shown.
    void comeByKey(QAbstractItemView& list) {
        list.setFocus(Qt::TabFocusReason);
        window.setAttribute(Qt::WA_KeyboardFocusChange);
        list.viewport()->update();
        QCoreApplication::processEvents();
    }

    /// After each action the ring is at the current row, and nowhere else.
    void expectRing(QAbstractItemView& list, const std::vector<Act>& acts) {
        for (const Act& act : acts) {
            act.done();
            EXPECT_TRUE(isUpToDate(*list.viewport())) << act.name;
            EXPECT_EQ(ringsIn(list), 1) << act.name;
        }
    }

    /// The number of rows with the ring's colour at their left edge.
    int ringsIn(QAbstractItemView& list) {
        const QImage seen = onScreen(*list.viewport());
        int rings = 0;
        bool before = false;
        for (int y = 0; y < seen.height(); ++y) {
            const bool isRing = seen.pixelColor(0, y) == QColor(10, 58, 82);
            rings += isRing && !before ? 1 : 0;
            before = isRing;
        }
        return rings;
    }

    static Act makeCurrent(QAbstractItemView& list, int row, int column) {
        return {"current " + std::to_string(row), [&list, row, column] {
                    list.selectionModel()->setCurrentIndex(list.model()->index(row, column),
                                                           QItemSelectionModel::NoUpdate);
                }};
    }
};

TEST_F(RingOfLists, OfFilesLeavesNothingBehind) {
    showResults();
    table.selectFile(0);
    comeByKey(table);
    expectRing(table, {makeCurrent(table, 3, ResultTable::ButtonCell),
                       makeCurrent(table, 1, ResultTable::nameText),
                       makeCurrent(table, 1, ResultTable::fileGroup), press(table, Qt::Key_Down),
                       press(table, Qt::Key_Space), press(table, Qt::Key_Up)});
    window.results->markAll->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(isUpToDate(*table.viewport()));
    EXPECT_EQ(ringsIn(table), 0);
}

TEST_F(RingOfLists, OfTheTreeLeavesNothingBehind) {
    showResults();
    tree.selectSet(result.sets.setAt(0, 0));
    comeByKey(tree);
    expectRing(tree, {press(tree, Qt::Key_Down), press(tree, Qt::Key_Down),
                      makeCurrent(tree, 0, ResultTreeView::name), press(tree, Qt::Key_P),
                      press(tree, Qt::Key_Space), press(tree, Qt::Key_Home)});
    table.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(isUpToDate(*tree.viewport()));
    EXPECT_EQ(ringsIn(tree), 0);
}

TEST_F(RingOfLists, OfLocationsLeavesNothingBehind) {
    showLocations();
    locations.setCurrentIndex(rows.index(0, 0));
    comeByKey(locations);
    expectRing(locations, {makeCurrent(locations, 1, LocationTable::mainCell),
                           makeCurrent(locations, 0, LocationTable::buttonCell),
                           press(locations, Qt::Key_Down), press(locations, Qt::Key_Space)});
    window.locations->addPhotos->setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(isUpToDate(*locations.viewport()));
    EXPECT_EQ(ringsIn(locations), 0);
}

TEST_F(RingOfLists, IsHiddenWhenTheMouseIsUsed) {
    showResults();
    table.selectFile(0);
    comeByKey(table);
    ASSERT_EQ(ringsIn(table), 1);
    click(table, table.visualRect(result.files.index(3, ResultTable::ButtonCell)).center());
    EXPECT_TRUE(isUpToDate(*table.viewport()));
    comeByKey(tree);
    tree.setCurrentIndex(result.sets.setAt(0, 0));
    ASSERT_EQ(ringsIn(tree), 1);
    click(tree, tree.visualRect(result.sets.extensionAt(1)).center());
    EXPECT_TRUE(isUpToDate(*tree.viewport()));
}

}  // namespace

}  // namespace tarvin
