#pragma once

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QHash>

namespace tarvin {

class MarkedList;

/// How assistive technology finds a MarkedList: as the table or tree that it is, with the cells
/// numbered as Qt numbers them in its own events, and with boxes whose action "Toggle" turns the
/// mark. Qt's own answer would select the row instead. Owned by Qt; main thread.
class AccessibleList final : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
    AccessibleList(QAbstractItemView& view, MarkedList& list);
    ~AccessibleList() override;

    /// Has Qt ask this class about every MarkedList from now on; once is enough.
    static void install();
    /// Of a list for which Qt has asked; null for another widget.
    [[nodiscard]] static AccessibleList* of(QAbstractItemView& view);

    [[nodiscard]] QAbstractItemView& view() const { return view_; }
    [[nodiscard]] MarkedList& list() const { return list_; }

    /// The cell of an index that is shown; null for another.
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
    /// As a click on the row does; false while a panel covers the list.
    bool selectRow(int row) override;
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent* event) override;

 private:
    /// A tree has no headers of rows, a table has them though they are hidden.
    [[nodiscard]] int headerColumns() const;
    [[nodiscard]] int stride() const { return columnCount() + headerColumns(); }
    [[nodiscard]] QAccessibleInterface* headerAt(int section, Qt::Orientation orientation) const;
    void forgetCells() const;

    QAbstractItemView& view_;
    MarkedList& list_;
    mutable QHash<QModelIndex, QAccessible::Id> cells_;
    mutable QHash<int, QAccessible::Id> headers_;  // by their number as children
};

}  // namespace tarvin
