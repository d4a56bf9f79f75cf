#include "controls/progress_bar.h"

#include "controls/look.h"
#include "controls/painting.h"

#include <QLinearGradient>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace tarvin {

namespace {

constexpr int sweepMilliseconds = 1400;
constexpr double sweepWidth = 0.34;  // share of the bar
constexpr int steps = 10000;         // steps of the value for assistive technology

}  // namespace

ProgressBar::ProgressBar(QWidget* parent) : QProgressBar(parent), clock_(*this, sweepMilliseconds) {
    setTextVisible(false);
    refresh();
}

void ProgressBar::setTotal(quint64 total) {
    total_ = total;
    refresh();
}

void ProgressBar::setDone(quint64 done) {
    done_ = done;
    refresh();
}

double ProgressBar::fraction() const {
    if (total_ == 0) {
        return 0;
    }
    if (done_ >= total_) {
        return 1;
    }
    // Numbers above 2^53 may become equal as doubles before everything is done.
    return std::min(static_cast<double>(done_) / static_cast<double>(total_),
                    std::nextafter(1.0, 0.0));
}

void ProgressBar::setIndeterminate(bool indeterminate) {
    indeterminate_ = indeterminate;
    refresh();
}

void ProgressBar::setSheen(bool sheen) {
    sheen_ = sheen;
    refresh();
}

void ProgressBar::refresh() {
    setRange(0, indeterminate_ ? 0 : steps);
    setValue(static_cast<int>(std::floor(fraction() * steps)));
    if (indeterminate_ || (sheen_ && !reducedMotion())) {
        clock_.start();
    } else {
        clock_.stop();
    }
    update();
}

void ProgressBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), look::line);
    if (indeterminate_) {
        const double left = clock_.phase() * (1 + sweepWidth) - sweepWidth;
        painter.fillRect(QRectF(left * width(), 0, sweepWidth * width(), height()), look::teal);
        return;
    }
    // Whole pixels, rounded down: the bar is full only at the end.
    const double ratio = devicePixelRatioOf(painter);
    const double filled = std::floor(fraction() * width() * ratio) / ratio;
    const QRectF done(0, 0, filled, height());
    painter.fillRect(done, look::teal);
    if (sheen_ && !reducedMotion()) {
        paintSheen(painter, done, QRectF(filled, 0, width() - filled, height()));
    }
}

void ProgressBar::paintSheen(QPainter& painter, const QRectF& filled, const QRectF& rest) const {
    constexpr double length = 120;
    constexpr QColor white{255, 255, 255, 90};
    constexpr QColor paleTeal{154, 218, 227};
    const double left = clock_.phase() * (width() + length) - length;
    const QRectF light(left, 0, length, height());
    const auto shine = [&](const QRectF& part, const QColor& color) {
        QColor none = color;
        none.setAlpha(0);
        QLinearGradient gradient(light.left(), 0, light.right(), 0);
        gradient.setColorAt(0, none);
        gradient.setColorAt(0.5, color);
        gradient.setColorAt(1, none);
        painter.fillRect(part & light, gradient);
    };
    shine(filled, white);
    shine(rest, paleTeal);
}

}  // namespace tarvin
