#include "controls/panel_shadow.h"

#include "controls/painting.h"

#include <QPainter>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <vector>

namespace tarvin {

namespace {

constexpr int blur = 32;
constexpr int offset = 10;
constexpr double strength = 0.30;
constexpr QColor navy{10, 40, 60};

/// The share of an unlimited band's shadow, from `begin` to `end`, on each pixel.
std::vector<double> coverage(int pixels, double begin, double end, double deviation) {
    const double scale = deviation * std::numbers::sqrt2;
    std::vector<double> covered(static_cast<std::size_t>(pixels));
    for (std::size_t at = 0; at < covered.size(); ++at) {
        const double middle = static_cast<double>(at) + 0.5;
        covered[at] = (std::erf((middle - begin) / scale) - std::erf((middle - end) / scale)) / 2;
    }
    return covered;
}

/// The shadow of a rectangle: its blur is the product of the blurs of both axes.
QImage shadowImage(const QSize& size, double ratio) {
    const QSize pixels = (QSizeF(size) * ratio).toSize();
    QImage image(pixels, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    const double deviation = blur / 2.0 * ratio;
    const std::vector<double> across =
        coverage(pixels.width(), blur * ratio, (size.width() - blur) * ratio, deviation);
    const std::vector<double> down =
        coverage(pixels.height(), blur * ratio, (size.height() - blur) * ratio, deviation);
    for (int y = 0; y < pixels.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < pixels.width(); ++x) {
            const double alpha =
                strength * across[static_cast<std::size_t>(x)] * down[static_cast<std::size_t>(y)];
            line[x] = qPremultiply(qRgba(navy.red(), navy.green(), navy.blue(),
                                         static_cast<int>(std::lround(alpha * 255))));
        }
    }
    return image;
}

}  // namespace

PanelShadow::PanelShadow(QWidget& panel)
    : AttachedDrawing(panel, QMargins(blur, blur - offset, blur, blur + offset), Layer::below) {
    setObjectName(QStringLiteral("panelShadow"));
    setWanted(true);
}

void PanelShadow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double ratio = devicePixelRatioOf(painter);
    if (image_.size() != (QSizeF(size()) * ratio).toSize() || image_.devicePixelRatio() != ratio) {
        image_ = shadowImage(size(), ratio);
    }
    painter.drawImage(0, 0, image_);
}

}  // namespace tarvin
