#pragma once

#include "platform/file_system.h"
#include "platform/open_folder.h"
#include "platform/result.h"
#include "platform/timestamp.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tarvin {

/// The location of a file in a Trash.
struct TrashPlace {
    std::string
        trash;         ///< absolute path of the Trash folder; on Linux that with "files" and "info"
    std::string name;  ///< in its TrashMover::filesFolder(); not a path

    bool operator==(const TrashPlace&) const = default;
};

enum class TrashRefusalKind : std::uint8_t {
    system,       ///< the system refused; `error` says why
    gone,         ///< the file does not exist (any more)
    taken,        ///< putBack() only: the name is in use
    otherVolume,  ///< the Trash is on another file system; nothing is ever copied
    noHome,       ///< the user has no home folder, so the right Trash is unknown
    noVolume,     ///< the mount of the file is unknown, or hidden by another
    link,         ///< a folder of the Trash is a symbolic link
    notFolder,    ///< a folder of the Trash is another kind of entry
    notOurs,      ///< the Trash belongs to another user
    notPrivate,   ///< other users may change the Trash
    noName        ///< no free name was found in the Trash
};

/// Why a file was not moved, not restored or not found.
struct TrashRefusal {
    TrashRefusalKind kind = TrashRefusalKind::system;
    SystemError error;  ///< of the system call, else the code closest to `kind`
    /// The reason for the user, without the name of the file: the system's message, or an English
    /// one.
    std::string text;
};

/// A file found in a Trash.
struct TrashedFile {
    std::string name;  ///< in TrashMover::filesFolder()
    FileAttributes attributes;
};

/// A file found in a Trash by the path in its .trashinfo file.
struct TrashedFrom {
    std::size_t path = 0;  ///< the number of the path in the request
    TrashedFile file;
};

/// The user whose files are moved.
struct TrashUser {
    /// Absolute path of the home Trash, which need not exist; nullopt without a home folder.
    std::optional<std::string> homeTrash;
    std::uint32_t number = 0;  ///< user ID
};

/// The user of this process. On Linux the home Trash is $XDG_DATA_HOME/Trash, or
/// ~/.local/share/Trash if the variable is missing, empty or not absolute; on macOS ~/.Trash. Any
/// thread.
[[nodiscard]] TrashUser processTrashUser();

/// Moves files to the user's Trash and back. Replaces and deletes no file, and does not follow a
/// symbolic link in the last component.
///
/// On Linux by the freedesktop.org Trash specification 1.0: by renaming within one file system,
/// each with a .trashinfo file that holds its path and the time. Copies nothing, and does not use a
/// Trash that belongs to another user or that others may change. A file on the file system of the
/// home Trash goes there; any other goes to ".Trash/UID" or
/// ".Trash-UID" in the top directory of its mount. Missing folders of a Trash are created for the
/// user alone. The folders stay open, which prevents unmounting during the object's lifetime, and
/// are checked once a second: a Trash that was replaced is reopened.
///
/// On macOS by the system (`NSFileManager`), which chooses the Trash and the name. There are no
/// .trashinfo files, and the calls for them do nothing.
///
/// Any thread; one object is used by one thread at a time. Several objects, and other programs, may
/// use the same Trash at the same time.
class TrashMover {
 public:
    virtual ~TrashMover() = default;

    /// Moves the entry `name` of an open folder to the Trash. The .trashinfo file is complete
    /// before the file is moved. On a refusal the file is where it was, and the .trashinfo file is
    /// removed unless the system refuses that. Meant for plain files: "directorysizes" is not
    /// updated.
    ///
    /// The caller checks before and after (`attributes`) that it is the intended file.
    virtual Result<TrashPlace, TrashRefusal> move(const OpenFolder& folder, const char* name) = 0;

    /// The metadata of a file in a Trash. Like every call below, it opens a Trash that is not open
    /// yet, by its path and with the same checks, and creates nothing.
    virtual Result<FileAttributes, TrashRefusal> attributes(const TrashPlace& place) = 0;

    /// Whether the file at `place` has a .trashinfo file that says that it was at `path`.
    virtual bool wasAt(const TrashPlace& /*place*/, const std::string& /*path*/) { return false; }

    /// Renames the file at `place` to `name` in an open folder, where the name must be free
    /// (`taken`), and then removes its .trashinfo file. On a refusal both are where they were. A
    /// .trashinfo file that cannot be removed is ignored: the file is restored.
    virtual std::optional<TrashRefusal> putBack(const TrashPlace& place, const Descriptor& folder,
                                                const char* name) = 0;

    /// The folder that holds the files of a Trash: "files" in it, or on macOS the Trash itself.
    /// Pure.
    [[nodiscard]] virtual std::string filesFolder(const std::string& trash) const = 0;

    /// Those of the `wanted` files that are in a Trash, under any name, in the order of its
    /// listing. Lists filesFolder() once and stats each entry. A file with two names there is
    /// returned twice.
    virtual Result<std::vector<TrashedFile>, TrashRefusal> find(
        const std::string& trash, std::span<const FileIdentity> wanted) = 0;

    /// The files in a Trash whose .trashinfo files hold one of `paths`, in the order of the listing
    /// of "info": for volumes whose files have other identities now. Reads every .trashinfo file.
    virtual Result<std::vector<TrashedFrom>, TrashRefusal> findByPath(
        const std::string& /*trash*/, std::span<const std::string> /*paths*/) {
        return std::vector<TrashedFrom>();
    }

    /// Writes the .trashinfo file of a file in a Trash, which was at `path` until `moved`, if it is
    /// missing or, as after a power failure, incomplete.
    virtual std::optional<TrashRefusal> repairTrashInfo(const TrashPlace& place,
                                                        const std::string& path,
                                                        Timestamp moved) = 0;

    /// Removes .trashinfo files without a file that hold one of `paths`, or that are empty and have
    /// a name that one of these files can get. For those left by a process that was killed before
    /// it moved the file; no process may be moving these files.
    virtual std::optional<TrashRefusal> removeUnusedTrashInfos(
        const std::string& trash, const std::vector<std::string>& paths) = 0;

    /// Flushes the file systems of the used Trashes to disk (`syncfs`): on return a power failure
    /// does not undo this object's moves and .trashinfo files. Blocks until all data written to
    /// these file systems is on disk. Returns the first failure since the last call.
    [[nodiscard]] virtual std::optional<TrashRefusal> flush() = 0;

    /// The Trash folders that a file at this path can have been moved to, with any mounts at that
    /// time, also missing ones, the likeliest first. Makes no system calls.
    [[nodiscard]] virtual std::vector<std::string> trashesFor(const std::string& path) const = 0;
};

[[nodiscard]] std::unique_ptr<TrashMover> makeTrashMover(TrashUser user = processTrashUser());

}  // namespace tarvin
