#pragma once

#include <string>

namespace tarvin {

/// Renames `from` to `to`, both paths of one file system, unless something stands at `to`. Returns
/// 0 or the error number: EEXIST if something stands there, ENOSYS or EINVAL where the system or
/// the file system cannot look and rename in one step. On any thread.
[[nodiscard]] int renameExclusively(const std::string& from, const std::string& to);

}  // namespace tarvin
