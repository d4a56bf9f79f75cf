#include "interface/image_view.h"

#include "controls/accessible_factory.h"
#include "controls/look.h"
#include "controls/painting.h"

#include <QAccessibleWidget>
#include <QPainter>
#include <QStyle>

namespace tarvin {

namespace {

/// Has the role of an image. Owned by Qt.
class AccessibleImage final : public QAccessibleWidget {
 public:
    explicit AccessibleImage(ImageView& view) : QAccessibleWidget(&view, QAccessible::Graphic) {}
};

}  // namespace

ImageView::ImageView(QWidget* parent) : QWidget(parent) {
    installAccessible<ImageView, AccessibleImage>();
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ImageView::setImage(const QImage& image) {
    image_ = image;
    scaled_ = {};
    update();
}

void ImageView::paintEvent(QPaintEvent*) {
    constexpr int line = 1;
    QPainter painter(this);
    painter.fillRect(rect(), look::surface);
    paintFrame(painter, rect(), line, look::frame);
    const QRect inside = rect().adjusted(line, line, -line, -line);
    if (image_.isNull() || inside.isEmpty()) {
        return;
    }
    const double ratio = devicePixelRatioOf(painter);
    // An image much wider than it is high is painted as a line.
    const QSize size = image_.size()
                           .scaled((QSizeF(inside.size()) * ratio).toSize(), Qt::KeepAspectRatio)
                           .expandedTo({1, 1});
    if (scaled_.size() != size || scaled_.devicePixelRatio() != ratio) {
        scaled_ = QPixmap::fromImage(
            image_.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        scaled_.setDevicePixelRatio(ratio);
    }
    const QRect area = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter,
                                           scaled_.deviceIndependentSize().toSize(), inside);
    painter.drawPixmap(area.topLeft(), scaled_);
}

}  // namespace tarvin
