#pragma once

#include <string>

namespace tarvin {

// Opening that is repeated if interrupted. Returns the descriptor, or a negative number with the
// reason in errno. Any thread.

/// `openat` with a relative or absolute path.
[[nodiscard]] int openAt(int directory, const char* path, int flags);

/// The same for an absolute path of any length. The kernel takes paths shorter than PATH_MAX;
/// longer ones are opened in steps, each relative to the folder of the step before.
[[nodiscard]] int openAnyLength(const std::string& path, int flags);

}  // namespace tarvin
