#pragma once

class QByteArray;

namespace tarvin {

/// Loads what a drawing may need when it is drawn: every plug-in for images, as it can hold some,
/// and the fonts of its texts. `drawing` is an SVG file; of one that is compressed, only the usual
/// fonts. What is missed by this is drawn in another font, or not at all, where no file can be
/// opened any more. Main thread, with an application.
void loadDrawingNeeds(const QByteArray& drawing);

}  // namespace tarvin
