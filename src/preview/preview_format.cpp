#include "preview/preview_format.h"

#include <QtEndian>

namespace tarvin {

namespace {

constexpr qsizetype sizeLength = 8;
constexpr qsizetype headerLength = 2 * sizeLength;
constexpr qsizetype bytesPerPixel = 4;

qsizetype pixelBytes(QSize size) {
    return bytesPerPixel * size.width() * size.height();
}

}  // namespace

QByteArray encodedSize(QSize size) {
    QByteArray bytes(sizeLength, Qt::Uninitialized);
    qToLittleEndian<qint32>(size.width(), bytes.data());
    qToLittleEndian<qint32>(size.height(), bytes.data() + sizeLength / 2);
    return bytes;
}

QByteArray encodedPicture(const QImage& image) {
    const QImage pixels = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QByteArray bytes = encodedSize(pixels.size());
    const qsizetype rowLength = bytesPerPixel * pixels.width();
    for (int row = 0; row < pixels.height(); ++row) {
        const void* const line = pixels.constScanLine(row);
        bytes.append(static_cast<const char*>(line), rowLength);
    }
    return bytes;
}

bool PreviewReader::take(const QByteArray& bytes) {
    if (!isSound()) {
        return false;
    }
    bytes_ += bytes;
    return isSound();
}

std::optional<QSize> PreviewReader::size() const {
    return sizeAt(0);
}

QImage PreviewReader::picture() const {
    const std::optional<QSize> size = sizeAt(sizeLength);
    if (!size || !isSound() || bytes_.size() < headerLength + pixelBytes(*size)) {
        return {};
    }
    const void* const pixels = bytes_.constData() + headerLength;
    return QImage(static_cast<const uchar*>(pixels), size->width(), size->height(),
                  bytesPerPixel * size->width(), QImage::Format_ARGB32_Premultiplied)
        .copy();
}

std::optional<QSize> PreviewReader::sizeAt(qsizetype offset) const {
    if (bytes_.size() < offset + sizeLength) {
        return std::nullopt;
    }
    const char* const at = bytes_.constData() + offset;
    return QSize(qFromLittleEndian<qint32>(at), qFromLittleEndian<qint32>(at + sizeLength / 2));
}

bool PreviewReader::isSound() const {
    const std::optional<QSize> image = sizeAt(0);
    const std::optional<QSize> picture = sizeAt(sizeLength);
    if (image && image->isEmpty()) {
        return false;
    }
    if (!picture) {
        return true;
    }
    return !picture->isEmpty() && picture->width() <= maxPreviewSide &&
           picture->height() <= maxPreviewSide &&
           bytes_.size() <= headerLength + pixelBytes(*picture);
}

}  // namespace tarvin
