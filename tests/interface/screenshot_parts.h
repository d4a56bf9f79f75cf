#pragma once

#include <QImage>
#include <string>

class QWidget;

namespace tarvin {

/// Maximum difference of a colour channel between two paintings of the same letter.
inline constexpr int textTolerance = 40;

/// The number of pixels in `area` of which a channel differs by more than `tolerance`.
[[nodiscard]] int countDifferent(const QImage& image, const QImage& expected, const QRect& area,
                                 int tolerance);

/// Returns the names, separated by commas, of the controls of `window` and of the icons in the rows
/// of its lists that differ between two screenshots of it. Icons are compared tightly, texts by the
/// share of their ink that has changed. Both images have the device pixel ratio of `image`.
[[nodiscard]] std::string changedParts(const QWidget& window, const QImage& image,
                                       const QImage& expected);

}  // namespace tarvin
