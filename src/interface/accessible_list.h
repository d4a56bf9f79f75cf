#pragma once

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QHash>
#include <QModelIndex>

namespace tarvin {

/// A list whose rows have check boxes, as seen by assistive technology: its visible rows in order,
/// without those of collapsed extensions. Main thread only.
class MarkedList {
 public:
    MarkedList() = default;
    MarkedList(const MarkedList&) = delete;
    MarkedList& operator=(const MarkedList&) = delete;
    virtual ~MarkedList() = default;

    [[nodiscard]] virtual int shownRows() const = 0;
    /// Returns an invalid index if there is no such row or column.
    [[nodiscard]] virtual QModelIndex indexInRow(int row, int column) const = 0;
    /// Returns -1 if the row of the index is not shown.
    [[nodiscard]] virtual int rowOf(const QModelIndex& index) const = 0;
    /// Does what a click on the box does; nothing while a panel covers the list.
    virtual void turnBox(const QModelIndex& box) = 0;
};

/// The accessible interface of a MarkedList: a table or a tree, its cells numbered as in Qt's own
/// events, with boxes whose "Toggle" action toggles the mark. Qt's own interface would select the
/// row instead. Owned by Qt. Main thread only.
class AccessibleList final : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
    AccessibleList(QAbstractItemView& view, MarkedList& list);
    ~AccessibleList() override;

    /// Makes Qt use this class for every MarkedList from now on. Further calls have no effect.
    static void install();
    /// The interface of a list; nullptr if `view` has another one.
    [[nodiscard]] static AccessibleList* of(QAbstractItemView& view);

    [[nodiscard]] QAbstractItemView& view() const { return view_; }
    [[nodiscard]] MarkedList& list() const { return list_; }

    /// The cell of an index; nullptr if its row is not shown.
    [[nodiscard]] QAccessibleInterface* cellOf(const QModelIndex& index) const;
    /// The title of a column.
    [[nodiscard]] QAccessibleInterface* headerOf(int column) const;

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] QAccessibleInterface* focusChild() const override;

    [[nodiscard]] QAccessibleInterface* caption() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* summary() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* cellAt(int row, int column) const override;
    [[nodiscard]] int selectedCellCount() const override;
    [[nodiscard]] QList<QAccessibleInterface*> selectedCells() const override;
    [[nodiscard]] QString columnDescription(int column) const override;
    [[nodiscard]] QString rowDescription(int /*row*/) const override { return {}; }
    [[nodiscard]] int selectedColumnCount() const override { return 0; }
    [[nodiscard]] int selectedRowCount() const override;
    [[nodiscard]] int columnCount() const override;
    [[nodiscard]] int rowCount() const override;
    [[nodiscard]] QList<int> selectedColumns() const override { return {}; }
    [[nodiscard]] QList<int> selectedRows() const override;
    [[nodiscard]] bool isColumnSelected(int /*column*/) const override { return false; }
    [[nodiscard]] bool isRowSelected(int row) const override;
    /// Selects like a click on the row. Returns false while a panel covers the list.
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

 private:
    /// A table has row headers although they are hidden, a tree has none.
    [[nodiscard]] int headerColumns() const;
    [[nodiscard]] int stride() const { return columnCount() + headerColumns(); }
    [[nodiscard]] QAccessibleInterface* headerAt(int section, Qt::Orientation orientation) const;
    void forgetCells() const;

    QAbstractItemView& view_;
    MarkedList& list_;
    mutable QHash<QModelIndex, QAccessible::Id> cells_;
    mutable QHash<int, QAccessible::Id> headers_;  // by child number
};

}  // namespace tarvin
