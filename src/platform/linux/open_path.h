#pragma once

#include <string>

namespace tarvin {

// Opening paths; each returns the descriptor, or a negative number with the reason in errno. An
// interrupted call is repeated. Any thread.

/// `openat` with a relative or absolute path.
[[nodiscard]] int openAt(int directory, const char* path, int flags);

/// Opens an absolute path of any length. The kernel takes paths shorter than PATH_MAX; longer ones
/// are opened in steps, each relative to the folder of the step before.
[[nodiscard]] int openAnyLength(const std::string& path, int flags);

}  // namespace tarvin
