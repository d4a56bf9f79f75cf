#include "interface/frames.h"

#include "controls/look.h"
#include "controls/painting.h"
#include "interface/list_header.h"
#include "interface/location_table.h"

#include <QAbstractItemView>
#include <QPainter>

namespace tarvin {

namespace {

constexpr int tableMargin = 3;
constexpr int dragLine = 2;

}  // namespace

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

void PaneFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), look::frame);
    const QRect inside = rect().marginsRemoved(lines_);
    painter.fillRect(inside, look::surface);
    if (headerHeight_ > 0) {
        ListHeader::paintBackground(painter,
                                    {inside.left(), inside.top(), inside.width(), headerHeight_});
    }
}

void PaneFrame::resizeEvent(QResizeEvent*) {
    content_->setGeometry(rect().marginsRemoved(lines_));
}

void PaneFrame::showRing() {
    const auto* list = qobject_cast<const QAbstractItemView*>(content_);
    const bool wanted = focusShown_ && (list == nullptr || !list->currentIndex().isValid());
    if (wanted && ring_ == nullptr && parentWidget() != nullptr) {
        ring_ = new FocusRing(*this, FocusRing::Position::outside, look::focusRing);
    }
    if (ring_ != nullptr && ring_->isWanted() != wanted) {
        ring_->setWanted(wanted);
    }
}

LocationFrame::LocationFrame(LocationTable* table, QWidget* parent)
    : QWidget(parent), table_(table) {
    table->setParent(this);
    connect(table, &LocationTable::surroundingsChanged, this, [this] { update(); });
}

void LocationFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), look::surface);
    ListHeader::paintBackground(painter,
                                {look::frameLine, look::frameLine, width() - 2 * look::frameLine,
                                 LocationTable::heightOfHeader});
    if (table_->isDragHovering()) {
        paintFrame(painter, rect(), dragLine, look::teal);
    } else if (table_->showsFocus()) {
        paintFocusRing(painter, rect(), look::focusRing);
    } else {
        paintFrame(painter, rect(), look::frameLine, look::frame);
    }
}

void LocationFrame::resizeEvent(QResizeEvent*) {
    table_->setGeometry(rect().adjusted(look::frameLine + tableMargin, look::frameLine,
                                        -look::frameLine - tableMargin,
                                        -look::frameLine - tableMargin));
}

}  // namespace tarvin
