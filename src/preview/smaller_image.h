#pragma once

#include <QImage>
#include <QImageIOHandler>
#include <QSize>

namespace tarvin {

// All pure; any thread.

/// `size` in its proportions, with the longer side as long as that. A line of one pixel keeps that
/// pixel.
[[nodiscard]] QSize fitted(QSize size, int longestSide);
[[nodiscard]] bool fits(QSize size, int longestSide);

/// `image` made smaller to `size`, which is not empty, or null if there is no memory for that.
/// Takes little memory beside both: a large image is never copied whole.
[[nodiscard]] QImage smaller(const QImage& image, QSize size);

/// `image` turned and mirrored as its file says.
[[nodiscard]] QImage turned(const QImage& image, QImageIOHandler::Transformations transformations);

}  // namespace tarvin
