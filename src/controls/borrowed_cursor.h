#pragma once

#include <QCursor>
#include <QPointer>
#include <QWidget>
#include <optional>

namespace tarvin {

/// Shows a cursor over a disabled widget. Qt passes over disabled widgets when it chooses the
/// cursor and takes the one of the nearest enabled ancestor, so for as long as the pointer is
/// inside, that ancestor gets ours. Belongs to the widget; main thread.
class BorrowedCursor final {
 public:
    BorrowedCursor() = default;
    BorrowedCursor(const BorrowedCursor&) = delete;
    BorrowedCursor& operator=(const BorrowedCursor&) = delete;
    ~BorrowedCursor();

    /// Shows `shape` while the pointer is over the disabled `widget`. Call it when the pointer
    /// enters.
    void show(const QWidget& widget, Qt::CursorShape shape);

    /// Gives the ancestor its own cursor back. Nothing happens if none was changed.
    void giveBack();

 private:
    QPointer<QWidget> lender_;
    std::optional<QCursor> former_;  // none: the lender had no cursor of its own
};

}  // namespace tarvin
