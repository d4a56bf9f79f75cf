#pragma once

#include "preview/image_decoder.h"

#include <QImage>
#include <QSize>
#include <memory>

class QIODevice;

namespace tarvin {

/// An image that is read for a picture of it. Its content decides what format it is in.
class ImageFile final {
 public:
    /// Loads what it takes to decode the image; no other file is opened later. `device` is open and
    /// outlives it.
    explicit ImageFile(QIODevice& device);

    /// Whether the file can name others, to be shown as a part of it.
    [[nodiscard]] bool canReferToFiles() const { return decoder_->canReferToFiles(); }

    /// In pixels, turned as the camera was held, of the first image if there are several; empty if
    /// there is none or its format does not say before it is decoded.
    [[nodiscard]] QSize size() { return decoder_->size(); }

    /// The image, turned as the camera was held, with no side longer than `longestSide`; null if it
    /// cannot be decoded or would take too much memory. What is drawn and not made of pixels is as
    /// large as that; nothing else is enlarged. Once only.
    [[nodiscard]] QImage picture(int longestSide);

 private:
    std::unique_ptr<ImageDecoder> decoder_;
};

}  // namespace tarvin
