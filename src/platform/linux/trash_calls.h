#pragma once

#include "platform/file_system.h"

#include <cstddef>
#include <cstdint>

namespace tarvin {

/// The metadata of a file or folder.
struct TrashEntryStatus {
    FileIdentity identity;
    std::uint64_t mount = 0;  ///< mount ID, as in the mount table; 0 if unknown
    std::uint32_t owner = 0;
    std::uint32_t mode = 0;  ///< type and permissions, as in `st_mode`
};

/// The system calls of a move; tests override them to make each fail. Paths are relative to an open
/// folder or, with `currentFolder`, to the current one. Symbolic links in the last component are
/// not followed, except where stated. Each call returns 0 or the error number. Any thread.
class TrashCalls {
 public:
    static const int currentFolder;

    TrashCalls() = default;
    TrashCalls(const TrashCalls&) = delete;
    TrashCalls& operator=(const TrashCalls&) = delete;
    virtual ~TrashCalls() = default;

    /// `number` is the new descriptor.
    virtual int openFolder(int folder, const char* path, int& number);
    virtual int makeFolder(int folder, const char* path);
    /// Creates a file that must not exist, readable and writable by the user alone.
    virtual int createFile(int folder, const char* name, int& number);
    /// Opens a file for reading; does not wait for the other end of a pipe.
    virtual int openFile(int folder, const char* name, int& number);
    /// `count` is 0 at the end.
    virtual int read(int number, char* bytes, std::size_t size, std::size_t& count);
    /// `written` may be less than `size`.
    virtual int write(int number, const char* bytes, std::size_t size, std::size_t& written);
    virtual int close(int number);
    /// Fails with EEXIST if the new name exists.
    virtual int renameExclusively(int from, const char* name, int to, const char* newName);
    /// Replaces an entry with the new name.
    virtual int rename(int from, const char* name, int to, const char* newName);
    virtual int link(int from, const char* name, int to, const char* newName);
    virtual int unlink(int folder, const char* name);
    virtual int status(int folder, const char* path, TrashEntryStatus& status);
    /// Follows a symbolic link.
    virtual int targetStatus(int folder, const char* path, TrashEntryStatus& status);
    virtual int statusOf(int number, TrashEntryStatus& status);
    /// Flushes the file system of an open folder to disk.
    virtual int flush(int folder);
    /// The maximum length of a name in the file system of an open folder.
    virtual int maxNameLength(int folder, std::size_t& bytes);
};

/// The real calls; one object for the process.
[[nodiscard]] TrashCalls& systemTrashCalls();

}  // namespace tarvin
