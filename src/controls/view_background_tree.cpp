#include "controls/view_background_tree.h"

#include "controls/look.h"

#include <QPaintEvent>
#include <QPainter>

namespace tarvin {

ViewBackgroundTree::ViewBackgroundTree(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ViewBackgroundTree::paintEvent(QPaintEvent* event) {
    QPainter(this).fillRect(event->rect(), look::teal);
}

}  // namespace tarvin
