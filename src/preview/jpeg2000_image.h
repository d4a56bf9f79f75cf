#pragma once

#include "preview/image_decoder.h"

#include <memory>

class QIODevice;

namespace tarvin {

/// The decoder of a JPEG 2000 file, with the system's OpenJPEG. Null if the file has another format
/// or is damaged, or if the library is not installed. `device` must be open and outlive the
/// decoder.
[[nodiscard]] std::unique_ptr<ImageDecoder> openJpeg2000Image(QIODevice& device);

}  // namespace tarvin
