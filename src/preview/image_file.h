#pragma once

#include "preview/image_decoder.h"

#include <QImage>
#include <memory>

class QIODevice;

namespace tarvin {

// An image file to be previewed. One thread.

/// Detects the format by content and loads what decoding needs; no file is opened later. `device`
/// must be open and outlive the result.
[[nodiscard]] std::unique_ptr<ImageDecoder> openImage(QIODevice& device);

/// The first image, rotated upright, with no side longer than `maxSide`; null if decoding fails
/// or would take too much memory. Vector images are scaled to that size; others are never enlarged.
/// Call at most once.
[[nodiscard]] QImage picture(ImageDecoder& image, int maxSide);

}  // namespace tarvin
