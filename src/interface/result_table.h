#pragma once

#include "interface/box_table.h"

namespace tarvin {

/// The files of the selected set, `resultTable`. Reads from its model the titles, Qt::DisplayRole
/// and, in column `ButtonCell`, Qt::CheckStateRole; assistive technology reads
/// Qt::AccessibleTextRole. Never writes to the model. A text that is too long is elided; its tool
/// tip then shows Qt::ToolTipRole, or the whole text without one. Main thread only.
///
/// Designed for 500,000 rows: one height for all, no widgets in rows, and only the rows in view are
/// painted.
///
/// The user selects one row, by a click beside its check box or by the navigation keys, and cannot
/// clear the selection.
class ResultTable final : public BoxTable {
    Q_OBJECT

 public:
    /// The columns of the model.
    enum Column {
        nameText,      ///< the last part of the path
        fileLocation,  ///< the path without the last part
        fileGroup,     ///< the number of the set within its extension
        ButtonCell     ///< the check box NOLINT(readability-identifier-naming)
    };

    static constexpr int heightOfRows = 30;
    static constexpr int heightOfHeader = 28;

    explicit ResultTable(QWidget* parent = nullptr);

    /// The title of a column, for the headerData() of a model.
    [[nodiscard]] static QString title(Column column);

    void setModel(QAbstractItemModel* model) override;

    void turnBox(const QModelIndex& box) override { Q_EMIT tableCheckBoxClicked(box.row()); }

    /// Selects a row like a click, even while the user cannot, makes it current and scrolls to it.
    /// Ignores a row that does not exist.
    void selectFile(int row);
    /// The selected row, or -1.
    [[nodiscard]] int selectedRow() const;

    /// Finds a name by its first letters, unless there are too many rows to search without a stall.
    void keyboardSearch(const QString& search) override;

    /// Repaints the changed rows that are in view.
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QVector<int>& roles = {}) override;

 Q_SIGNALS:
    /// A check box was clicked, or Space was pressed on its row.
    void tableCheckBoxClicked(int row);
    /// A row was double-clicked beside its check box, or Return was pressed on it.
    void doubleClick(int row);
    /// A row, which is selected, was clicked with the right button, or the Menu key or Shift+F10
    /// was pressed on it. `position` is on the screen.
    void menuRequested(int row, const QPoint& position);

 protected:
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event = nullptr) const override;
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void openMenu(const QModelIndex& row, const QPoint& lowerLeft) override;

 private:
    void fitColumns();
    void selectRowOfKeyboard(const QKeyEvent& event);
};

}  // namespace tarvin
