#pragma once

#include "platform/file_system.h"
#include "platform/open_folder.h"
#include "platform/result.h"
#include "platform/timestamp.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tarvin {

/// Where a file is in a Trash.
struct TrashPlace {
    std::string trash;  ///< absolute path of the Trash folder, the one with "files" and "info"
    std::string name;   ///< in its "files"; not a path

    bool operator==(const TrashPlace&) const = default;
};

enum class TrashRefusalKind : std::uint8_t {
    system,       ///< the system refused; `error` says why
    gone,         ///< the file is not there (any more)
    taken,        ///< put back: something else has the name now
    otherVolume,  ///< no rename leads there; nothing is ever copied
    noHome,       ///< the user has no home folder, so nobody can say which Trash is the right one
    noVolume,     ///< the mount of the file is unknown, or hidden behind another
    link,         ///< a symbolic link stands where a folder of the Trash should be
    notFolder,    ///< something else stands there
    notOurs,      ///< the Trash belongs to another user
    notPrivate,   ///< other users may change the Trash
    noName        ///< no free name was found in the Trash
};

/// Why something was not moved, not put back or not looked at.
struct TrashRefusal {
    TrashRefusalKind kind = TrashRefusalKind::system;
    SystemError error;  ///< of the system's call, else the one that comes nearest to `kind`
    /// The reason as a person reads it, without the name of the file: the system's words, or ours
    /// in English.
    std::string text;
};

/// A file that was looked for and is in a Trash.
struct TrashedFile {
    std::string name;  ///< in "files"
    FileAttributes attributes;
};

/// Whose files are moved.
struct TrashUser {
    /// Absolute path of the Trash in the home folder, whether or not it exists; none if there is no
    /// home.
    std::optional<std::string> homeTrash;
    std::uint32_t number = 0;  ///< the user's number in the system
};

/// That of this process: $XDG_DATA_HOME/Trash, and ".local/share/Trash" of the home folder where
/// the variable is missing, empty or not absolute. Any thread.
[[nodiscard]] TrashUser processTrashUser();

/// Moves files to the user's Trash and back, by the freedesktop.org Trash specification 1.0: within
/// one file system, by renaming, each with a note of where it was and when. Copies nothing, follows
/// no link at the end of a path, replaces and deletes no file, and does not use a Trash that is
/// another user's or that others may change.
///
/// A file of the file system that holds the home Trash goes there; any other goes to ".Trash/USER"
/// or ".Trash-USER" in the top folder of its mount. What is missing of a Trash is made, for the
/// user alone. The folders are kept open, which keeps a volume from being unmounted while the
/// object lives, and are looked at again once a second: a Trash that was replaced meanwhile is
/// opened anew.
///
/// Any thread; one object is used by one thread at a time. Several objects, and other programs, may
/// use the same Trash at the same time.
class TrashMover {
 public:
    virtual ~TrashMover() = default;

    /// Moves the entry `name` of an open folder to the Trash. The note tells the folder's path and
    /// is complete before the file is moved. On a refusal the file is where it was, and there is no
    /// note unless the system refuses to take it away again. Meant for plain files: of a folder no
    /// size is noted in "directorysizes".
    ///
    /// Whether it is still the file that is meant, the caller looks before and after (`look`).
    virtual Result<TrashPlace, TrashRefusal> move(const OpenFolder& folder, const char* name) = 0;

    /// What is at a place of a Trash now. Like every call below, it opens a Trash that is not open
    /// yet, by its path and with the same checks, and makes nothing.
    virtual Result<FileAttributes, TrashRefusal> look(const TrashPlace& place) = 0;

    /// Renames the file at `place` to `name` in an open folder, where nothing may have that name
    /// (`taken`), and then takes its note away. On a refusal both are where they were. A note that
    /// cannot be taken away is left and not told: the file is back.
    virtual std::optional<TrashRefusal> putBack(const TrashPlace& place, const Descriptor& folder,
                                                const char* name) = 0;

    /// Those of the `wanted` files that are in a Trash, under whatever name, in the order of its
    /// listing. Reads "files" once, with one look at each entry. A file with two names in there is
    /// told once for each.
    virtual Result<std::vector<TrashedFile>, TrashRefusal> find(
        const std::string& trash, std::span<const FileIdentity> wanted) = 0;

    /// Writes the note of a file in a Trash, which was at `path` until `moved`, if it has none or,
    /// as after a power failure, not a whole one.
    virtual std::optional<TrashRefusal> mendNote(const TrashPlace& place, const std::string& path,
                                                 Timestamp moved) = 0;

    /// Takes the notes away that have no file, of those that tell one of `paths`, or nothing yet
    /// under a name that one of these files can get. Meant for what a process has left that was
    /// killed before it could move the file; nobody may be moving these files.
    virtual std::optional<TrashRefusal> removeUnusedNotes(
        const std::string& trash, const std::vector<std::string>& paths) = 0;

    /// On return a power failure takes neither what this object has moved or put back nor notes of
    /// it. The first failure since the last call. Waits for all that was written to the file
    /// systems of these Trashes.
    [[nodiscard]] virtual std::optional<TrashRefusal> flush() = 0;

    /// The Trash folders that a file at this path can have been moved to, whatever was mounted at
    /// that time and whether or not they exist, the likeliest first. Asks no file system.
    [[nodiscard]] virtual std::vector<std::string> trashesFor(const std::string& path) const = 0;
};

[[nodiscard]] std::unique_ptr<TrashMover> makeTrashMover(TrashUser user = processTrashUser());

}  // namespace tarvin
