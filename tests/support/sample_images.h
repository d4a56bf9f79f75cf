#pragma once

#include <string>

namespace tarvin {

/// The path of an image in a format that takes more than a few lines to be made: wide.heic,
/// wide.avif, wide.jp2 and wide.j2k have 96 by 48 pixels, their left half red and the other blue;
/// wide.heic holds a smaller one, too. turned.heic is turned to the right by its own mark. Made
/// with the encoders of libheif 1.15 and OpenJPEG 2.5.
[[nodiscard]] std::string sampleImage(const std::string& name);

}  // namespace tarvin
