#pragma once

#include "interface/box_list.h"

#include <QTreeView>

namespace tarvin {

/// The tree of extensions and their sets, `OView2`. An index with a valid parent is a set, one
/// without is an extension. Of its model it reads: in column `name` the title, Qt::DisplayRole and,
/// for a name that had to be shortened, Qt::ToolTipRole; in column `check` Qt::CheckStateRole with
/// all three states; assistive technology reads Qt::AccessibleTextRole. It never writes to the
/// model. Main thread.
///
/// Made for 200,000 sets, all expanded: rows of one height, no widget and no size asked for a row,
/// and only the rows in view painted. A model that says Qt::ItemNeverHasChildren of its sets spares
/// a question for each.
///
/// Only a click on a set's name selects; the arrow keys move nothing but the current index, which
/// the focus ring shows.
class ResultTreeView final : public BoxList<QTreeView> {
    Q_OBJECT

 public:
    /// The columns of the model.
    enum Column {
        check,  ///< the check box; carries the indentation
        name    ///< "jpg", "Set(4)"
    };

    static constexpr int heightOfRows = 26;
    static constexpr int heightOfHeader = 25;

    explicit ResultTreeView(QWidget* parent = nullptr);

    /// The title over the tree, for a model to answer headerData() of column `name` with.
    [[nodiscard]] static QString title();

    /// Expands each extension. Costs one entry for each, where QTreeView would keep one for each
    /// set too.
    void expandAll();

    /// Selects a set as a click on it would, but without selectionShouldChange(), makes it current
    /// and brings it into view. An index that is no set selects nothing.
    void selectSet(const QModelIndex& set);
    /// The selected set in the first column; invalid without one.
    [[nodiscard]] QModelIndex selectedSet() const;

    [[nodiscard]] static bool isSet(const QModelIndex& index) { return index.parent().isValid(); }

    /// Where the box, its reach included, or the name of a row is painted.
    [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
    /// Column `check` in the reach of a check box, else column `name`.
    [[nodiscard]] QModelIndex indexAt(const QPoint& point) const override;

    [[nodiscard]] int shownRows() const override;
    [[nodiscard]] QModelIndex indexInRow(int row, int column) const override;
    [[nodiscard]] int rowOf(const QModelIndex& index) const override;
    void turnBox(const QModelIndex& box) override;

    /// All sets cannot be selected at once.
    void selectAll() override {}
    /// A letter makes the next extension current that begins with it; sets are all called alike.
    void keyboardSearch(const QString& search) override;

    /// Repaints the rows concerned that are in view. Costs nothing that grows with the tree, as a
    /// model that tells of each extension's sets calls it for every extension.
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QVector<int>& roles = {}) override;

 Q_SIGNALS:
    /// A check box was clicked, or Space was pressed on its row. The index is in column `check`.
    void checkBoxClicked(const QModelIndex& index);
    /// The mouse is about to select this set, also if it is the selected one.
    void selectionShouldChange(const QModelIndex& set);

 protected:
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event = nullptr) const override;
    [[nodiscard]] QModelIndex boxAt(const QPoint& point) const override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;
    void paintEvent(QPaintEvent* event) override;
    void drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                 const QModelIndex& index) const override;
    bool viewportEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    enum class Part { none, branch, box, text };

    [[nodiscard]] Part partAt(const QPoint& point) const;
    /// The whole row of an index, as wide as the view.
    [[nodiscard]] QRect rowRect(const QModelIndex& index) const;
    /// Repaints a row if it is in view.
    void updateRow(const QModelIndex& index);
    /// Expands or collapses the row if the event is a press on its branch, and returns whether it
    /// is.
    bool pressBranch(const QMouseEvent& event);

    bool isAllDue_ = false;  // all rows in view will be painted
};

}  // namespace tarvin
