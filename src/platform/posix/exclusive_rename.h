#pragma once

namespace tarvin {

/// Renames `name` in an open folder to `newName` in another, or the same, if that is free: in one
/// step, so that nothing is ever replaced. Paths instead of names are allowed; relative ones begin
/// at the folder, or with AT_FDCWD at the current one. Returns 0 or the error number: EEXIST if the
/// new name exists, isUnsupportedRename() where the system or the file system has no such call. Any
/// thread.
[[nodiscard]] int renameExclusively(int from, const char* name, int to, const char* newName);

/// Whether the error number says that there is no such call here.
[[nodiscard]] bool isUnsupportedRename(int failure);

}  // namespace tarvin
