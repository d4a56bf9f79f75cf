#pragma once

namespace tarvin {

/// What a process may use that reads files of anybody's: memory so that it costs less than 256 MB
/// in all, with the libraries that it shares; 10 seconds of processor time; no files to write.
/// Beyond that, it fails to get memory or is ended by the system. It ends with the process that
/// started it. For the whole process; once, before there are threads.
void limitThisProcess();

/// What one image may take when it is decoded, in MB; the rest is the libraries' to work with.
inline constexpr int decodedImageLimit = 160;

}  // namespace tarvin
