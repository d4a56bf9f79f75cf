#pragma once

#include <QImage>
#include <QSize>

namespace tarvin {

/// One way to read an image file that is open. What it takes beside that file, such as a library,
/// is loaded when it is made; nothing else is opened later.
class ImageDecoder {
 public:
    ImageDecoder() = default;
    ImageDecoder(const ImageDecoder&) = delete;
    ImageDecoder& operator=(const ImageDecoder&) = delete;
    virtual ~ImageDecoder() = default;

    /// In pixels, upright, of the first image if there are several; empty if there is none or its
    /// format does not say before it is decoded.
    [[nodiscard]] virtual QSize size() = 0;

    /// The image itself, upright, never a smaller one that the file holds for a preview. No side is
    /// much shorter than it is when the longer one is `longestSide`, but both may be longer. Null
    /// if it cannot be decoded or would take more than decodedImageLimit. Once only.
    [[nodiscard]] virtual QImage decode(int longestSide) = 0;

    /// Whether the file can name others, to be shown as a part of it.
    [[nodiscard]] virtual bool canReferToFiles() const { return false; }
};

}  // namespace tarvin
