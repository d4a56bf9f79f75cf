#pragma once

#include "platform/result.h"
#include "platform/unique_fd.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarvin {

/// The system calls of an AtomicFile, so that tests can record their order and make each fail. The
/// methods return 0 or the error number. Any thread.
class FileCalls {
 public:
    FileCalls() = default;
    FileCalls(const FileCalls&) = delete;
    FileCalls& operator=(const FileCalls&) = delete;
    virtual ~FileCalls() = default;

    /// Opens or creates a file for writing. `flags` are those of `open` besides O_WRONLY, O_CREAT
    /// and O_CLOEXEC. A new file may be read and written by everybody, before the umask is applied.
    virtual int createFile(const char* path, int flags, UniqueFd& file);
    virtual int openFolder(const char* path, UniqueFd& folder);
    /// May write a part; `written` is its size in bytes.
    virtual int write(int descriptor, std::string_view bytes, std::size_t& written);
    virtual int sync(int descriptor);
    virtual int rename(const char* from, const char* to);
};

/// The calls of the machine; one object for the process.
[[nodiscard]] FileCalls& systemFileCalls();

/// A file that is written under a temporary name and replaces its target atomically: after a crash
/// at any instant there is the old file or the new one, whole. One thread at a time, except
/// removeTemporary().
class AtomicFile final {
 public:
    /// What to do with a file that already has the temporary name.
    enum class Leftover {
        /// The caller's lock makes sure that no other process writes it. What cannot be overwritten
        /// is removed, so that the next attempt succeeds.
        overwrite,
        refuse  ///< fail with EEXIST
    };

    /// Creates the temporary file, which must be in the folder of `target`. A symbolic link at
    /// `temporary` is not followed: fails with ELOOP or EEXIST. `calls` must outlive the object.
    static Result<std::unique_ptr<AtomicFile>> create(std::string target, std::string temporary,
                                                      Leftover leftover,
                                                      FileCalls& calls = systemFileCalls());

    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    /// Removes the temporary file, unless commit() succeeded or keepTemporary() was called.
    ~AtomicFile();

    /// For writing; until commit().
    [[nodiscard]] int descriptor() const { return file_.number(); }
    [[nodiscard]] std::optional<SystemError> write(std::string_view bytes);

    /// Gives the new file the permissions of the target, if there is one. Ignores failures: some
    /// file systems have no permissions.
    void copyPermissions() const;

    /// Flushes the file to disk, renames it to its target and flushes the folder. On failure the
    /// target is as it was. Call at most once.
    [[nodiscard]] std::optional<SystemError> commit();

    /// From now on the temporary file stays, also after a failed commit(). Returns its path.
    const std::string& keepTemporary();

    /// Removes the temporary file, for a program that is about to end. Any thread.
    void removeTemporary() const;

 private:
    AtomicFile(UniqueFd file, std::string target, std::string temporary, FileCalls& calls);

    UniqueFd file_;
    const std::string target_;
    const std::string temporary_;
    FileCalls& calls_;
    bool keeps_ = false;
};

/// Flushes the folder of `path` to disk, so that a new name in it survives a power failure. Ignores
/// failures: some file systems cannot do it, and the file itself is already on disk.
void syncFolderOf(const std::string& path, FileCalls& calls = systemFileCalls());

}  // namespace tarvin
