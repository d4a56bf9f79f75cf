#pragma once

#include "platform/result.h"

#include <string>

namespace tarvin {

/// The absolute path of what a person named, which need not exist: put behind the current folder if
/// it is relative, without "." parts, doubled slashes and a slash at its end. Symbolic links stay
/// as they are, unless the path has a ".." part, whose meaning depends on them: then all are
/// resolved, or, where that fails, the path is left as it is for whoever opens it to fail on.
/// Native bytes. Refused: the empty path, and a relative one when the current folder is gone.
Result<std::string> absolutePath(const std::string& path);

}  // namespace tarvin
