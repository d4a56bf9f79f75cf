#include "interface/tree_row.h"

#include "controls/check_box.h"
#include "controls/images.h"
#include "controls/look.h"
#include "controls/painting.h"
#include "controls/plain_text.h"

#include <QFontMetrics>

namespace tarvin {

namespace {

constexpr int branchLeft = 6;
constexpr int branchSide = 14;
constexpr int firstBoxLeft = 24;
constexpr int boxSide = 16;
constexpr int indentation = 18;
constexpr int boxToName = 24;
constexpr int rightMargin = 8;

QFont sizeFont() {
    return look::font(12);
}

void paintBranch(QPainter& painter, const QRect& area, bool expanded) {
    const QPixmap chevron =
        picture(QStringLiteral("ui/chevron_down"), area.size(), devicePixelRatioOf(painter));
    painter.save();
    painter.translate(QRectF(area).center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.rotate(expanded ? 0 : -90);
    painter.drawPixmap(QPointF(-area.width() / 2.0, -area.height() / 2.0), chevron);
    painter.restore();
}

}  // namespace

QRect TreeRow::branch() const {
    return isSet_ ? QRect()
                  : checkBoxIn({row_.left() + branchLeft, row_.top(), branchSide, row_.height()},
                               branchSide);
}

QRect TreeRow::branchReach() const {
    constexpr int gap = 2;  // to the box
    return isSet_ ? QRect() : QRect(row_.left(), row_.top(), firstBoxLeft - gap, row_.height());
}

QRect TreeRow::box() const {
    return checkBoxIn({boxLeft(), row_.top(), boxSide, row_.height()}, boxSide);
}

QRect TreeRow::boxReach() const {
    constexpr int beside = 6;
    const int left = isSet_ ? boxLeft() - beside : branchReach().right() + 1;
    return {left, row_.top(), boxLeft() + boxSide + beside - left, row_.height()};
}

QRect TreeRow::name() const {
    const int left = boxLeft() + boxToName;
    return {left, row_.top(), row_.right() + 1 - rightMargin - left, row_.height()};
}

QFont TreeRow::nameFont() const {
    return look::font(13, isSet_ ? QFont::Normal : QFont::DemiBold);
}

QRect TreeRow::size(const Content& content) const {
    constexpr int besideScrollBar = 4;
    constexpr int gap = 4;  // to the name
    if (content.size.isEmpty()) {
        return {};
    }
    const int margin = content.isBesideScrollBar ? besideScrollBar : rightMargin;
    // An advance is rounded; a text that is wider by a fraction would be elided.
    const int width = QFontMetrics(sizeFont()).horizontalAdvance(content.size) + 1;
    const QRect place(row_.right() + 1 - margin - width, row_.top(), width, row_.height());
    const QRect before = name();
    const int nameWidth = QFontMetrics(nameFont()).horizontalAdvance(singleLine(content.name));
    return before.left() + nameWidth + gap <= place.left() ? place : QRect();
}

void TreeRow::paint(QPainter& painter, const Content& content) const {
    if (content.hasBranch) {
        paintBranch(painter, branch(), content.isExpanded);
    }
    paintCheckBox(painter, box(), content.mark);
    paintLine(painter, name(), content.name, nameFont(), look::ink);
    if (const QRect place = size(content); !place.isEmpty()) {
        paintLine(painter, place, content.size, sizeFont(), look::muted, Qt::AlignRight);
    }
}

int TreeRow::boxLeft() const {
    return row_.left() + firstBoxLeft + (isSet_ ? indentation : 0);
}

}  // namespace tarvin
