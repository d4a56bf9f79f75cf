#pragma once

#include <QImage>
#include <QSize>

namespace tarvin {

/// Decodes an open image file. Loads what it needs, such as a library, in its constructor, and
/// opens no file later. One thread.
class ImageDecoder {
 public:
    ImageDecoder() = default;
    ImageDecoder(const ImageDecoder&) = delete;
    ImageDecoder& operator=(const ImageDecoder&) = delete;
    virtual ~ImageDecoder() = default;

    /// The size of the first image in pixels, after rotation; empty if there is none or the size is
    /// unknown before decoding.
    [[nodiscard]] virtual QSize size() = 0;

    /// The first image, rotated upright, never an embedded thumbnail. The longer side is at least
    /// about `maxSide` if the image is that large, and may be longer. Null if decoding fails or
    /// would take more than decodedImageLimit. Call at most once.
    [[nodiscard]] virtual QImage decode(int maxSide) = 0;

    /// Whether the format can refer to other files.
    [[nodiscard]] virtual bool canReferToFiles() const { return false; }
};

}  // namespace tarvin
