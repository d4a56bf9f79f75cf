#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <optional>

namespace tarvin {

// What the program that makes previews is told and what it tells. It reads the path of one file,
// native bytes up to the end of its standard input. To its standard output it writes, as far as it
// comes, the size of the image in that file and then the picture of it: twice the width and the
// height as little-endian 32-bit numbers, and the pixels row by row as premultiplied ARGB. All
// pure; any thread.

/// No side of a picture is longer, in pixels.
inline constexpr int longestPreviewSide = 640;

[[nodiscard]] QByteArray encodedSize(QSize size);
/// `image` is not null and has no side that is too long.
[[nodiscard]] QByteArray encodedPicture(const QImage& image);

/// Puts together what the program writes. The program reads files of anybody's and is not believed
/// more than they are.
class PreviewReader final {
 public:
    /// Takes what was written next. False if the program would not write that: then nothing more
    /// is taken.
    [[nodiscard]] bool take(const QByteArray& bytes);

    /// The size of the image in the file; none as long as it is not known.
    [[nodiscard]] std::optional<QSize> size() const;
    /// The whole picture; null as long as a part of it is missing.
    [[nodiscard]] QImage picture() const;

 private:
    [[nodiscard]] std::optional<QSize> sizeAt(qsizetype offset) const;
    [[nodiscard]] bool isSound() const;

    QByteArray bytes_;
};

}  // namespace tarvin
