#include "interface/preview_column.h"

#include "interface/frames.h"
#include "interface/image_view.h"

#include <algorithm>
#include <cmath>

namespace tarvin {

PreviewColumn::PreviewColumn(ImageView* picture, PaneFrame* properties, QWidget* parent)
    : QWidget(parent), picture_(picture), properties_(properties) {
    picture->setParent(this);
    properties->setParent(this);
}

void PreviewColumn::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    constexpr int lines = 2;  // above and below, or left and right
    constexpr int gap = 8;
    constexpr int minPropertiesHeight = 121;
    const int wanted = static_cast<int>(std::lround((width() - lines) * 0.75)) + lines;
    const int pictureHeight = std::min(wanted, height() - gap - minPropertiesHeight);
    picture_->setGeometry(0, 0, width(), pictureHeight);
    const int top = pictureHeight + gap;
    properties_->setGeometry(0, top, width(), height() - top);
}

}  // namespace tarvin
