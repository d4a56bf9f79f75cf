#include "interface/picture_view.h"

#include "controls/images.h"
#include "controls/look.h"

#include <QPainter>

namespace tarvin {

PictureView::PictureView(QWidget* parent) : QWidget(parent) {}

void PictureView::setPictureName(const QString& name) {
    pictureName_ = name;
    update();
}

void PictureView::setBacked(bool backed) {
    backed_ = backed;
    setAttribute(Qt::WA_OpaquePaintEvent, backed);
    update();
}

void PictureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (backed_) {
        painter.fillRect(rect(), look::surface);
    }
    const QPixmap drawing = picture(pictureName_, size(), painter.device()->devicePixelRatioF());
    if (!drawing.isNull()) {
        painter.drawPixmap(rect(), drawing);
    }
}

}  // namespace tarvin
