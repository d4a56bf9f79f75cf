#include "controls/view_transparent.h"

#include <QEvent>

namespace tarvin {

ViewTransparent::ViewTransparent(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::ClickFocus);
    setMouseTracking(true);
    setCursor(Qt::ArrowCursor);
}

void ViewTransparent::setviewsOverlaidCount(std::int32_t viewsOverlaidCount) {
    if (viewsOverlaidCount == viewsOverlaidCount_) {
        return;
    }
    viewsOverlaidCount_ = viewsOverlaidCount;
    Q_EMIT viewsOverlaidCountChanged(viewsOverlaidCount);
}

void ViewTransparent::viewTransparentAddedNote(QObject* object) {
    if (object != this) {
        setviewsOverlaidCount(viewsOverlaidCount_ + 1);
    }
}

void ViewTransparent::viewTransparentRemovedNote(QObject* object) {
    if (object != this) {
        setviewsOverlaidCount(viewsOverlaidCount_ - 1);
    }
}

bool ViewTransparent::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
            event->accept();
            return true;
        default:
            return QWidget::event(event);
    }
}

}  // namespace tarvin
