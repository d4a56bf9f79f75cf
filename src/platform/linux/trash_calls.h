#pragma once

#include "platform/file_system.h"

#include <cstddef>
#include <cstdint>

namespace tarvin {

/// What the system says of a file or folder.
struct TrashEntryStatus {
    FileIdentity identity;
    std::uint64_t mount = 0;  ///< number of its mount, as in the mount table; 0 if unknown
    std::uint32_t owner = 0;
    std::uint32_t mode = 0;  ///< type and rights, as in `st_mode`
};

/// The calls of the system that a move consists of, so that tests can make each of them fail. These
/// are the real ones; all are relative to an open folder or, with `currentFolder`, to the current
/// one, and none follows a link at the end of a path unless it says so. Each answers 0 or the error
/// number. Any thread.
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
    /// Makes a file that was not there, for writing by the user alone.
    virtual int createFile(int folder, const char* name, int& number);
    /// Opens a file for reading; never waits for a pipe.
    virtual int openFile(int folder, const char* name, int& number);
    /// `count` is 0 at the end.
    virtual int read(int number, char* bytes, std::size_t size, std::size_t& count);
    /// `written` may be less than `size`.
    virtual int write(int number, const char* bytes, std::size_t size, std::size_t& written);
    virtual int close(int number);
    /// Fails with EEXIST where something has the new name.
    virtual int renameExclusively(int from, const char* name, int to, const char* newName);
    /// Replaces what has the new name.
    virtual int rename(int from, const char* name, int to, const char* newName);
    virtual int link(int from, const char* name, int to, const char* newName);
    virtual int unlink(int folder, const char* name);
    virtual int status(int folder, const char* path, TrashEntryStatus& status);
    /// Of what a link leads to.
    virtual int targetStatus(int folder, const char* path, TrashEntryStatus& status);
    virtual int statusOf(int number, TrashEntryStatus& status);
    /// Brings all that was written to the file system of an open folder to its device.
    virtual int flush(int folder);
    /// Bytes that a name may have in the file system of an open folder.
    virtual int longestName(int folder, std::size_t& bytes);
};

/// The calls of the machine; one object for the process.
[[nodiscard]] TrashCalls& systemTrashCalls();

}  // namespace tarvin
