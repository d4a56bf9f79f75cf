#include "controls/popup_watch.h"

#include <QApplication>
#include <QEvent>
#include <QPointer>
#include <QWidget>

namespace tarvin {

PopupWatch::PopupWatch(QObject* application) : QObject(application) {
    application->installEventFilter(this);
}

PopupWatch& PopupWatch::instance() {
    static QPointer<PopupWatch> watch;
    if (watch == nullptr) {
        watch = new PopupWatch(qApp);
    }
    return *watch;
}

bool PopupWatch::eventFilter(QObject* watched, QEvent* event) {
    const bool hides = event->type() == QEvent::Hide && watched->isWidgetType();
    if (hides && static_cast<const QWidget*>(watched)->windowType() == Qt::Popup) {
        // Queued, when the popup is no longer found below the pointer.
        QMetaObject::invokeMethod(this, "closed", Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace tarvin
