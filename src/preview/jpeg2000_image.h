#pragma once

#include "preview/image_decoder.h"

#include <memory>

class QIODevice;

namespace tarvin {

/// The decoder of a JPEG 2000 file, by the system's OpenJPEG. None if the file is of another kind
/// or damaged, or if there is no such library. `device` is open and outlives the decoder.
[[nodiscard]] std::unique_ptr<ImageDecoder> openJpeg2000Image(QIODevice& device);

}  // namespace tarvin
