#pragma once

#include "model/file.h"
#include "model/modal.h"
#include "platform/result.h"
#include "scan/unreadable.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {

/// What is known of a file that a list names.
enum class ListedState : std::uint8_t {
    usable,         ///< nothing against it so far
    notAbsolute,    ///< the path is relative, or has an empty, "." or ".." part or a zero byte
    inexact,        ///< the list gives two different paths
    repeated,       ///< the first of several entries with this path: it stays
    repetition,     ///< a later one of them, which is ignored
    unreadable,     ///< the file or its folder cannot be read: `error`
    isFolder,       ///< a folder
    isSpecial,      ///< a symbolic link, pipe, socket or device, or in a pseudo file system
    inTrash,        ///< in a Trash folder, whose files may be deleted at any time
    isOwn,          ///< a file of this program
    excluded,       ///< on the exceptions list: it stays
    locked,         ///< immutable: it stays
    unread,         ///< its bytes could not be read, as the result of the scan tells: it stays
    hasNoSurvivor,  ///< no file of its set that stays has the same bytes: it stays
    survivorUnread  ///< the same, and one that was to stay could not be read
};

/// One file of a list of sets, which may have been edited: the path is only a claim.
struct ListedFile {
    std::string path;       ///< native bytes
    std::uint32_t set = 0;  ///< the number of its set; ascending in a list
    bool keep = false;      ///< must not be moved
    ListedState state = ListedState::usable;
    SystemError error{};   ///< if unreadable
    File* file = nullptr;  ///< set when it has been found; of the store of the scan
};

using ListedFiles = std::vector<ListedFile>;

/// Applies the rules that need no file access: in a set without `keep` the first file stays; paths
/// must be absolute and without "." and ".."; and of entries with the same path none is moved,
/// while an entry with another fault keeps that. Call once, before a scan. Any thread.
void checkListedFiles(ListedFiles& files);

/// The result tree of a list: each listed set is split by contents, and of each part that has a
/// file to keep and others, the others are marked. `found` is the result of the scan of the files,
/// and `unread` what that could not read. Files that should be moved but are in no such part become
/// `unread`, `survivorUnread` or `hasNoSurvivor`. Requires that nothing else uses the files.
[[nodiscard]] std::shared_ptr<Modal> markListedFiles(ListedFiles& files, const Modal& found,
                                                     const UnreadableReport& unread);

}  // namespace tarvin
