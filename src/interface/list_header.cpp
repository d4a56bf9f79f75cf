#include "interface/list_header.h"

#include "controls/look.h"

#include <QPainter>

namespace tarvin {

namespace {

constexpr QColor titleColor{51, 69, 79};

/// The part of the band above a scroll bar.
class BandEnd final : public QWidget {
 public:
    explicit BandEnd(int height) { setFixedHeight(height); }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        ListHeader::paintBackground(painter, rect());
    }
};

}  // namespace

ListHeader::ListHeader(int height, int indent, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), height_(height), indent_(indent) {
    setFont(look::font(12, QFont::DemiBold));
    setSectionsClickable(false);
    setHighlightSections(false);
    setStretchLastSection(false);
    setMinimumSectionSize(1);
}

void ListHeader::setTitlesAtLeft(int count) {
    titlesAtLeft_ = count;
    viewport()->update();
}

void ListHeader::indentAllTitles() {
    allIndented_ = true;
    viewport()->update();
}

void ListHeader::setOnlyTitle(int section) {
    onlyTitle_ = section;
    viewport()->update();
}

QSize ListHeader::sizeHint() const {
    return {QHeaderView::sizeHint().width(), height_};
}

void ListHeader::coverScrollBarOf(QAbstractScrollArea* list) const {
    list->addScrollBarWidget(new BandEnd(height_), Qt::AlignTop);
}

void ListHeader::paintBackground(QPainter& painter, const QRect& band) {
    painter.fillRect(band, look::header);
    painter.fillRect(QRect(band.left(), band.bottom(), band.width(), 1), look::line);
}

void ListHeader::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    paintBackground(painter, viewport()->rect());
    painter.end();
    QHeaderView::paintEvent(event);
}

void ListHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
    const bool isOnly = section == onlyTitle_;
    if (onlyTitle_ >= 0 && !isOnly) {
        return;
    }
    const bool atLeft = isOnly || section < titlesAtLeft_;
    const bool indented = isOnly || section == 0 || (atLeft && allIndented_);
    const QRect area =
        (isOnly ? viewport()->rect() : rect).adjusted(indented ? indent_ : 0, 0, 0, -1);
    const QString title = model()->headerData(section, Qt::Horizontal).toString();
    const Qt::Alignment side = atLeft ? Qt::AlignLeft : Qt::AlignHCenter;
    painter->save();
    painter->setClipRect(area);
    painter->setFont(font());
    painter->setPen(titleColor);
    painter->drawText(area, static_cast<int>(side | Qt::AlignVCenter),
                      fontMetrics().elidedText(title, Qt::ElideRight, area.width()));
    painter->restore();
}

}  // namespace tarvin
