#pragma once

#include <QAbstractItemView>
#include <QModelIndex>
#include <QPersistentModelIndex>
#include <QVector>
#include <utility>

namespace tarvin {

/// Tells assistive technology of the marks of a list's rows. It knows the marks that were painted
/// last, of the rows in view and of the row of the keyboard, and so which of them became others:
/// all rows of a large result may change at once, and nobody could follow a word about each.
/// Belongs to its list, a MarkedList; main thread.
class MarkAnnouncer final {
 public:
    /// `column` is that of the check boxes.
    MarkAnnouncer(QAbstractItemView& view, int column) : view_(view), column_(column) {}

    /// The list has painted itself.
    void painted();

    /// Takes the marks of the rows in view for known.
    void remember();

    /// The model has said that these cells became others. Tells of the boxes among them that
    /// turned.
    void announce(const QModelIndex& topLeft, const QModelIndex& bottomRight);

    /// The boxes among these cells that turned since they were remembered; each is given once.
    [[nodiscard]] QModelIndexList takeChanged(const QModelIndex& topLeft,
                                              const QModelIndex& bottomRight);

 private:
    void rememberRow(const QModelIndex& index);

    QAbstractItemView& view_;
    int column_;
    QVector<std::pair<QPersistentModelIndex, Qt::CheckState>> marks_;
};

/// Tells assistive technology that cells of a list became others, for a list that does not leave
/// that to Qt. Main thread.
void announceData(QAbstractItemView& view, const QModelIndex& topLeft,
                  const QModelIndex& bottomRight);

}  // namespace tarvin
