#include "interface/location_frame.h"

#include "controls/focus_ring.h"
#include "controls/look.h"
#include "controls/painting.h"
#include "interface/list_header.h"
#include "interface/location_table.h"

#include <QPainter>

namespace tarvin {

namespace {

constexpr int tableMargin = 3;
constexpr int dragLine = 2;

}  // namespace

LocationFrame::LocationFrame(LocationTable* table, QWidget* parent)
    : QWidget(parent), table_(table) {
    table->setParent(this);
    connect(table, &LocationTable::surroundingsChanged, this, [this] { update(); });
}

void LocationFrame::paintEvent(QPaintEvent* event) {
    Q_UNUSED(event)
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

void LocationFrame::resizeEvent(QResizeEvent* event) {
    Q_UNUSED(event)
    table_->setGeometry(rect().adjusted(look::frameLine + tableMargin, look::frameLine,
                                        -look::frameLine - tableMargin,
                                        -look::frameLine - tableMargin));
}

}  // namespace tarvin
