#pragma once

#include "platform/file_system.h"

namespace tarvin {

/// The system calls of a move to a free name; tests override them to make each fail. Paths are
/// relative to an open folder or, with AT_FDCWD, to the current one. Symbolic links in the last
/// component are not followed. Each call returns 0 or the error number. Any thread.
class MoveCalls {
 public:
    MoveCalls() = default;
    MoveCalls(const MoveCalls&) = delete;
    MoveCalls& operator=(const MoveCalls&) = delete;
    virtual ~MoveCalls() = default;

    /// Creates a file that must not exist, readable and writable by the user alone. `number` is the
    /// new descriptor.
    virtual int createFile(int folder, const char* name, int& number);
    virtual int close(int number);
    /// Fails with EEXIST if the new name exists.
    virtual int renameExclusively(int from, const char* name, int to, const char* newName);
    /// Replaces an entry with the new name.
    virtual int rename(int from, const char* name, int to, const char* newName);
    virtual int link(int from, const char* name, int to, const char* newName);
    virtual int unlink(int folder, const char* name);
    virtual int identityAt(int folder, const char* name, FileIdentity& identity);
};

/// Renames `name` in an open folder to `newName` in another, if that is free. Where the file system
/// has no exclusive rename, the file gets a second name and then loses the first; where it has no
/// hard links either (FAT), an empty file reserves the new name. Replaces nothing else. Returns 0
/// or the error number: EEXIST if the new name exists. Any thread.
[[nodiscard]] int moveExclusively(MoveCalls& calls, int from, const char* name, int to,
                                  const char* newName);

}  // namespace tarvin
