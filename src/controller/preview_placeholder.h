#pragma once

#include <QImage>

namespace tarvin {

/// Returns the image shown instead of a preview: transparent, 250 x 250 points, with the text
/// "Double Click On FIle To Open" in black Helvetica of 18 points, whose lower left corner is 10
/// points from the left and 120 from the bottom. A longer translation uses a smaller font.
/// `pixelsPerPoint` is the device pixel ratio. Main thread only.
[[nodiscard]] QImage previewPlaceholder(qreal pixelsPerPoint);

}  // namespace tarvin
