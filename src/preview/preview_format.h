#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <optional>

namespace tarvin {

// The protocol of the preview program. Its argument is the limit of elapsed time in seconds, by
// default 10. Its standard input is the path of one file, in native bytes.
// To standard output it writes, as far as it gets, the size of the image and then the preview: each
// begins with width and height as little-endian 32-bit numbers; the preview's pixels follow row by
// row as premultiplied ARGB. Pure, unless stated otherwise.

/// Maximum side of a preview in pixels.
inline constexpr int maxPreviewSide = 640;

[[nodiscard]] QByteArray encodedSize(QSize size);
/// Requires that `image` is not null and no side is longer than `maxPreviewSide`.
[[nodiscard]] QByteArray encodedPicture(const QImage& image);

/// Parses the program's output. The program reads untrusted files, so its output is untrusted, too.
/// One thread at a time.
class PreviewReader final {
 public:
    /// Appends output. Returns false if it is invalid; later calls then fail, too.
    [[nodiscard]] bool take(const QByteArray& bytes);

    /// The size of the image in the file; nullopt until it is known.
    [[nodiscard]] std::optional<QSize> size() const;
    /// The preview; null until it is complete.
    [[nodiscard]] QImage picture() const;

 private:
    [[nodiscard]] std::optional<QSize> sizeAt(qsizetype offset) const;
    [[nodiscard]] bool isSound() const;

    QByteArray bytes_;
};

}  // namespace tarvin
