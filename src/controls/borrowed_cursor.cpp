#include "controls/borrowed_cursor.h"

namespace tarvin {

BorrowedCursor::~BorrowedCursor() {
    giveBack();
}

void BorrowedCursor::show(const QWidget& widget, Qt::CursorShape shape) {
    giveBack();
    QWidget* ancestor = widget.parentWidget();
    while (ancestor != nullptr && !ancestor->isEnabled()) {
        ancestor = ancestor->parentWidget();
    }
    if (ancestor == nullptr) {
        return;
    }
    lender_ = ancestor;
    if (ancestor->testAttribute(Qt::WA_SetCursor)) {
        former_ = ancestor->cursor();
    }
    ancestor->setCursor(shape);
}

void BorrowedCursor::giveBack() {
    if (lender_ != nullptr) {
        if (former_) {
            lender_->setCursor(*former_);
        } else {
            lender_->unsetCursor();
        }
    }
    lender_ = nullptr;
    former_.reset();
}

}  // namespace tarvin
