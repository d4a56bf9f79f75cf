#include "clean/put_back.h"

#include "store/clean_up_totals.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

namespace tarvin {

namespace {

/// Rows per transaction; after a crash up to this many files are checked again.
constexpr std::size_t batchSize = 512;

/// According to the journal.
std::uint64_t filesInTrash(const CleanUpSummary& cleanUp) {
    const std::uint64_t away = cleanUp.putBackFiles + cleanUp.lostFiles;
    return cleanUp.movedFiles - std::min(cleanUp.movedFiles, away);
}

/// Records outcomes of moves in batches.
class MarkBatch final {
 public:
    using Write = std::optional<StoreError> (CleanUpJournal::*)(std::span<const MoveRow>);

    /// Flushes `trash` before each write: a power failure must not undo recorded moves.
    MarkBatch(CleanUpJournal& journal, TrashMover& trash, Write write)
        : journal_(journal), trash_(trash), write_(write) {}

    void add(MoveRow row, std::optional<StoreError>& failure) {
        rows_.push_back(row);
        if (rows_.size() >= batchSize) {
            writeOut(failure);
        }
    }

    void writeOut(std::optional<StoreError>& failure) {
        if (rows_.empty()) {
            return;
        }
        const std::optional<TrashRefusal> refusal = trash_.flush();
        std::optional<StoreError> now =
            refusal ? StoreError{"", refusal->text, StoreError::Kind::passing}
                    : (journal_.*write_)(rows_);
        if (now && !failure) {
            failure = std::move(now);
        }
        rows_.clear();
    }

