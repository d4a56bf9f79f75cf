#pragma once

#include "preview/image_decoder.h"

#include <QImage>
#include <QSize>
#include <memory>

class QIODevice;

namespace tarvin {

/// An image file to be previewed; the format is detected by content. One thread.
class ImageFile final {
 public:
    /// Loads what decoding needs; no file is opened later. `device` must be open and outlive the
    /// object.
    explicit ImageFile(QIODevice& device);

    /// Whether the format can refer to other files.
    [[nodiscard]] bool canReferToFiles() const { return decoder_->canReferToFiles(); }

    /// The size of the first image in pixels, after rotation; empty if there is none or the size is
    /// unknown before decoding.
    [[nodiscard]] QSize size() { return decoder_->size(); }

    /// The first image, rotated upright, with no side longer than `longestSide`; null if decoding
    /// fails or would take too much memory. Vector images are scaled to that size; others are never
    /// enlarged. Call at most once.
    [[nodiscard]] QImage picture(int longestSide);

 private:
    std::unique_ptr<ImageDecoder> decoder_;
};

}  // namespace tarvin
