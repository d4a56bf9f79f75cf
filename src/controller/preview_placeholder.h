#pragma once

#include <QImage>

namespace tarvin {

/// What stands in place of a preview: a transparent image of 250 x 250 points with the text
/// "Double Click On FIle To Open" in black Helvetica of 18 points, whose lower left corner is 10
/// points from the left and 120 from the bottom. A translation that is longer is written smaller,
/// so that it fits. Sharp on a screen of that many pixels a point. Main thread.
[[nodiscard]] QImage previewPlaceholder(qreal pixelsPerPoint);

}  // namespace tarvin
