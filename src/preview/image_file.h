#pragma once

#include <QImage>
#include <QImageReader>
#include <QSize>

class QIODevice;

namespace tarvin {

/// An image that is read for a picture of it. Its content decides what format it is in.
class ImageFile final {
 public:
    /// `device` is open and outlives it.
    explicit ImageFile(QIODevice& device);

    /// In pixels, turned as the camera was held, of the first image if there are several; empty if
    /// there is none or its format does not say before it is decoded.
    [[nodiscard]] QSize size() const;

    /// The image, turned as the camera was held, with no side longer than `longestSide`; null if it
    /// cannot be decoded or would take too much memory. What is drawn and not made of pixels is as
    /// large as that; nothing else is enlarged. Once only.
    [[nodiscard]] QImage picture(int longestSide);

 private:
    [[nodiscard]] QSize sizeToDecode(QSize full, int longestSide) const;

    mutable QImageReader reader_;  // which opens what it reads when it is first asked
};

}  // namespace tarvin
