#pragma once

#include "clean/recovered_journal.h"
#include "clean/return_folders.h"
#include "platform/platform.h"
#include "platform/result.h"
#include "platform/trash_move.h"
#include "store/clean_up_journal.h"
#include "store/data_file.h"
#include "store/store_error.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

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

/// Why there is nothing to put back.
enum class NothingToPutBack : std::uint8_t {
    neverCleaned,  ///< no clean-up that is known has moved anything
    allBack,       ///< the last one has been put back
    noneInTrash    ///< what it moved is not in the Trash any more
};

/// The name that a file gets whose own is taken, at the `number`th try, from 1: "a (put back).jpg",
/// then "a (put back 2).jpg". At most `longest` bytes.
[[nodiscard]] std::string putBackName(std::string_view name, std::uint64_t number,
                                      std::size_t longest);

/// Puts the files of a clean-up back from the Trash to where they were. Only what was, when
/// it was looked at, the same file as was moved comes back; nothing that stands at a path is
/// replaced, no link is followed, nothing is copied and, but for folders that were made in vain,
/// nothing is deleted. What cannot come back stays in the Trash, for another try. One thread at a
/// time.
class PutBack final {
 public:
    struct Settings {
        std::function<bool()> stopped;  ///< asked before each file; may be empty
        std::function<void(const PutBackFile& file)> report;  ///< told of each file; may be empty
    };

    /// Recovers what earlier clean-ups have left open. The reason if there is no usable journal.
    static StoreResult<std::unique_ptr<PutBack>> open(Platform& platform, DataFile& totals);
    PutBack(const PutBack&) = delete;
    PutBack& operator=(const PutBack&) = delete;

    /// Those that have moved something, newest first; those that still run are left out.
    StoreResult<std::vector<CleanUpSummary>> cleanUps();

    /// The newest clean-up of which something can be put back, or could if its drive were there.
    /// `stopped`, which may be empty, is asked before each file; the answer means nothing then.
    StoreResult<std::variant<CleanUpSummary, NothingToPutBack>> last(
        const std::function<bool()>& stopped = {});

    /// Calls `visit` with each file of a clean-up that has not come back yet, in the order in which
    /// they were moved, and with what would become of it now; until it returns false. Changes no
    /// file. What came back otherwise, by another program or by a process that ended before it
    /// could write that down, is marked in the journal and taken from the totals.
    [[nodiscard]] std::optional<StoreError> examine(
        CleanUpId id, const std::function<bool(const PutBackFile&)>& visit);

    /// Puts back the files that can come, and takes them from the totals. The error if nothing
    /// could be begun ("in use by another process" where another one puts back the same), or if
    /// what was done could not be written down; that is found out again the next time.
    [[nodiscard]] std::optional<StoreError> run(CleanUpId id, const Settings& settings);

 private:
    PutBack(Platform& platform, RecoveredJournal opened, DataFile& totals);

    [[nodiscard]] bool isInUse(CleanUpId id);
    [[nodiscard]] PutBackFile inTrash(const JournalMove& move);
    [[nodiscard]] PutBackFile lookAt(const JournalMove& move);
    [[nodiscard]] PutBackFile bring(const JournalMove& move);
    void bringTo(const OpenFolder& folder, const JournalMove& move, PutBackFile& file);
    void lookForRoom(const std::string& folder, PutBackFile& file);
    [[nodiscard]] bool isBackAlready(const JournalMove& move);
    [[nodiscard]] bool isAttached(const std::string& trash);

    FileSystem& fileSystem_;
    DataFile& totals_;
    CleanUpJournal journal_;
    const std::unique_ptr<TrashMover> trash_;
    ReturnFolders folders_;
};

}  // namespace tarvin
