#include "controls/custom_table_cell_view.h"

#include "controls/images.h"
#include "controls/look.h"
#include "controls/painting.h"

#include <QPixmap>

namespace tarvin {

namespace {

QIcon iconOf(const QVariant& decoration) {
    if (decoration.metaType() == QMetaType::fromType<QPixmap>()) {
        return {decoration.value<QPixmap>()};
    }
    return decoration.value<QIcon>();
}

}  // namespace

CustomTableCellView::CustomTableCellView(const QModelIndex& index)
    : textField_(index.data(Qt::DisplayRole).toString()),
      additionalText_(index.data(additionalTextRole).toString()),
      additionalTextCount_(index.data(additionalTextCountRole).toString()),
      image_(iconOf(index.data(Qt::DecorationRole))) {}

void CustomTableCellView::paint(QPainter& painter, const QRect& cell) const {
    constexpr QRect imageArea(16, 8, 40, 40);
    constexpr int textLeft = 72;
    constexpr int rightMargin = 24;
    constexpr int sizeWidth = 104;
    constexpr int gap = 8;
    paintImage(painter, imageArea.translated(cell.topLeft()));

    const int right = cell.width() - rightMargin;
    if (!additionalText_.isEmpty()) {
        const QRect area(cell.left() + right - sizeWidth, cell.top() + 19, sizeWidth, 18);
        paintLine(painter, area, additionalText_, look::font(13), look::muted, Qt::AlignRight);
    }
    const int textRight = additionalText_.isEmpty() ? right : right - sizeWidth - gap;
    const QRect name(cell.left() + textLeft, cell.top() + 9, textRight - textLeft, 19);
    paintLine(painter, name, additionalTextCount_, look::font(14, QFont::DemiBold), look::ink,
              Qt::AlignLeft, Qt::ElideMiddle);
    const QRect path(name.left(), cell.top() + 29, name.width(), 17);
    paintLine(painter, path, textField_, look::font(12), look::muted, Qt::AlignLeft,
              Qt::ElideMiddle);
}

void CustomTableCellView::paintImage(QPainter& painter, const QRect& area) const {
    if (image_.isNull()) {
        painter.drawPixmap(area.topLeft(), picture(QStringLiteral("folder"), area.size(),
                                                   devicePixelRatioOf(painter)));
        return;
    }
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    image_.paint(&painter, area);
}

}  // namespace tarvin
