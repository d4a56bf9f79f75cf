#pragma once

#include <QSize>

namespace tarvin {

// The largest picture that shall have a preview is one of 45 megapixels, as the larger cameras of
// today make them: with four channels of 16 bits it takes 360 MB when it is decoded, and as a
// progressive JPEG without coarser colours 270 MB before its first pixel is known. With the
// libraries and a smaller picture beside it, that is less than 512 MB.

/// What a process may use that reads files of anybody's: memory so that it costs less than 512 MB
/// in all, with the libraries that it shares; 10 seconds, whether it works or waits; no files to
/// write. Beyond that, it fails to get memory or is ended by the system. It ends with the process
/// that started it. For the whole process; once, before there are threads.
void limitThisProcess();

/// What one image may take when it is decoded, in units of 1024 * 1024 bytes; the rest is the
/// libraries' to work with.
inline constexpr int decodedImageLimit = 384;

/// Whether an image of that size is within that limit. The size comes from a file: nothing is sure.
[[nodiscard]] bool mayBeDecoded(QSize size, qsizetype bytesPerPixel);

}  // namespace tarvin
