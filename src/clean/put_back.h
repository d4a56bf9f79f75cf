#pragma once

#include "clean/file_return.h"
#include "clean/recovery.h"
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
    neverCleaned,  ///< no known clean-up has moved a file
    allBack,       ///< the last one has been put back
    noneInTrash    ///< its files are no longer in the Trash
};

/// A clean-up as stored in the journal, before its files are checked.
struct UncheckedCleanUp {
    CleanUpId id = 0;
    Timestamp begun;
    std::vector<std::string> paths;  ///< of files in the Trash, in order; up to a limit
    std::uint64_t all = 0;           ///< files in the Trash
};

/// Reads the clean-up `id`, or else the newest one with files in the Trash, with up to `maxPaths`
/// paths. Returns nullopt if there is none, or if the journal cannot be read.
[[nodiscard]] std::optional<UncheckedCleanUp> uncheckedCleanUp(
    CleanUpJournal& journal, std::size_t maxPaths, std::optional<CleanUpId> id = std::nullopt);

/// Puts the files of a clean-up back from the Trash to their folders (FileReturn) and records that
/// in the journal and the totals. One thread at a time.
class PutBack final {
 public:
    struct Settings {
        /// Polled before each file; may be empty.
        std::function<bool()> stopped;
        /// Called for each file; may be empty.
        std::function<void(const PutBackFile& file)> report;
    };

    /// Opens the journal and recovers crashed clean-ups. Fails if there is no usable journal.
    /// `platform` and `totals` must outlive the result.
    /// `beforeRecovery` is that of openRecovered().
    static StoreResult<std::unique_ptr<PutBack>> open(
        Platform& platform, DataFile& totals,
        const std::function<void(CleanUpJournal&)>& beforeRecovery = {});
    PutBack(const PutBack&) = delete;
    PutBack& operator=(const PutBack&) = delete;

    [[nodiscard]] CleanUpJournal& journal() { return journal_; }

    /// Returns the clean-ups that have moved files and are not running, newest first.
    StoreResult<std::vector<CleanUpSummary>> cleanUps();

    /// Returns the newest clean-up with a file that can be put back, or could if its drive were
    /// mounted. `stopped`, which may be empty, is polled before each file; once it has returned
    /// true, the result is meaningless.
    StoreResult<std::variant<CleanUpSummary, NothingToPutBack>> last(
        const std::function<bool()>& stopped = {});

    /// Calls `visit` with what run() would do with each file that has not been put back yet, in the
    /// order of the moves, until it returns false. Changes no file. Files that another program, or
    /// a process that ended too early, has put back are recorded in the journal and in the totals.
    [[nodiscard]] std::optional<StoreError> examine(
        CleanUpId id, const std::function<bool(const PutBackFile&)>& visit);

    /// Puts back all files that can be, and subtracts them from the totals. Fails if the clean-up
    /// cannot be claimed ("in use by another process"), or if the result cannot be recorded; the
    /// next call or start then determines it again.
    [[nodiscard]] std::optional<StoreError> run(CleanUpId id, const Settings& settings);

 private:
    PutBack(Platform& platform, RecoveredJournal opened, DataFile& totals);

    [[nodiscard]] bool isInUse(CleanUpId id);
    StoreResult<std::optional<NothingToPutBack>> nothingIn(const CleanUpSummary& cleanUp,
                                                           const std::function<bool()>& stopped);
    std::optional<StoreError> putBackAll(CleanUpId id, const Settings& settings,
                                         std::optional<StoreError>& failure);

    DataFile& totals_;
    CleanUpJournal journal_;
    const std::unique_ptr<TrashMover> trash_;
    FileReturn files_;
};

}  // namespace tarvin
