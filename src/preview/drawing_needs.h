#pragma once

class QByteArray;

namespace tarvin {

/// Loads what rendering an SVG may need, before the process can open no more files: all image
/// plug-ins, for embedded images, and the fonts of its texts. `drawing` is the content of the SVG
/// file; for a compressed one only the default fonts are loaded. Text in other fonts is rendered in
/// a fallback font or not at all. Main thread, requires a QGuiApplication.
void loadDrawingNeeds(const QByteArray& drawing);

}  // namespace tarvin