 private:
    CleanUpJournal& journal_;
    TrashMover& trash_;
    const Write write_;
    std::vector<MoveRow> rows_;
};

}  // namespace

std::optional<UncheckedCleanUp> uncheckedCleanUp(CleanUpJournal& journal, std::size_t maxPaths,
                                                 std::optional<CleanUpId> id) {
    const auto all = journal.cleanUps();
    const auto* known = std::get_if<std::vector<CleanUpSummary>>(&all);
    if (known == nullptr) {
        return std::nullopt;
    }
    const auto found = std::find_if(known->begin(), known->end(), [&](const auto& each) {
        return id ? each.id == *id : filesInTrash(each) > 0;
    });
    if (found == known->end()) {
        return std::nullopt;
    }
    const auto moves = journal.moves(found->id, {MoveState::moved}, maxPaths);
    const auto* files = std::get_if<std::vector<JournalMove>>(&moves);
    if (files == nullptr) {
        return std::nullopt;
    }
    UncheckedCleanUp unchecked{found->id, found->begun, {}, filesInTrash(*found)};
    for (const JournalMove& move : *files) {
        unchecked.paths.push_back(move.path);
    }
    return unchecked;
}

StoreResult<std::unique_ptr<PutBack>> PutBack::open(
    Platform& platform, DataFile& totals,
    const std::function<void(CleanUpJournal&)>& beforeRecovery) {
    auto opened = openRecovered(platform, totals, beforeRecovery);
    if (auto* error = std::get_if<StoreError>(&opened)) {
        return std::move(*error);
    }
    return std::unique_ptr<PutBack>(
        new PutBack(platform, std::get<RecoveredJournal>(std::move(opened)), totals));
}

PutBack::PutBack(Platform& platform, RecoveredJournal opened, DataFile& totals)
    : totals_(totals),
      journal_(std::move(opened.journal)),
      trash_(std::move(opened.trash)),
      files_(platform.fileSystem(), *trash_) {}

StoreResult<std::vector<CleanUpSummary>> PutBack::cleanUps() {
    auto all = journal_.cleanUps();
    if (auto* known = std::get_if<std::vector<CleanUpSummary>>(&all)) {
        std::erase_if(*known, [this](const CleanUpSummary& cleanUp) {
            return cleanUp.movedFiles == 0 || (!cleanUp.finished && isInUse(cleanUp.id));
        });
    }
    return all;
}

/// Whether another process holds the clean-up. An unfinished one that no process holds could not be
/// recovered completely, for example because its drive is not mounted.
bool PutBack::isInUse(CleanUpId id) {
    if (journal_.claim(id)) {
        return true;
    }
    journal_.release(id);
    return false;
}

StoreResult<std::variant<CleanUpSummary, NothingToPutBack>> PutBack::last(
    const std::function<bool()>& stopped) {
    using Last = std::variant<CleanUpSummary, NothingToPutBack>;
    auto all = cleanUps();
    if (auto* error = std::get_if<StoreError>(&all)) {
        return std::move(*error);
    }
    std::optional<NothingToPutBack> nothing;
    for (const CleanUpSummary& cleanUp : std::get<std::vector<CleanUpSummary>>(all)) {
        if (stopped && stopped()) {
            break;
        }
        auto found = nothingIn(cleanUp, stopped);
        if (auto* error = std::get_if<StoreError>(&found)) {
            return std::move(*error);
        }
        const auto& reason = std::get<std::optional<NothingToPutBack>>(found);
        if (!reason) {
            return Last(cleanUp);
        }
        nothing = nothing ? nothing : reason;
    }
    return Last(nothing.value_or(NothingToPutBack::neverCleaned));
}

/// Returns why no file can be put back; nullopt if one can, or could if its drive were mounted.
StoreResult<std::optional<NothingToPutBack>> PutBack::nothingIn(
    const CleanUpSummary& cleanUp, const std::function<bool()>& stopped) {
    bool isWorthATry = false;
    bool isAllBack = cleanUp.lostFiles == 0;
    auto failure = examine(cleanUp.id, [&](const PutBackFile& file) {
        if (stopped && stopped()) {
            return false;
        }
        isAllBack = false;
        isWorthATry =
            file.outcome != PutBackOutcome::lost && file.outcome != PutBackOutcome::changed;
        return !isWorthATry;
    });
    if (failure) {
        return std::move(*failure);
    }
    if (isWorthATry) {
        return std::optional<NothingToPutBack>();
    }
    return std::optional(isAllBack ? NothingToPutBack::allBack : NothingToPutBack::noneInTrash);
}

std::optional<StoreError> PutBack::examine(CleanUpId id,
                                           const std::function<bool(const PutBackFile&)>& visit) {
    std::optional<StoreError> failure;
    MarkBatch putBack(journal_, *trash_, &CleanUpJournal::markPutBack);
    bool hasNews = false;
    auto unread = journal_.forEachMove(
        id, {MoveState::moved}, CleanUpJournal::Order::asPlanned, [&](const JournalMove& move) {
            const PutBackFile file = files_.check(move);
            if (file.outcome == PutBackOutcome::lost && files_.isBackAlready(move)) {
                putBack.add(move.row, failure);
                hasNews = true;
                return true;
            }
            return visit(file);
        });
    putBack.writeOut(failure);
    if (hasNews && !failure) {
        failure = settleTotals(totals_, journal_);
    }
    return unread ? unread : failure;
}

/// Puts back all files that can be. Returns a failure to read the journal; `failure` receives the
/// first failure to write it.
std::optional<StoreError> PutBack::putBackAll(CleanUpId id, const Settings& settings,
                                              std::optional<StoreError>& failure) {
    MarkBatch putBack(journal_, *trash_, &CleanUpJournal::markPutBack);
    MarkBatch lost(journal_, *trash_, &CleanUpJournal::markLost);
    bool isStopped = false;
    auto unread = journal_.forEachMove(
        id, {MoveState::moved}, CleanUpJournal::Order::asPlanned, [&](const JournalMove& move) {
            isStopped = isStopped || (settings.stopped && settings.stopped());
            PutBackFile file = isStopped ? FileReturn::fileOf(move) : files_.putBack(move);
            if (isStopped) {
                file.outcome = PutBackOutcome::stopped;
            } else if (file.outcome == PutBackOutcome::lost) {
                if (files_.isBackAlready(move)) {
                    putBack.add(move.row, failure);
                    return true;
                }
                lost.add(move.row, failure);
            } else if (isBack(file.outcome)) {
                putBack.add(move.row, failure);
            }
            if (settings.report) {
                settings.report(file);
            }
            return true;
        });
    putBack.writeOut(failure);
    lost.writeOut(failure);
    return unread;
}

std::optional<StoreError> PutBack::run(CleanUpId id, const Settings& settings) {
    if (auto inUse = journal_.claim(id)) {
        return inUse;
    }
    // Files are put back even if the journal cannot be written; that is reported at the end.
    static_cast<void>(journal_.beginReturn(id));
    std::optional<StoreError> failure;
    auto unread = putBackAll(id, settings, failure);
    // After a failure the clean-up stays marked, so that the next start recovers it.
    std::optional<StoreError> unended = failure ? std::nullopt : journal_.endReturn(id);
    journal_.release(id);
    std::optional<StoreError> unsettled = settleTotals(totals_, journal_);
    failure = failure ? failure : std::move(unread);
    failure = failure ? failure : std::move(unended);
    return failure ? failure : unsettled;
}

}  // namespace tarvin
