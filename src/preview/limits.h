#pragma once

#include <QSize>

namespace tarvin {

// Images of up to 45 megapixels, as of today's larger cameras, should have a preview. Decoded with
// four channels of 16 bits they take 360 MB, as a progressive JPEG without chroma subsampling 270
// MB before the first pixel. With the libraries and the preview that is less than 512 MB.

/// Limits this process, which reads untrusted files: less than 512 MB of memory with shared
/// libraries, 10 seconds of CPU time, `seconds` of elapsed time, no writing to files. Beyond that,
/// allocations fail or the system kills it. It ends with its parent. For the whole process. Call at
/// most once, before threads are started.
void limitThisProcess(unsigned seconds);

/// Maximum memory of one decoded image in MiB; the rest is for the libraries.
inline constexpr int decodedImageLimit = 384;

/// Whether an image of this untrusted size is within that limit. Pure.
[[nodiscard]] bool mayBeDecoded(QSize size, qsizetype bytesPerPixel);

}  // namespace tarvin
