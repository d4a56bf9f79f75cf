#pragma once

#include "interface/box_table.h"

namespace tarvin {

/// The files of the set that is selected, `resultTable`. Of its model it reads the titles,
/// Qt::DisplayRole and, in column `ButtonCell`, Qt::CheckStateRole; assistive technology reads
/// Qt::AccessibleTextRole. It never writes to the model. A text that is too long is shortened; the
/// tool tip then shows Qt::ToolTipRole, or the whole text without one. Main thread.
///
/// Made for 500,000 rows: one height for all, no widget for a row, and only those in view painted.
///
/// One row is selected, by a click beside its check box or by the keys that move; nothing that a
/// person does selects none.
class ResultTable final : public BoxTable {
    Q_OBJECT

 public:
    /// The columns of the model.
    enum Column {
        nameText,      ///< the last part of the path
        fileLocation,  ///< the path without it
        fileGroup,     ///< the number of the set within its extension
        ButtonCell     ///< the check box NOLINT(readability-identifier-naming)
    };

    static constexpr int heightOfRows = 30;
    static constexpr int heightOfHeader = 28;

    explicit ResultTable(QWidget* parent = nullptr);

    /// The title over a column, for a model to answer headerData() with.
    [[nodiscard]] static QString title(Column column);

    void setModel(QAbstractItemModel* model) override;

    void turnBox(const QModelIndex& box) override;

    /// Selects a row as a click on it would, also while a person cannot, makes it current and
    /// brings it into view. A row that is not there changes nothing.
    void selectFile(int row);
    /// The selected row; -1 without one.
    [[nodiscard]] int selectedRow() const;

    /// Letters find a name, unless there are so many rows that a person would wait.
    void keyboardSearch(const QString& search) override;

    /// Repaints the rows concerned that are in view.
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QVector<int>& roles = {}) override;

 Q_SIGNALS:
    /// A check box was clicked, or Space was pressed on its row.
    void tableCheckBoxClicked(int row);
    /// A row was double-clicked beside its check box, or Return was pressed on it.
    void doubleClick(int row);

 protected:
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event = nullptr) const override;
    bool viewportEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void fitColumns();
    void selectRowOfKeyboard(const QKeyEvent& event);
};

}  // namespace tarvin
