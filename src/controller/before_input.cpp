#include "controller/before_input.h"

#include <QCoreApplication>
#include <QEvent>
#include <utility>

namespace tarvin {

BeforeInput::BeforeInput(std::function<void()> act) : act_(std::move(act)) {
    QCoreApplication::instance()->installEventFilter(this);
}

BeforeInput::~BeforeInput() = default;

bool BeforeInput::eventFilter(QObject* /*watched*/, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::TouchBegin:
        case QEvent::TouchEnd:
        case QEvent::ContextMenu:
        case QEvent::Drop:
        case QEvent::Close: {
            // A copy: the object may be destroyed.
            const std::function<void()> act = act_;
            act();
            break;
        }
        default:
            break;
    }
    return false;
}

}  // namespace tarvin
