#include "interface/location_table.h"
#include "interface/result_screen.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"
#include "support/on_screen.h"

namespace tarvin {

namespace {

/// Compares what the screen shows of the lists with a new painting of them.
class ListRepaintTest : public ShownWindow {
 protected:
    ListRepaintTest() {
        rows.add(QStringLiteral("/home/me/Pictures"), QStringLiteral("folder.png"), false);
        rows.add(QStringLiteral("/home/me/Music"), QStringLiteral("folder.png"), true);
        locations.setModel(&rows);
        tree.setModel(&result.sets);
        tree.expandAll();
        table.setModel(&result.files);
    }
    ~ListRepaintTest() override {
        tree.setModel(nullptr);
        table.setModel(nullptr);
        locations.setModel(nullptr);
    }

    void show(const char* screen) {
        window.selectTabViewItem(QLatin1String(screen));
        QCoreApplication::processEvents();
    }

    static QPoint boxOf(const QAbstractItemView& list, const QModelIndex& box) {
        return list.visualRect(box).center();
    }

    /// A click with the pointer at rest on the box, in a list with the focus: what follows is not
    /// repainted for either.
    void click(QAbstractItemView& list, const QModelIndex& box) {
        list.setFocus();
        const QPoint point = list.viewport()->mapTo(&window, boxOf(list, box));
        QTest::mouseMove(window.windowHandle(), point);
        before = onScreen(*list.viewport());
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, point);
    }

    void expectRepainted(QAbstractItemView& list) const {
        EXPECT_TRUE(onScreen(*list.viewport()) != before) << "nothing has changed on the screen";
        EXPECT_TRUE(isUpToDate(*list.viewport()));
    }

    static void toggle(QAbstractItemModel& model, const QModelIndex& box) {
        const bool isOn = box.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        model.setData(box, static_cast<int>(isOn ? Qt::Unchecked : Qt::Checked),
                      Qt::CheckStateRole);
    }

    DrawnResult result{false};
    SomeLocations rows;
    ResultTreeView& tree = *window.results->OView2;
    ResultTable& table = *window.results->resultTable;
    LocationTable& locations = *window.locations->tableExact;
    QImage before;
};

TEST_F(ListRepaintTest, AClickedBoxOfALocationIsRepainted) {
    show("2");
    click(locations, rows.index(0, LocationTable::buttonCell));
    ASSERT_TRUE(rows.isChecked(0));
    expectRepainted(locations);
}

TEST_F(ListRepaintTest, AClickedBoxOfAFileIsRepainted) {
    show("4");
    QObject::connect(&table, &ResultTable::tableCheckBoxClicked, &table, [this](int row) {
        toggle(result.files, result.files.index(row, ResultTable::ButtonCell));
    });
    click(table, result.files.index(2, ResultTable::ButtonCell));
    expectRepainted(table);
}

TEST_F(ListRepaintTest, AClickedBoxOfASetIsRepaintedWithItsExtension) {
    show("4");
    QObject::connect(&tree, &ResultTreeView::checkBoxClicked, &tree,
                     [this](const QModelIndex& box) {
                         toggle(result.sets, box);
                         result.sets.setData(box.parent(), static_cast<int>(Qt::PartiallyChecked),
                                             Qt::CheckStateRole);
                     });
    click(tree, result.sets.setAt(0, 1));
    expectRepainted(tree);
}

TEST_F(ListRepaintTest, MarksOfManyRowsAreRepainted) {
    show("4");
    before = onScreen(*table.viewport());
    const int last = result.files.rowCount() - 1;
    {
        const QSignalBlocker quiet(&result.files);
        for (int row = 0; row <= last; ++row) {
            result.files.item(row, ResultTable::ButtonCell)->setCheckState(Qt::Checked);
        }
    }
    Q_EMIT result.files.dataChanged(result.files.index(0, ResultTable::ButtonCell),
                                    result.files.index(last, ResultTable::ButtonCell));
    expectRepainted(table);

    before = onScreen(*tree.viewport());
    {
        const QSignalBlocker quiet(&result.sets);
        for (int set = 0; set < 3; ++set) {
            toggle(result.sets, result.sets.setAt(0, set));
        }
    }
    Q_EMIT result.sets.dataChanged(result.sets.setAt(0, 0), result.sets.setAt(0, 2));
    expectRepainted(tree);
}

TEST_F(ListRepaintTest, ASetThatIsSelectedByTheProgramIsRepainted) {
    show("4");
    tree.selectSet(result.sets.setAt(0, 0));
    before = onScreen(*tree.viewport());
    tree.selectSet(result.sets.setAt(0, 2));
    expectRepainted(tree);
}

TEST_F(ListRepaintTest, ARowIsRepaintedWhenThePointerLeavesIt) {
    show("2");
    QTest::mouseMove(window.windowHandle(),
                     locations.viewport()->mapTo(&window, boxOf(locations, rows.index(0, 0))));
    before = onScreen(*locations.viewport());
    QTest::mouseMove(window.windowHandle(),
                     locations.viewport()->mapTo(&window, boxOf(locations, rows.index(1, 0))));
    expectRepainted(locations);
}

}  // namespace

}  // namespace tarvin
