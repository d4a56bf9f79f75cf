#include "interface/early_window.h"

#include "controls/look.h"
#include "interface/appearance.h"
#include "interface/product_title.h"
#include "interface/screen.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QPainter>
#include <QTimer>
#include <chrono>
#include <utility>

namespace tarvin {

namespace {

// After that the contents are worth more than an empty window.
constexpr std::chrono::milliseconds longestWait{100};

}  // namespace

EarlyWindow::EarlyWindow(QWidget* parent, Appearance appearance, const QSize& size)
    : QWidget(parent) {
    setWindowTitle(productTitle());
    setMinimumSize(size);
    resize(size);
    useLightColors(this);
    if (appearance == Appearance::atOnce) {
        appear();
    }
}

/// What a person does meanwhile waits in the queue for the contents.
void EarlyWindow::appear() {
    isEarly_ = true;
    show();
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(longestWait);
    while (isEarly_ && limit.isActive()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::WaitForMoreEvents);
    }
    isEarly_ = false;
}

void EarlyWindow::paintEvent(QPaintEvent* event) {
    if (!std::exchange(isEarly_, false)) {
        return;
    }
    QPainter painter(this);
    painter.setClipRect(event->rect());
    painter.fillRect(rect(), look::panelBlue);
    painter.fillRect(QRect(0, 0, width(), Screen::barHeight), look::topBar);
}

void EarlyWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
}

}  // namespace tarvin
