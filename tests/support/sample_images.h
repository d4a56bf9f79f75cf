#pragma once

#include <string>

namespace tarvin {

/// Returns the path of an image in a format that tests cannot write: wide.heic, deep.heic (10 bits
/// a channel), wide.avif, wide.jp2 and wide.j2k have 96 by 48 pixels, the left half red and the
/// right half blue; wide.heic also has a thumbnail. turned.heic has a rotation by 90 degrees
/// clockwise. Made with the encoders of libheif 1.15 and OpenJPEG 2.5.
[[nodiscard]] std::string sampleImage(const std::string& name);

}  // namespace tarvin
