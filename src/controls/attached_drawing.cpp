#include "controls/attached_drawing.h"

#include <QEvent>

namespace tarvin {

AttachedDrawing::AttachedDrawing(QWidget& target, const QMargins& margins, Layer layer)
    : QWidget(target.parentWidget()), target_(&target), margins_(margins), layer_(layer) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
    hide();
    target.installEventFilter(this);
    connect(&target, &QObject::destroyed, this, &QObject::deleteLater);
}

bool AttachedDrawing::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::Hide:
        case QEvent::ParentChange:
            follow();
            break;
        case QEvent::ZOrderChange:
            restack();
            break;
        default:
            break;
    }
    return QWidget::eventFilter(watched, event);
}

void AttachedDrawing::setWanted(bool wanted) {
    wanted_ = wanted;
    follow();
}

void AttachedDrawing::follow() {
    if (target_ == nullptr || target_->parentWidget() == nullptr) {
        hide();
        return;
    }
    if (parentWidget() != target_->parentWidget()) {
        setParent(target_->parentWidget());
    }
    setGeometry(target_->geometry().marginsAdded(margins_));
    const bool seen = wanted_ && !target_->isHidden();
    if (seen && isHidden()) {
        restack();
    }
    setVisible(seen);
}

void AttachedDrawing::restack() {
    if (target_ == nullptr) {
        return;
    }
    if (layer_ == Layer::below) {
        stackUnder(target_);
    } else {
        raise();
    }
}

}  // namespace tarvin
