#include "controller/key_block.h"

#include <QCoreApplication>
#include <QEvent>

namespace tarvin {

KeyBlock::KeyBlock() {
    QCoreApplication::instance()->installEventFilter(this);
}

KeyBlock::~KeyBlock() = default;

bool KeyBlock::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
            return true;
        default:
            return QObject::eventFilter(watched, event);
    }
}

}  // namespace tarvin
