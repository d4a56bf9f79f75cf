#pragma once

#include "preview/image_decoder.h"

#include <memory>

class QIODevice;

namespace tarvin {

/// The decoder of a HEIF file (HEIC, AVIF), with the system's libheif. Null if the file has another
/// format or is damaged, or if the library is not installed. `device` must be open and outlive the
/// decoder.
[[nodiscard]] std::unique_ptr<ImageDecoder> openHeifImage(QIODevice& device);

}  // namespace tarvin
