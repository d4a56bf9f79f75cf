#include "preview/smaller_image.h"

#include <QTransform>
#include <algorithm>
#include <cstring>

namespace tarvin {

namespace {

constexpr QImage::Format workFormat = QImage::Format_ARGB32_Premultiplied;

int dividedUp(int number, int divisor) {
    return (number + divisor - 1) / divisor;
}

/// Averages squares of `factor` by `factor` pixels.
QImage reduced(const QImage& image, int factor) {
    QImage result(dividedUp(image.width(), factor), dividedUp(image.height(), factor), workFormat);
    for (int row = 0; row < result.height(); ++row) {
        const int top = row * factor;
        const QImage band =
            image.copy(0, top, image.width(), std::min(factor, image.height() - top))
                .convertToFormat(workFormat)
                .scaled(result.width(), 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        if (band.isNull()) {
            return {};
        }
        std::memcpy(result.scanLine(row), band.constScanLine(0),
                    static_cast<std::size_t>(band.width()) * sizeof(QRgb));
    }
    return result;
}

/// QImage::mirrored() is called flipped() since Qt 6.9.
QImage flipped(const QImage& image, bool horizontally, bool vertically) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 9, 0)
    Qt::Orientations axes;
    axes.setFlag(Qt::Horizontal, horizontally);
    axes.setFlag(Qt::Vertical, vertically);
    return image.flipped(axes);
#else
    return image.mirrored(horizontally, vertically);
#endif
}

}  // namespace

QSize fitted(QSize size, int longerSide) {
    return size.scaled(longerSide, longerSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

bool fits(QSize size, int maxSide) {
    return size.width() <= maxSide && size.height() <= maxSide;
}

QImage smaller(const QImage& image, QSize size) {
    // The last step, at least two to one, uses a smooth filter.
    const int factor =
        std::min(image.width() / (2 * size.width()), image.height() / (2 * size.height()));
    const QImage middle = factor < 2 ? image : reduced(image, factor);
    return middle.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage turned(const QImage& image, QImageIOHandler::Transformations transformations) {
    if (transformations == QImageIOHandler::TransformationNone) {
        return image;
    }
    const QImage upright =
        flipped(image, transformations.testFlag(QImageIOHandler::TransformationMirror),
                transformations.testFlag(QImageIOHandler::TransformationFlip));
    return transformations.testFlag(QImageIOHandler::TransformationRotate90)
               ? upright.transformed(QTransform().rotate(90))
               : upright;
}

}  // namespace tarvin
