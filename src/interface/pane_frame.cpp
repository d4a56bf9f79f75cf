#include "interface/pane_frame.h"

#include "controls/look.h"
#include "interface/list_header.h"

#include <QAbstractItemView>
#include <QPainter>

namespace tarvin {

PaneFrame::PaneFrame(QAbstractScrollArea* content, int headerHeight, const QMargins& lines,
                     QWidget* parent)
    : QWidget(parent), content_(content), headerHeight_(headerHeight), lines_(lines) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    content->setParent(this);
    content->setFrameShape(QFrame::NoFrame);
    content->installEventFilter(this);
    // The current row can change without a change of focus.
    content->viewport()->installEventFilter(this);
}

bool PaneFrame::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::FocusIn:
            focusShown_ = focusIsShown(*content_, static_cast<QFocusEvent*>(event)->reason());
            showRing();
            break;
        case QEvent::FocusOut:
            focusShown_ = false;
            showRing();
            break;
        case QEvent::Paint:
            showRing();
            break;
        case QEvent::ShowToParent:
        case QEvent::HideToParent:
            if (watched == content_) {
                setVisible(!content_->isHidden());
            }
            break;
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

void PaneFrame::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event)
    QPainter painter(this);
    painter.fillRect(rect(), look::frame);
    const QRect inside = rect().marginsRemoved(lines_);
    painter.fillRect(inside, look::surface);
    if (headerHeight_ > 0) {
        ListHeader::paintBackground(painter,
                                    {inside.left(), inside.top(), inside.width(), headerHeight_});
    }
}

void PaneFrame::resizeEvent(QResizeEvent* event) {
    Q_UNUSED(event)
    content_->setGeometry(rect().marginsRemoved(lines_));
}

void PaneFrame::showRing() {
    const auto* list = qobject_cast<const QAbstractItemView*>(content_);
    const bool wanted = focusShown_ && (list == nullptr || !list->currentIndex().isValid());
    if (wanted && ring_ == nullptr && parentWidget() != nullptr) {
        ring_ = new FocusRing(*this, FocusRing::Place::outside, look::focusRing);
    }
    if (ring_ != nullptr && ring_->isWanted() != wanted) {
        ring_->setWanted(wanted);
    }
}

}  // namespace tarvin
