#pragma once

#include "clean/return_folders.h"
#include "platform/file_system.h"
#include "platform/result.h"
#include "platform/trash_move.h"
#include "store/clean_up_journal.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvin {

/// How a file comes back from the Trash, or why it does not.
enum class PutBackOutcome : std::uint8_t {
    toItsPlace,
    underOtherName,  ///< something else has its name now
    withItsFolder,   ///< the folder is not there any more and is made again
    lost,            ///< it is not in the Trash any more
    changed,         ///< the file in the Trash was written to, or is another one
    notAttached,     ///< the drive that it is on is not there
    refused,         ///< the system does not allow it
    stopped          ///< a stop came first
};

/// Whether the file comes back, or came.
[[nodiscard]] constexpr bool isBack(PutBackOutcome outcome) {
    return outcome <= PutBackOutcome::withItsFolder;
}

/// The word for an outcome in JSON: "toItsPlace" and so on.
[[nodiscard]] std::string_view putBackWord(PutBackOutcome outcome);

/// What a refusal is about, for whoever puts it in other words.
enum class PutBackRefusal : std::uint8_t {
    system,    ///< the system's reason
    trash,     ///< the Trash, as its kind says
    link,      ///< the folder, which is behind a link now
    notFolder  ///< something else that is where the folder was
};

/// A file of a clean-up that is to come back, or has, or has not.
struct PutBackFile {
    MoveRow row = 0;
    std::string path;        ///< where it was; absolute, native bytes
    std::uint64_t size = 0;  ///< bytes
    PutBackOutcome outcome = PutBackOutcome::toItsPlace;
    std::string name;   ///< that it gets, or got, in its folder
    SystemError error;  ///< refused: of the system's call, else the one that comes nearest
    /// Refused: why, in the system's words or in ours in English; empty for other outcomes.
    std::string reason;
    PutBackRefusal refusal = PutBackRefusal::system;
    TrashRefusalKind trash = TrashRefusalKind::system;  ///< of a refusal by the Trash
};

/// The name that a file gets whose own is taken, at the `number`th try, from 1: "a (put back).jpg",
/// then "a (put back 2).jpg". At most `maxBytes` bytes.
[[nodiscard]] std::string putBackName(std::string_view name, std::uint64_t number,
                                      std::size_t maxBytes);

/// Brings single files back from the Trash to where a clean-up took them from. Only what is the
/// file that was moved comes back; nothing that stands at a path is replaced, no link is followed,
/// nothing is copied and, but for folders that were made in vain, nothing is deleted. What cannot
/// come back stays in the Trash, for another try. Of a move its path, its identity and its place in
/// the Trash are looked at. One thread.
class FileReturn final {
 public:
    /// Both outlive it.
    FileReturn(FileSystem& fileSystem, TrashMover& trash)
        : fileSystem_(fileSystem), trash_(trash), folders_(fileSystem) {}
    FileReturn(const FileReturn&) = delete;
    FileReturn& operator=(const FileReturn&) = delete;

    /// What would become of the file now. Changes nothing.
    [[nodiscard]] PutBackFile check(const JournalMove& move);

    [[nodiscard]] PutBackFile putBack(const JournalMove& move);

    /// Whether it came back otherwise: a process ended before it could write that down, or another
    /// program put it back. Looks at the names that it would have got, up to the first that nothing
    /// has.
    [[nodiscard]] bool isBackAlready(const JournalMove& move);

    /// Without a look at anything.
    [[nodiscard]] static PutBackFile fileOf(const JournalMove& move);

 private:
    [[nodiscard]] PutBackFile checkInTrash(const JournalMove& move);
    void putBackInto(const OpenFolder& folder, const JournalMove& move, PutBackFile& file);
    void checkDestination(const std::string& folder, PutBackFile& file);
    [[nodiscard]] bool isAttached(const std::string& trash);

    FileSystem& fileSystem_;
    TrashMover& trash_;
    ReturnFolders folders_;
};

}  // namespace tarvin
