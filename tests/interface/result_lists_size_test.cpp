#include "interface/painted_region.h"
#include "interface/result_screen.h"
#include "interface/result_table.h"
#include "interface/result_tree_view.h"
#include "interface/shown_window.h"

#include <QAbstractItemModel>
#include <QScrollBar>
#include <ctime>
#include <set>

namespace tarvin {

namespace {

/// A model of many extensions with as many sets each, computed on the fly. Counts its calls.
class ManySets final : public QAbstractItemModel {
 public:
    ManySets(int extensions, int setsOfEach) : extensions_(extensions), sets_(setsOfEach) {}

    [[nodiscard]] QModelIndex index(int row, int column,
                                    const QModelIndex& parent = {}) const override {
        return createIndex(row, column,
                           parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : 0);
    }
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override {
        return index.internalId() == 0
                   ? QModelIndex()
                   : createIndex(static_cast<int>(index.internalId()) - 1, 0, quintptr{0});
    }
    using QObject::parent;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        if (!parent.isValid()) {
            return extensions_;
        }
        return parent.internalId() == 0 ? sets_ : 0;
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override {
        Q_UNUSED(parent)
        return 2;
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (role == Qt::DisplayRole || role == Qt::CheckStateRole) {
            asked.insert({static_cast<int>(index.internalId()), index.row()});
        }
        if (role == Qt::CheckStateRole && index.column() == ResultTreeView::check) {
            return Qt::Checked;
        }
        return role == Qt::DisplayRole && index.column() == ResultTreeView::name
                   ? QVariant(QStringLiteral("Set(3)"))
                   : QVariant();
    }
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
        const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
        return index.internalId() == 0 ? flags : flags | Qt::ItemNeverHasChildren;
    }
    /// Emits that all marks of one extension have changed.
    void announce(int extension) {
        const QModelIndex above = index(extension, 0);
        Q_EMIT dataChanged(index(0, 0, above), index(sets_ - 1, 1, above));
    }
    /// Emits that all marks have changed.
    void announceAll() {
        Q_EMIT dataChanged(index(0, 0), index(extensions_ - 1, 1));
        for (int extension = 0; extension < extensions_; ++extension) {
            announce(extension);
        }
    }

    mutable std::set<std::pair<int, int>> asked;  ///< rows whose contents were read

 private:
    int extensions_;
    int sets_;
};

/// A model of a set of very many files, computed on the fly. Counts its calls.
class ManyFiles final : public QAbstractTableModel {
 public:
    explicit ManyFiles(int rows) : rows_(rows) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : rows_;
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : 4;
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        asked.insert(index.row());
        if (role == Qt::CheckStateRole && index.column() == ResultTable::ButtonCell) {
            return Qt::Checked;
        }
        return role == Qt::DisplayRole ? QVariant(QStringLiteral("/home/me/Pictures/2023 Summer"))
                                       : QVariant();
    }

    mutable std::set<int> asked;

 private:
    int rows_;
};

constexpr std::size_t rowsInView = 16;

class ResultListsSizeTest : public ShownWindow {
 protected:
    ResultListsSizeTest() { window.selectTabViewItem(QStringLiteral("4")); }
    ~ResultListsSizeTest() override {
        tree.setModel(nullptr);
        table.setModel(nullptr);
    }

    ResultTreeView& tree = *window.results->OView2;
    ResultTable& table = *window.results->resultTable;
};

/// The number of extensions that share 200,000 sets.
class TreeSizeTest : public ResultListsSizeTest, public testing::WithParamInterface<int> {
 protected:
    TreeSizeTest() : sets(GetParam(), 200000 / GetParam()) {
        tree.setModel(&sets);
        tree.expandAll();
        QCoreApplication::processEvents();
    }
    ~TreeSizeTest() override { tree.setModel(nullptr); }

    void paint() { tree.viewport()->grab(); }

    ManySets sets;
};

TEST_P(TreeSizeTest, OnlyRowsInViewAreAskedFor) {
    EXPECT_EQ(tree.verticalScrollBar()->maximum(),
              (200000 + GetParam()) * ResultTreeView::heightOfRows - tree.viewport()->height());
    EXPECT_LE(sets.asked.size(), rowsInView);

    for (const double part : {0.3, 0.7, 1.0}) {
        sets.asked.clear();
        tree.verticalScrollBar()->setValue(
            static_cast<int>(part * tree.verticalScrollBar()->maximum()));
        paint();
        EXPECT_GT(sets.asked.size(), 10U);
        EXPECT_LE(sets.asked.size(), rowsInView);
    }
}

TEST_P(TreeSizeTest, MarkingAllReadsOnlyTheRowsInView) {
    paint();
    sets.asked.clear();
    sets.announceAll();
    QCoreApplication::processEvents();
    EXPECT_LE(sets.asked.size(), rowsInView);
}

/// Also while they are collapsed, which a view would have to search.
TEST_P(TreeSizeTest, MarkingAllTakesNoLongerWithHiddenSets) {
    const auto seconds = [this] {
        paint();
        const std::clock_t begin = std::clock();
        sets.announceAll();
        return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    };
    EXPECT_LT(seconds(), 5);
    tree.collapseAll();
    EXPECT_LT(seconds(), 5);
}

TEST_P(TreeSizeTest, ALetterReadsOnlyExtensions) {
    tree.selectSet(sets.index(0, 0, sets.index(0, 0)));
    paint();
    sets.asked.clear();
    QTest::keyClick(&tree, Qt::Key_Z);
    for (const auto& [below, row] : sets.asked) {
        EXPECT_EQ(below, 0) << row;
    }
    EXPECT_EQ(sets.asked.size(), static_cast<std::size_t>(GetParam()));
}

TEST_P(TreeSizeTest, OneMarkReadsOnlyItsRow) {
    paint();
    QCoreApplication::processEvents();
    sets.asked.clear();
    const QModelIndex set = sets.index(0, 0, sets.index(0, 0));
    Q_EMIT sets.dataChanged(set, set.siblingAtColumn(1));
    QCoreApplication::processEvents();
    EXPECT_EQ(sets.asked.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(Extensions, TreeSizeTest, testing::Values(1, 40, 5000, 200000),
                         testing::PrintToStringParamName());

TEST_F(ResultListsSizeTest, OnlyFilesInViewAreAskedFor) {
    const ManyFiles files(500000);
    table.setModel(const_cast<ManyFiles*>(&files));
    QCoreApplication::processEvents();
    EXPECT_LE(files.asked.size(), rowsInView);

    files.asked.clear();
    table.selectRow(0);
    QTest::keyClick(&table, Qt::Key_Z);
    QCoreApplication::processEvents();
    EXPECT_LE(files.asked.size(), rowsInView);

    files.asked.clear();
    table.verticalScrollBar()->setValue(table.verticalScrollBar()->maximum());
    table.viewport()->grab();
    EXPECT_TRUE(files.asked.contains(499999));
    EXPECT_LE(files.asked.size(), rowsInView);
    table.setModel(nullptr);
}

}  // namespace

}  // namespace tarvin
