#include "preview/qt_image.h"

#include "preview/drawing_needs.h"
#include "preview/smaller_image.h"

namespace tarvin {

namespace {

/// Bytes; far more than drawing programs write.
constexpr qint64 maxDrawingBytes = 64 * 1024 * 1024;

}  // namespace

QtImage::QtImage(QIODevice& device) : reader_(&device) {
    // Qt would rotate a copy at full size; decode() rotates the smaller image.
    reader_.setAutoTransform(false);
    // The reader now has its plug-in and loads no other.
    isDrawing_ = reader_.format().startsWith("svg");
    if (!isDrawing_) {
        return;
    }
    device.seek(0);
    drawing_.setData(device.read(maxDrawingBytes));
    drawing_.open(QIODevice::ReadOnly);
    loadDrawingNeeds(drawing_.data());
    reader_.setDevice(&drawing_);
}

QSize QtImage::size() {
    const QSize size = reader_.size();
    const bool isTurned =
        reader_.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    return isTurned ? size.transposed() : size;
}

QImage QtImage::decode(int maxSide) {
    const QSize full = reader_.size();  // before rotation
    if (full.isValid() && canDecodeSmaller()) {
        reader_.setScaledSize(sizeToDecode(full, maxSide));
    }
    const QImageIOHandler::Transformations transformations = reader_.transformation();
    const QImage image = reader_.read();
    // Rotate after scaling: less memory.
    return image.isNull() || fits(image.size(), maxSide)
               ? turned(image, transformations)
               : turned(smaller(image, fitted(image.size(), maxSide)), transformations);
}

/// Whether the plug-in itself decodes to a smaller size. Otherwise Qt would decode at full size,
/// copy that and scale the copy.
bool QtImage::canDecodeSmaller() const {
    if (!reader_.supportsOption(QImageIOHandler::ScaledSize)) {
        return false;
    }
    const QImage::Format format = reader_.imageFormat();
    const bool isWholeFirst = reader_.format() == "png" && format != QImage::Format_RGB32 &&
                              format != QImage::Format_ARGB32;
    return !isWholeFirst;
}

QSize QtImage::sizeToDecode(QSize full, int maxSide) const {
    return isDrawing_ || !fits(full, maxSide) ? fitted(full, maxSide) : full;
}

}  // namespace tarvin
