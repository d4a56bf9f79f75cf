#pragma once

#include <QImage>
#include <QImageIOHandler>
#include <QSize>

namespace tarvin {

// Pure.

/// `size` scaled so that its longer side is `longerSide`; no side is shorter than one pixel.
[[nodiscard]] QSize fitted(QSize size, int longerSide);
[[nodiscard]] bool fits(QSize size, int maxSide);

/// `image` scaled down to `size`, which must not be empty; null if memory runs out. Needs little
/// memory besides both images: works in bands.
[[nodiscard]] QImage smaller(const QImage& image, QSize size);

/// `image` rotated and mirrored.
[[nodiscard]] QImage turned(const QImage& image, QImageIOHandler::Transformations transformations);

}  // namespace tarvin
