#pragma once

#include "interface/mark_announcer.h"
#include "interface/marked_list.h"

#include <QPersistentModelIndex>
#include <QTableView>

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
class ResultTable final : public QTableView, public MarkedList {
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

    [[nodiscard]] int shownRows() const override;
    [[nodiscard]] QModelIndex indexInRow(int row, int column) const override;
    [[nodiscard]] int rowOf(const QModelIndex& index) const override { return index.row(); }
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
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void fitColumns();
    /// The row whose check box is in reach of a point, in column ButtonCell; invalid elsewhere.
    [[nodiscard]] QModelIndex boxAt(const QPoint& point) const;
    /// Whether the press was meant for a check box.
    bool pressBox(const QMouseEvent& event);
    void selectRowOfKeyboard(const QKeyEvent& event);

    MarkAnnouncer marks_{*this, ButtonCell};
    QPersistentModelIndex pressedBox_;  // where a click on a box began
};

}  // namespace tarvin
