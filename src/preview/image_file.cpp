#include "preview/image_file.h"

namespace tarvin {

namespace {

bool fits(QSize size, int longestSide) {
    return size.width() <= longestSide && size.height() <= longestSide;
}

/// A line of one pixel keeps that pixel.
QSize fitted(QSize size, int longestSide) {
    return size.scaled(longestSide, longestSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

}  // namespace

ImageFile::ImageFile(QIODevice& device) : reader_(&device) {
    reader_.setAutoTransform(true);
}

QSize ImageFile::size() const {
    const QSize size = reader_.size();
    const bool isTurned =
        reader_.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    return isTurned ? size.transposed() : size;
}

QImage ImageFile::picture(int longestSide) {
    // The reader turns what it has decoded, so this is the size before.
    const QSize full = reader_.size();
    if (full.isValid()) {
        reader_.setScaledSize(sizeToDecode(full, longestSide));
    }
    const QImage image = reader_.read();
    return image.isNull() || fits(image.size(), longestSide)
               ? image
               : image.scaled(fitted(image.size(), longestSide), Qt::IgnoreAspectRatio,
                              Qt::SmoothTransformation);
}

QSize ImageFile::sizeToDecode(QSize full, int longestSide) const {
    const bool isDrawn = reader_.format().startsWith("svg");
    return isDrawn || !fits(full, longestSide) ? fitted(full, longestSide) : full;
}

}  // namespace tarvin
