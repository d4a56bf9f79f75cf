#pragma once

#include "interface/box_table.h"

namespace tarvin {

/// The list of locations, `tableExact`. Drops are passed to the model (canDropMimeData(),
/// dropMimeData()). Return on a row opens it, Space toggles its check box. Main thread only.
class LocationTable final : public BoxTable {
    Q_OBJECT

 public:
    /// The columns of the model.
    enum Column {
        mainCell,   ///< "MainCell": image, name, path and size; stretches
        buttonCell  ///< "buttonCell": the check box, Qt::CheckStateRole
    };

    static constexpr int heightOfRows = 56;
    static constexpr int heightOfHeader = 32;
    static constexpr int buttonCellWidth = 84;

    explicit LocationTable(QWidget* parent = nullptr);

    void setModel(QAbstractItemModel* model) override;

    void turnBox(const QModelIndex& box) override;

    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QVector<int>& roles = {}) override;

    /// Whether a drag with acceptable data hovers over the list.
    [[nodiscard]] bool isDragHovering() const { return dragHovering_; }

    /// Whether the list itself must show the focus, because no row does.
    [[nodiscard]] bool showsFocus() const { return focusShown_ && !currentIndex().isValid(); }

    /// The text shown when there are no rows.
    void setEmptyText(const QString& text);
    [[nodiscard]] const QString& emptyText() const { return emptyText_; }

 Q_SIGNALS:
    /// A row was double-clicked beside its check box, or Return was pressed on it.
    void rowOpened(const QModelIndex& index);
    /// isDragHovering() or showsFocus() may have changed.
    void surroundingsChanged();

 protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
    void setDragHovering(bool hovering);

    bool opensRow_ = false;  // the double click that is being handled
    QString emptyText_;
    bool dragHovering_ = false;
    bool focusShown_ = false;
};

}  // namespace tarvin
