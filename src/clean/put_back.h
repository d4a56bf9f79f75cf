#pragma once

#include "clean/file_return.h"
#include "clean/recovered_journal.h"
#include "platform/platform.h"
#include "platform/timestamp.h"
#include "platform/trash_move.h"
#include "store/clean_up_journal.h"
#include "store/data_file.h"
#include "store/store_error.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tarvin {

/// Why there is nothing to put back.
enum class NothingToPutBack : std::uint8_t {
    neverCleaned,  ///< no clean-up that is known has moved anything
    allBack,       ///< the last one has been put back
    noneInTrash    ///< what it moved is not in the Trash any more
};

/// What the journal says of a clean-up, before any of its files is checked.
struct UncheckedCleanUp {
    CleanUpId id = 0;
    Timestamp begun;
    std::vector<std::string> paths;  ///< of the first files that are in the Trash, in order
    std::uint64_t all = 0;           ///< files in the Trash
};

/// Reads the clean-up `id`, or else the newest one with files in the Trash, with up to `maxPaths`
/// paths. nullopt if there is none, or if the journal cannot be read.
[[nodiscard]] std::optional<UncheckedCleanUp> uncheckedCleanUp(
    CleanUpJournal& journal, std::size_t maxPaths, std::optional<CleanUpId> id = std::nullopt);

/// Puts the files of a clean-up back from the Trash to where they were, each as FileReturn does,
/// and writes that down. One thread at a time.
class PutBack final {
 public:
    struct Settings {
        std::function<bool()> stopped;  ///< asked before each file; may be empty
        std::function<void(const PutBackFile& file)> report;  ///< told of each file; may be empty
    };

    /// Recovers what earlier clean-ups have left open. The reason if there is no usable journal.
    /// `beforeRecovery` is that of openRecovered().
    static StoreResult<std::unique_ptr<PutBack>> open(
        Platform& platform, DataFile& totals,
        const std::function<void(CleanUpJournal&)>& beforeRecovery = {});
    PutBack(const PutBack&) = delete;
    PutBack& operator=(const PutBack&) = delete;

    [[nodiscard]] CleanUpJournal& journal() { return journal_; }

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
    StoreResult<std::optional<NothingToPutBack>> nothingIn(const CleanUpSummary& cleanUp,
                                                           const std::function<bool()>& stopped);
    std::optional<StoreError> bringAll(CleanUpId id, const Settings& settings,
                                       std::optional<StoreError>& failure);

    DataFile& totals_;
    CleanUpJournal journal_;
    const std::unique_ptr<TrashMover> trash_;
    FileReturn files_;
};

}  // namespace tarvin
