#pragma once

#include "clean/return_folders.h"
#include "platform/file_system.h"
#include "platform/result.h"
#include "platform/trash_move.h"
#include "platform/unsteady_volumes.h"
#include "store/clean_up_journal.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvin {

/// How a file was, or would be, put back; or why not.
enum class PutBackOutcome : std::uint8_t {
    toItsPlace,
    underOtherName,  ///< its name is taken
    withItsFolder,   ///< its missing folder is created
    lost,            ///< no longer in the Trash
    changed,         ///< the file in the Trash has changed, or is another one
    notAttached,     ///< its drive is not mounted
    refused,         ///< see PutBackFile::reason
    stopped          ///< stopped before this file
};

/// Whether the file is, or would be, put back.
[[nodiscard]] constexpr bool isBack(PutBackOutcome outcome) {
    return outcome <= PutBackOutcome::withItsFolder;
}

/// Returns the word for an outcome in JSON: "toItsPlace" and so on.
[[nodiscard]] std::string_view putBackWord(PutBackOutcome outcome);

/// The cause of a refusal, for callers that translate it.
enum class PutBackRefusal : std::uint8_t {
    system,    ///< a system error
    trash,     ///< the Trash; see PutBackFile::trash
    link,      ///< its folder is now behind a symlink
    notFolder  ///< the path of its folder is now a file
};

/// A file of a clean-up and its outcome, actual or expected.
struct PutBackFile {
    MoveRow row = 0;
    std::string path;        ///< original path; absolute, native bytes
    std::uint64_t size = 0;  ///< bytes
    PutBackOutcome outcome = PutBackOutcome::toItsPlace;
    std::string name;   ///< its name after being put back
    SystemError error;  ///< refused: of the failed call, otherwise the closest one
    /// Refused: the message of the system or our own in English; otherwise empty.
    std::string reason;
    PutBackRefusal refusal = PutBackRefusal::system;
    TrashRefusalKind trash = TrashRefusalKind::system;  ///< if `refusal` is trash
};

/// Returns the name for try `number`, from 1, of a file whose own name is taken: "a (put
/// back).jpg", then "a (put back 2).jpg". At most `maxBytes` bytes.
[[nodiscard]] std::string putBackName(std::string_view name, std::uint64_t number,
                                      std::size_t maxBytes);

/// Puts single files back from the Trash to the folders that a clean-up moved them from. Puts back
/// only the file that was moved; replaces nothing, follows no symlinks, copies nothing, and deletes
/// nothing but folders that it created in vain. Files that cannot be put back stay in the Trash.
/// Uses the path, identity and Trash place of a JournalMove. On an unsteady volume the file is
/// known by its size and by the path in its .trashinfo file. One thread.
class FileReturn final {
 public:
    /// Both must outlive this object.
    FileReturn(FileSystem& fileSystem, TrashMover& trash)
        : fileSystem_(fileSystem), trash_(trash), folders_(fileSystem) {}
    FileReturn(const FileReturn&) = delete;
    FileReturn& operator=(const FileReturn&) = delete;

    /// Returns what putBack() would do now. Changes nothing.
    [[nodiscard]] PutBackFile check(const JournalMove& move);

    [[nodiscard]] PutBackFile putBack(const JournalMove& move);

    /// Whether the file has been put back without a record in the journal: by another program, or
    /// by a process that ended too early. Checks the names that it could have, up to the first free
    /// one.
    [[nodiscard]] bool isBackAlready(const JournalMove& move);

    /// Fills in the data of the journal; accesses no file.
    [[nodiscard]] static PutBackFile fileOf(const JournalMove& move);

 private:
    [[nodiscard]] PutBackFile checkInTrash(const JournalMove& move);
    [[nodiscard]] bool isMovedFile(const JournalMove& move, const FileAttributes& there);
    void putBackInto(const OpenFolder& folder, const JournalMove& move, PutBackFile& file);
    void checkDestination(const std::string& folder, PutBackFile& file);
    [[nodiscard]] bool isAttached(const std::string& trash);

    FileSystem& fileSystem_;
    TrashMover& trash_;
    ReturnFolders folders_;
    UnsteadyVolumes unsteadyVolumes_;
};

}  // namespace tarvin
