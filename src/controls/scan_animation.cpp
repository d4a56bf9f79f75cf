#include "controls/scan_animation.h"

#include "controls/images.h"
#include "controls/painting.h"

#include <QEasingCurve>
#include <QPainter>
#include <cmath>
#include <numbers>

namespace tarvin {

namespace {

constexpr int roundMilliseconds = 2400;
constexpr QSize stageSize(288, 216);
constexpr QSize lensSize(100, 100);
// The lens moves from one corner to the other and back, in a curve to each side.
constexpr QPointF pathBegin(40, 70);
constexpr QPointF pathEnd(150, 92);
constexpr double bow = 26;

QPointF pointOfPath(double phase) {
    const bool forth = phase < 0.5;
    const double part =
        QEasingCurve(QEasingCurve::InOutQuad).valueForProgress(forth ? 2 * phase : 2 - 2 * phase);
    const double lift = bow * std::sin(std::numbers::pi * part);
    return pathBegin + (pathEnd - pathBegin) * part + QPointF(0, forth ? -lift : lift);
}

}  // namespace

ScanAnimation::ScanAnimation(QWidget* parent) : QWidget(parent), clock_(*this, roundMilliseconds) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void ScanAnimation::startAnimation() {
    started_ = true;
    if (!reducedMotion()) {
        clock_.start();
    }
}

void ScanAnimation::stopAnimation() {
    started_ = false;
    clock_.stop();
}

QPointF ScanAnimation::lensPosition() const {
    const QPointF stage((width() - stageSize.width()) / 2.0, (height() - stageSize.height()) / 2.0);
    return stage + pointOfPath(clock_.phase());
}

void ScanAnimation::paintEvent(QPaintEvent*) {
    // The images have the size in which they are painted. With smoothing, Qt would paint them on a
    // thread pool, for which the main thread would wait: up to 0.2 s while a scan uses all CPUs.
    QPainter painter(this);
    const double ratio = devicePixelRatioOf(painter);
    painter.drawPixmap(
        QPoint((width() - stageSize.width()) / 2, (height() - stageSize.height()) / 2),
        picture(QStringLiteral("ui/scan_stage"), stageSize, ratio));
    painter.drawPixmap(lensPosition(), picture(QStringLiteral("ui/scan_lens"), lensSize, ratio));
}

}  // namespace tarvin
