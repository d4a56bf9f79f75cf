#include "interface/mark_announcer.h"

#include "interface/result_screen.h"
#include "interface/result_table.h"
#include "interface/result_tree_view.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"

namespace tarvin {

namespace {

/// Which marks are announced.
class MarkAnnouncerTest : public ShownWindow {
 protected:
    MarkAnnouncerTest() {
        window.selectTabViewItem(QStringLiteral("4"));
        tree.setModel(&sets);
        tree.expandAll();
        table.setModel(&files);
        QCoreApplication::processEvents();
        inTree.remember();
        inTable.remember();
    }
    ~MarkAnnouncerTest() override {
        tree.setModel(nullptr);
        table.setModel(nullptr);
    }

    void setMark(const QModelIndex& box, Qt::CheckState state) {
        sets.setData(box, static_cast<int>(state), Qt::CheckStateRole);
    }
    void setFileMark(int row, Qt::CheckState state) {
        files.item(row, ResultTable::ButtonCell)->setCheckState(state);
    }
    [[nodiscard]] QModelIndex box(int row) const {
        return files.index(row, ResultTable::ButtonCell);
    }
    [[nodiscard]] QModelIndexList allChanged() {
        return inTable.takeChanged(files.index(0, 0), box(files.rowCount() - 1));
    }

    DrawnResult result{true};
    SomeSets& sets = result.sets;
    SomeFiles& files = result.files;
    ResultTreeView& tree = *window.results->OView2;
    ResultTable& table = *window.results->resultTable;
    MarkAnnouncer inTree{tree, ResultTreeView::check};
    MarkAnnouncer inTable{table, ResultTable::ButtonCell};
};

TEST_F(MarkAnnouncerTest, OnlyChangedMarksAreAnnounced) {
    EXPECT_EQ(allChanged(), QModelIndexList());
    setFileMark(0, Qt::Checked);
    setFileMark(1, Qt::Checked);  // as before
    setFileMark(4, Qt::Unchecked);
    EXPECT_EQ(allChanged(), QModelIndexList({box(0), box(4)}));
    // Once each.
    EXPECT_EQ(allChanged(), QModelIndexList());
    setFileMark(0, Qt::Unchecked);
    EXPECT_EQ(allChanged(), QModelIndexList{box(0)});
}

TEST_F(MarkAnnouncerTest, OnlyCellsThatTheModelChangedAreAnnounced) {
    setFileMark(1, Qt::Unchecked);
    setFileMark(2, Qt::Unchecked);
    EXPECT_EQ(inTable.takeChanged(box(2), box(4)), QModelIndexList{box(2)});
    EXPECT_EQ(inTable.takeChanged(files.index(1, 0), files.index(1, 0)), QModelIndexList());
    EXPECT_EQ(inTable.takeChanged(box(1), box(1)), QModelIndexList{box(1)});
}

TEST_F(MarkAnnouncerTest, SetsAndExtensionsAreDistinguished) {
    setMark(sets.setAt(0, 1), Qt::Unchecked);
    setMark(sets.extensionAt(1), Qt::Checked);
    const QModelIndex last = sets.setAt(0, 2).siblingAtColumn(ResultTreeView::name);
    EXPECT_EQ(inTree.takeChanged(sets.setAt(0, 0), last), QModelIndexList{sets.setAt(0, 1)});
    EXPECT_EQ(inTree.takeChanged(sets.extensionAt(0),
                                 sets.extensionAt(5).siblingAtColumn(ResultTreeView::name)),
              QModelIndexList{sets.extensionAt(1)});
}

TEST_F(MarkAnnouncerTest, AMixedMarkIsAnotherOne) {
    setMark(sets.extensionAt(1), Qt::PartiallyChecked);
    EXPECT_EQ(inTree.takeChanged(sets.extensionAt(1), sets.extensionAt(1)),
              QModelIndexList{sets.extensionAt(1)});
}

TEST_F(MarkAnnouncerTest, OfRowsOutOfViewOnlyTheCurrentOneIsAnnounced) {
    const QModelIndex far = sets.setAt(5, 1);
    const auto toldOf = [&](Qt::CheckState state) {
        setMark(far, state);
        return inTree.takeChanged(sets.setAt(5, 0), far);
    };
    EXPECT_EQ(toldOf(Qt::Checked), QModelIndexList());
    tree.selectionModel()->setCurrentIndex(far, QItemSelectionModel::NoUpdate);
    tree.scrollToTop();
    inTree.remember();
    EXPECT_EQ(toldOf(Qt::Unchecked), QModelIndexList{far});
}

TEST_F(MarkAnnouncerTest, RemovedRowsAreForgotten) {
    files.removeRow(1);
    setFileMark(1, Qt::Unchecked);
    EXPECT_EQ(allChanged(), QModelIndexList{box(1)});
    files.removeRows(0, files.rowCount());
    EXPECT_EQ(inTable.takeChanged({}, {}), QModelIndexList());
    inTable.remember();
}

}  // namespace

}  // namespace tarvin
