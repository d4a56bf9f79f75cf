#include "controls/motion.h"

#include <QApplication>
#include <QEvent>
#include <QStyle>
#include <cmath>

namespace tarvin {

namespace {

std::optional<bool>& reducedChoice() {
    static std::optional<bool> choice;
    return choice;
}

}  // namespace

bool reducedMotion() {
    const std::optional<bool> chosen = reducedChoice();
    if (chosen) {
        return *chosen;
    }
    return QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) == 0;
}

void setReducedMotion(std::optional<bool> reduced) {
    reducedChoice() = reduced;
}

LoopClock::LoopClock(QWidget& owner, int milliseconds) : QObject(&owner), owner_(owner) {
    animation_.setStartValue(0.0);
    animation_.setEndValue(1.0);
    animation_.setDuration(milliseconds);
    animation_.setLoopCount(-1);
    connect(&animation_, &QVariantAnimation::valueChanged, &owner, qOverload<>(&QWidget::update));
    owner.installEventFilter(this);
}

void LoopClock::start() {
    started_ = true;
    runOrPause();
}

void LoopClock::stop() {
    started_ = false;
    runOrPause();
}

bool LoopClock::isRunning() const {
    return animation_.state() == QAbstractAnimation::Running;
}

double LoopClock::phase() const {
    return static_cast<double>(animation_.currentLoopTime()) / animation_.duration();
}

void LoopClock::setPhase(double phase) {
    const double part = phase - std::floor(phase);
    animation_.setCurrentTime(static_cast<int>(std::lround(part * animation_.duration())));
    owner_.update();
}

bool LoopClock::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show || event->type() == QEvent::Hide) {
        runOrPause();
    }
    return QObject::eventFilter(watched, event);
}

void LoopClock::runOrPause() {
    const bool wanted = started_ && owner_.isVisible();
    if (wanted == isRunning()) {
        return;
    }
    if (!wanted) {
        animation_.pause();
    } else if (animation_.state() == QAbstractAnimation::Paused) {
        animation_.resume();
    } else {
        const int at = animation_.currentTime();
        animation_.start();
        animation_.setCurrentTime(at);
    }
}

}  // namespace tarvin
