#include "interface/open_panels.h"

#include "interface/panel_keyboard.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>

namespace tarvin {

OpenPanels::OpenPanels(QWidget* window) : QObject(window), window_(window) {
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { keepKeyboardInside(now); });
}

void OpenPanels::watch(QWidget* panel, PanelKeyboard* keyboard) {
    watched_.push_back({panel, keyboard});
    keyboard->setFallback([this] { Q_EMIT keyboardFree(); });
    panel->installEventFilter(this);
}

bool OpenPanels::eventFilter(QObject* watched, QEvent* event) {
    // Received before the panel itself, which then moves the focus. Spontaneous events concern the
    // whole window, which is restored as it was.
    if (!event->spontaneous() && event->type() == QEvent::Show) {
        setShown(watched, true);
    } else if (!event->spontaneous() && event->type() == QEvent::Hide) {
        setShown(watched, false);
    }
    return QObject::eventFilter(watched, event);
}

void OpenPanels::setShown(QObject* panel, bool shown) {
    const auto isPanel = [panel](const Watched& item) { return item.panel == panel; };
    const bool before = any();
    shown_.removeIf(isPanel);
    if (shown) {
        shown_.push_back(*std::find_if(watched_.begin(), watched_.end(), isPanel));
    }
    if (any() != before) {
        Q_EMIT anyChanged(any());
    }
}

void OpenPanels::keepKeyboardInside(QWidget* now) {
    if (!any() || now == nullptr || now->window() != window_) {
        return;
    }
    const Watched& top = shown_.back();
    if (!top.panel->isAncestorOf(now)) {
        top.keyboard->begin();
    }
}

}  // namespace tarvin
