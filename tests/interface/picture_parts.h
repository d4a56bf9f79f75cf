#pragma once

#include <QImage>
#include <string>

class QWidget;

namespace tarvin {

/// Largest difference of a colour channel between two paintings of the same letter.
inline constexpr int textTolerance = 40;

/// The number of pixels in `area` of which a channel differs by more than `tolerance`.
[[nodiscard]] int countDifferent(const QImage& image, const QImage& expected, const QRect& area,
                                 int tolerance);

/// The object names, joined by commas, of the controls of `window`, and the icons in the rows of
/// its lists, that look different in a picture of it. Icons are compared tightly, controls with
/// texts by the amount of ink that has changed. Both images have the device pixel ratio of `image`.
[[nodiscard]] std::string changedParts(const QWidget& window, const QImage& image,
                                       const QImage& expected);

}  // namespace tarvin
