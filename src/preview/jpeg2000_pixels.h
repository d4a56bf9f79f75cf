#pragma once

#include <QImage>

struct opj_image;  // NOLINT(readability-identifier-naming): the library's name

namespace tarvin {

/// The picture that the components of a decoded JPEG 2000 image make: gray or in colours, with or
/// without transparency, as light, as luminance and differences or as inks. As large as the first
/// component. Null if a component was not decoded. Profiles of colours are not looked at. Pure; any
/// thread.
[[nodiscard]] QImage jpeg2000Pixels(const opj_image& image);

}  // namespace tarvin
