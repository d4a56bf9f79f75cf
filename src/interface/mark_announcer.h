#pragma once

#include <QAbstractItemView>
#include <QModelIndex>
#include <QPersistentModelIndex>
#include <QVector>
#include <utility>

namespace tarvin {

/// Announces changed marks of a list to assistive technology. It remembers the marks of the rows in
/// view and of the current row at their last painting, and announces only those that differ: all
/// rows of a large result may change at once, too many to announce. Owned by its list, a
/// MarkedList. Main thread only.
class MarkAnnouncer final {
 public:
    /// `column` is the column of the check boxes.
    MarkAnnouncer(QAbstractItemView& view, int column) : view_(view), column_(column) {}

    /// Call it when the list has been painted.
    void painted();

    /// Remembers the present marks.
    void remember();

    /// Call it when the model has changed these cells. Announces the boxes among them whose mark
    /// differs from the remembered one.
    void announce(const QModelIndex& topLeft, const QModelIndex& bottomRight);

    /// Returns the boxes among these cells whose mark differs from the remembered one, and
    /// remembers their marks.
    [[nodiscard]] QModelIndexList takeChanged(const QModelIndex& topLeft,
                                              const QModelIndex& bottomRight);

 private:
    void rememberRow(const QModelIndex& index);

    QAbstractItemView& view_;
    int column_;
    QVector<std::pair<QPersistentModelIndex, Qt::CheckState>> marks_;
};

/// Announces that the data of cells has changed, for a list whose dataChanged() does not call Qt's.
/// Main thread only.
void announceData(QAbstractItemView& view, const QModelIndex& topLeft,
                  const QModelIndex& bottomRight);

}  // namespace tarvin
