#include "interface/list_cell_delegate.h"

#include "controls/images.h"
#include "controls/look.h"
#include "controls/painting.h"
#include "controls/plain_text.h"
#include "controls/row_painter.h"
#include "interface/list_table.h"

#include <QFontMetrics>
#include <QPainter>
#include <QTextLayout>

namespace tarvin {

namespace {

constexpr int padding = 12;
constexpr int pictureSide = 18;
constexpr int pictureGap = 8;
constexpr int wrappedPitch = 17;
// In a row with two lines, from its top.
constexpr int nameTop = 5;
constexpr int namePitch = 18;
constexpr int pathTop = 23;
constexpr int pathPitch = 16;

QFont fontOf(ListTable::Text text) {
    const bool isName = text == ListTable::Text::name || text == ListTable::Text::nameAndPath;
    return look::font(13, isName ? QFont::Medium : QFont::Normal);
}

QFont secondFont() {
    return look::font(12);
}

QString secondLine(const QModelIndex& index) {
    return index.data(ListTable::secondLineRole).toString();
}

QString pictureName(const QModelIndex& index) {
    return index.data(ListTable::pictureRole).toString();
}

constexpr int markGap = 12;

/// The width that the remark of a cell takes from its text; 0 without one.
int markWidth(const QModelIndex& index) {
    const QString mark = index.data(ListTable::markRole).toString();
    return mark.isEmpty() ? 0 : QFontMetrics(secondFont()).horizontalAdvance(mark) + markGap;
}

bool fits(const QString& text, const QFont& font, int width) {
    return QFontMetrics(font).horizontalAdvance(singleLine(text)) <= width;
}

/// The text on one line or two. The second is elided if more would be needed.
QStringList wrapped(const QString& text, const QFont& font, int width) {
    QTextLayout layout(singleLine(text), font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) {
        line.setLineWidth(width);
    }
    const int end = line.isValid() ? line.textStart() + line.textLength() : 0;
    layout.endLayout();
    const QString rest = layout.text().mid(end);
    if (rest.isEmpty()) {
        return {layout.text()};
    }
    return {layout.text().left(end).trimmed(),
            QFontMetrics(font).elidedText(rest, Qt::ElideRight, width)};
}

}  // namespace

ListCellDelegate::ListCellDelegate(ListTable& table) : QStyledItemDelegate(&table), table_(table) {}

void ListCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    painter->save();
    paintRow(*painter, option, index);
    const ListTable::Text kind = table_.columns()[index.column()].text;
    QRect area = option.rect.adjusted(padding, 0, -padding, 0);
    if (const QString name = pictureName(index); !name.isEmpty()) {
        const QRect square(area.left(), area.center().y() - pictureSide / 2, pictureSide,
                           pictureSide);
        painter->drawPixmap(square, picture(name, square.size(), devicePixelRatioOf(*painter)));
        area.setLeft(area.left() + pictureSide + pictureGap);
    }
    const QString text = index.data().toString();
    const bool muted = kind == ListTable::Text::path || index.data(ListTable::mutedRole).toBool();
    const QColor color = muted ? look::muted : look::ink;
    const QFont font = fontOf(kind);
    switch (kind) {
        case ListTable::Text::nameAndPath:
            paintLine(*painter, {area.left(), area.top() + nameTop, area.width(), namePitch}, text,
                      font, color, Qt::AlignLeft, Qt::ElideMiddle);
            paintLine(*painter, {area.left(), area.top() + pathTop, area.width(), pathPitch},
                      secondLine(index), secondFont(), look::muted, Qt::AlignLeft, Qt::ElideMiddle);
            break;
        case ListTable::Text::wrapped: {
            const QStringList lines = wrapped(text, font, area.width());
            const int height = wrappedPitch * static_cast<int>(lines.size());
            int top = area.top() + (area.height() - height) / 2;
            for (const QString& line : lines) {
                paintLine(*painter, {area.left(), top, area.width(), wrappedPitch}, line, font,
                          color);
                top += wrappedPitch;
            }
            break;
        }
        default:
            paintLine(*painter, area.adjusted(0, 0, -markWidth(index), 0), text, font, color,
                      Qt::AlignLeft,
                      kind == ListTable::Text::plain ? Qt::ElideRight : Qt::ElideMiddle);
            paintLine(*painter, area, index.data(ListTable::markRole).toString(), secondFont(),
                      look::muted, Qt::AlignRight);
    }
    painter->restore();
}

QSize ListCellDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {100, table_.rowHeight(0)};
}

QString ListCellDelegate::hiddenText(const QRect& cell, const QModelIndex& index) const {
    const int picture = pictureName(index).isEmpty() ? 0 : pictureSide + pictureGap;
    const int width = cell.width() - 2 * padding - picture;
    const QString text = index.data().toString();
    const ListTable::Text kind = table_.columns()[index.column()].text;
    const QFont font = fontOf(kind);
    switch (kind) {
        case ListTable::Text::nameAndPath: {
            const QString second = secondLine(index);
            const bool shown = fits(text, font, width) && fits(second, secondFont(), width);
            return shown ? QString() : text + QLatin1Char('\n') + second;
        }
        case ListTable::Text::wrapped: {
            const QStringList lines = wrapped(text, font, width);
            const bool shown = lines.size() < 2 || singleLine(text).endsWith(lines.back());
            return shown ? QString() : text;
        }
        default:
            return fits(text, font, width - markWidth(index)) ? QString() : text;
    }
}

}  // namespace tarvin
