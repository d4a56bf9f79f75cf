#pragma once

#include <QCursor>
#include <QPointer>
#include <QWidget>
#include <optional>

namespace tarvin {

/// Shows a cursor over a disabled widget. Qt ignores disabled widgets when it chooses the cursor
/// and uses that of the nearest enabled ancestor; so that ancestor gets ours while the pointer is
/// inside. Owned by the widget. Main thread only.
class BorrowedCursor final {
 public:
    BorrowedCursor() = default;
    BorrowedCursor(const BorrowedCursor&) = delete;
    BorrowedCursor& operator=(const BorrowedCursor&) = delete;
    ~BorrowedCursor();

    /// Shows `shape` while the pointer is over the disabled `widget`. Call it when the pointer
    /// enters.
    void show(const QWidget& widget, Qt::CursorShape shape);

    /// Restores the ancestor's own cursor, if it was changed.
    void giveBack();

 private:
    QPointer<QWidget> lender_;
    std::optional<QCursor> former_;  // nullopt: the ancestor had no cursor set
};

}  // namespace tarvin
