#pragma once

#include <QImage>

struct opj_image;  // NOLINT(readability-identifier-naming): the library's name

namespace tarvin {

/// Converts the components of a decoded JPEG 2000 image: gray, RGB, YCC or CMYK, with or without
/// alpha. Has the size of the first component. Null if a component was not decoded. Ignores colour
/// profiles. Pure.
[[nodiscard]] QImage jpeg2000Pixels(const opj_image& image);

}  // namespace tarvin
