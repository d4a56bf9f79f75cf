#pragma once

#include "platform/file_system.h"
#include "platform/posix/exclusive_move.h"

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

/// The system calls of a move and of .trashinfo files; tests override them to make each fail. Paths
/// are relative to an open folder or, with `currentFolder`, to the current one. Symbolic links in
/// the last component are not followed, except where stated. Each call returns 0 or the error
/// number. Any thread.
class TrashCalls : public MoveCalls {
 public:
    static const int currentFolder;

    /// `number` is the new descriptor.
    virtual int openFolder(int folder, const char* path, int& number);
    virtual int makeFolder(int folder, const char* path);
    /// Opens a file for reading; does not wait for the other end of a pipe.
    virtual int openFile(int folder, const char* name, int& number);
    /// `count` is 0 at the end.
    virtual int read(int number, char* bytes, std::size_t size, std::size_t& count);
    /// `written` may be less than `size`.
    virtual int write(int number, const char* bytes, std::size_t size, std::size_t& written);
    /// By status().
    int identityAt(int folder, const char* name, FileIdentity& identity) override;
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
