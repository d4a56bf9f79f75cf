#pragma once

#include <string>

namespace tarvin {

/// Renames `from` to `to`, both on one file system, unless `to` exists. Returns 0 or the error
/// number: EEXIST if `to` exists, ENOSYS or EINVAL if the system or the file system cannot check
/// and rename in one step. Any thread.
[[nodiscard]] int renameExclusively(const std::string& from, const std::string& to);

}  // namespace tarvin
