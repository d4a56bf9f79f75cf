#pragma once

#include "interface/box_list.h"

#include <QTimer>
#include <QTreeView>

class QHelpEvent;

namespace tarvin {

/// The tree of extensions and their sets, `OView2`. An index with a valid parent is a set, others
/// are extensions. Reads from its model: in column `name` the title, Qt::DisplayRole and, for a
/// shortened name, Qt::ToolTipRole; in column `check` Qt::CheckStateRole with all three states;
/// assistive technology reads Qt::AccessibleTextRole. Never writes to the model. Main thread only.
///
/// Designed for 200,000 sets, all expanded: rows of one height, no widgets or size hints for rows,
/// and only the rows in view are painted. Qt::ItemNeverHasChildren on sets saves a call for each.
///
/// Only a click on a set's name selects it, or clickNeighbour(). The arrow keys move the current
/// index, which the focus ring shows.
class ResultTreeView final : public BoxList<QTreeView> {
    Q_OBJECT

 public:
    /// The columns of the model.
    enum Column {
        check,  ///< the check box; carries the indentation
        name    ///< "jpg", "Set(4)"
    };

    // Roles of column `name`, for sets only.
    static constexpr int sizeRole = Qt::UserRole + 1;     ///< QString at the right of the row
    static constexpr int detailsRole = Qt::UserRole + 2;  ///< QString, lines of the tool tip

    static constexpr int heightOfRows = 26;
    static constexpr int heightOfHeader = 25;

    explicit ResultTreeView(QWidget* parent = nullptr);

    /// The title of the tree, for the headerData() of column `name` of a model.
    [[nodiscard]] static QString title();

    /// Expands all extensions. Stores one entry for each extension; QTreeView::expandAll() would
    /// also store one for each set.
    ///
    /// Long lists are expanded in parts, because 2,000,000 sets would take 0.1 s: the first ones at
    /// once, as many as fill the view many times, and the others while the event loop runs, or as
    /// soon as a key is pressed. One extension is one part at least.
    void expandAll();
    /// Whether extensions are still to be expanded.
    [[nodiscard]] bool isExpandingAll() const { return parts_.isActive(); }
    /// How many sets are expanded at once.
    void setSetsOfPart(int sets) { setsOfPart_ = sets; }
    /// Forgets what was still to be expanded, too.
    void reset() override;

    /// Selects a set like a click, but without selectionShouldChange(), makes it current and
    /// scrolls to it. Ignores an index that is not a set.
    void selectSet(const QModelIndex& set);
    /// Does what a click does on the set before (-1) or after (1) the selected one, also if that is
    /// in a collapsed extension, which is expanded. Does nothing at the ends. If no set is
    /// selected, the last or the first one is clicked.
    void clickNeighbour(int step);
    /// The selected set, in the first column; invalid if there is none.
    [[nodiscard]] QModelIndex selectedSet() const;

    [[nodiscard]] static bool isSet(const QModelIndex& index) { return index.parent().isValid(); }

    /// The geometry of the box with its reach, or of the name.
    [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
    /// The index in column `check` if the point is in the reach of a check box, otherwise in column
    /// `name`.
    [[nodiscard]] QModelIndex indexAt(const QPoint& point) const override;

    [[nodiscard]] int shownRows() const override;
    [[nodiscard]] QModelIndex indexInRow(int row, int column) const override;
    [[nodiscard]] int rowOf(const QModelIndex& index) const override;
    void turnBox(const QModelIndex& box) override { Q_EMIT checkBoxClicked(box); }

    /// Several sets cannot be selected.
    void selectAll() override {}
    /// Makes the next extension current that begins with the typed letters. Sets are not searched:
    /// their names are alike.
    void keyboardSearch(const QString& search) override;

    /// Repaints the changed rows that are in view. The cost does not depend on the size of the
    /// tree, as a model calls it for each extension.
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QVector<int>& roles = {}) override;

 Q_SIGNALS:
    /// A check box was clicked, or Space was pressed on its row. The index is in column `check`.
    void checkBoxClicked(const QModelIndex& index);
    /// The mouse is about to select this set, which may already be selected.
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

    /// Expands at most that many of the extensions that are still to be expanded.
    void expandPart(int mostExtensions);
    /// Returns an invalid index at the ends.
    [[nodiscard]] QModelIndex neighbourOf(const QModelIndex& set, int step) const;
    [[nodiscard]] Part partAt(const QPoint& point) const;
    /// The whole row of an index, as wide as the view.
    [[nodiscard]] QRect rowRect(const QModelIndex& index) const;
    void showToolTip(const QHelpEvent& help);
    /// Repaints a row if it is in view.
    void updateRow(const QModelIndex& index);
    /// Expands or collapses the row if the event is a press on its branch, and returns whether it
    /// is.
    bool pressBranch(const QMouseEvent& event);

    bool isAllDue_ = false;  // all rows in view will be repainted
    QTimer parts_;           // active while extensions are still to be expanded
    int nextExtension_ = 0;  // the first of them
    int setsOfPart_ = 200'000;
};

}  // namespace tarvin
