#pragma once

#include "preview/image_decoder.h"

#include <memory>

class QIODevice;

namespace tarvin {

/// The decoder of an HEIF file (HEIC, AVIF), by the system's libheif. None if the file is of
/// another kind or damaged, or if there is no such library. `device` is open and outlives the
/// decoder.
[[nodiscard]] std::unique_ptr<ImageDecoder> openHeifImage(QIODevice& device);

}  // namespace tarvin
