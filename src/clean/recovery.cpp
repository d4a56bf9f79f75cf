#include "clean/recovery.h"

#include "clean/file_return.h"
#include "clean/planned_outcomes.h"
#include "store/clean_up_totals.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

/// Moves read at a time. Bounds memory; each batch reads a Trash at most once.
constexpr std::size_t movesPerBatch = 4096;

class Recovery final {
 public:
    Recovery(FileSystem& fileSystem, TrashMover& trash, const LockFile& turns,
             CleanUpJournal& journal)
        : trash_(trash),
          journal_(journal),
          files_(fileSystem, trash),
          planned_(fileSystem, trash, turns, files_) {}

    /// Leaves the clean-up unfinished if something cannot be accessed now.
    std::optional<StoreError> complete(const CleanUpSummary& cleanUp) {
        isComplete_ = true;
        std::optional<StoreError> failure =
            forEachBatch(cleanUp.id, MoveState::planned, [&](std::vector<JournalMove> moves) {
                const std::size_t count = moves.size();
                const std::vector<RecordedOutcome> outcomes = planned_.of(std::move(moves));
                isComplete_ = isComplete_ && outcomes.size() == count;
                return whenFlushed([&] { return journal_.record(outcomes); });
            });
        if (!failure && isComplete_) {
            failure = forEachBatch(cleanUp.id, MoveState::moved, [&](const auto& moves) {
                return checkMoved(moves, cleanUp.begun);
            });
        }
        if (failure) {
            return failure;
        }
        if (isComplete_ && !trash_.flush()) {
            return journal_.finish(cleanUp.id);
        }
        journal_.release(cleanUp.id);
        return std::nullopt;
    }

 private:
    /// Calls `write` only after the moves have been flushed to disk.
    std::optional<StoreError> whenFlushed(const std::function<std::optional<StoreError>()>& write) {
        if (trash_.flush()) {
            isComplete_ = false;
            return std::nullopt;
        }
        return write();
    }

    std::optional<StoreError> forEachBatch(
        CleanUpId id, MoveState state,
        const std::function<std::optional<StoreError>(std::vector<JournalMove>)>& visit) {
        for (MoveRow after = 0;;) {
            auto read = journal_.moves(id, {state}, movesPerBatch, after);
            if (auto* error = std::get_if<StoreError>(&read)) {
                return std::move(*error);
            }
            auto& moves = std::get<std::vector<JournalMove>>(read);
            if (moves.empty()) {
                return std::nullopt;
            }
            after = moves.back().row;
            if (auto failure = visit(std::move(moves))) {
                return failure;
            }
        }
    }

    /// After a power failure the disk may have lost the .trashinfo file or the move itself of a
    /// file recorded as moved; and a process that put it back may have ended before recording that.
    std::optional<StoreError> checkMoved(const std::vector<JournalMove>& moves, Timestamp begun) {
        std::vector<MoveRow> notMoved;
        for (const JournalMove& move : moves) {
            const TrashPlace place{move.trashFolder, move.trashName};
            const auto there = trash_.attributes(place);
            if (there && isFileOf(move, *there)) {
                isComplete_ = !trash_.repairTrashInfo(place, move.path, begun) && isComplete_;
            } else if (!there && files_.isBackAlready(move)) {
                notMoved.push_back(move.row);
            } else if (!there) {
                const PutBackOutcome expected = files_.check(move).outcome;
                isComplete_ = isComplete_ && expected == PutBackOutcome::lost;
            }
        }
        return notMoved.empty() ? std::nullopt : journal_.markPutBack(notMoved);
    }

    TrashMover& trash_;
    CleanUpJournal& journal_;
    FileReturn files_;
    PlannedOutcomes planned_;
    bool isComplete_ = true;  // of the current clean-up: all files could be checked and repaired
};

LockFile turnsIn(const std::string& folder) {
    return LockFile(folder + "/clean-up.turn");
}

}  // namespace

std::optional<StoreError> recoverCleanUps(FileSystem& fileSystem, TrashMover& trash,
                                          const LockFile& turns, CleanUpJournal& journal,
                                          DataFile& totals) {
    auto crashed = journal.crashed();
    if (auto* error = std::get_if<StoreError>(&crashed)) {
        return std::move(*error);
    }
    Recovery recovery(fileSystem, trash, turns, journal);
    std::optional<StoreError> failure;
    for (const CleanUpSummary& cleanUp : std::get<std::vector<CleanUpSummary>>(crashed)) {
        std::optional<StoreError> ofOne = recovery.complete(cleanUp);
        failure = failure ? failure : std::move(ofOne);
    }
    std::optional<StoreError> unsettled = settleTotals(totals, journal);
    return failure ? failure : unsettled;
}

std::variant<RecoveredJournal, StoreError> openRecovered(
    Platform& platform, DataFile& totals,
    const std::function<void(CleanUpJournal&)>& beforeRecovery) {
    const std::optional<std::string> folder = platform.applicationSupportFolder();
    if (!folder) {
        return StoreError{"", "there is no home folder to keep the journal in",
                          StoreError::Kind::passing};
    }
    auto journal = CleanUpJournal::open(*folder);
    if (auto* error = std::get_if<StoreError>(&journal)) {
        return std::move(*error);
    }
    RecoveredJournal opened{turnsIn(*folder), std::get<CleanUpJournal>(std::move(journal)),
                            platform.makeTrashMover()};
    if (beforeRecovery) {
        beforeRecovery(opened.journal);
    }
    static_cast<void>(recoverCleanUps(platform.fileSystem(), *opened.trash, opened.turns,
                                      opened.journal, totals));
    return opened;
}

std::optional<std::string> moveJournalAside(Platform& platform, const StoreError& error) {
    const std::optional<std::string> folder = platform.applicationSupportFolder();
    if (!folder || error.kind != StoreError::Kind::unusable) {
        return std::nullopt;
    }
    auto aside = CleanUpJournal::moveAside(*folder);
    auto* const path = std::get_if<std::string>(&aside);
    return path == nullptr ? std::nullopt : std::optional(std::move(*path));
}

bool hasJournal(Platform& platform) {
    const std::optional<std::string> folder = platform.applicationSupportFolder();
    return folder && CleanUpJournal::isIn(*folder);
}

std::optional<StoreError> recoverAtStart(Platform& platform, DataFile& totals) {
    const std::optional<std::string> folder = platform.applicationSupportFolder();
    if (!folder || !CleanUpJournal::isIn(*folder)) {
        return std::nullopt;
    }
    auto journal = CleanUpJournal::open(*folder);
    if (auto* error = std::get_if<StoreError>(&journal)) {
        return std::move(*error);
    }
    const std::unique_ptr<TrashMover> trash = platform.makeTrashMover();
    return recoverCleanUps(platform.fileSystem(), *trash, turnsIn(*folder),
                           std::get<CleanUpJournal>(journal), totals);
}

}  // namespace tarvin
