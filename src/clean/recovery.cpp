#include "clean/recovery.h"

#include "clean/clean_up.h"
#include "clean/file_return.h"
#include "store/clean_up_totals.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <variant>
#include <vector>

namespace tarvin {

namespace {

/// So many moves at a time, which bounds the memory and the passes over a Trash.
constexpr std::size_t movesAtOnce = 4096;
/// For a clean-up that moves one set meanwhile.
constexpr std::chrono::seconds waitForTurn{1};

bool isPlanned(const JournalMove& move, const FileAttributes& now) {
    return now.type == EntryType::regular && now.size == move.size &&
           now.modified == move.modified && (move.inode == 0 || now.identity.inode == move.inode);
}

/// The clean-ups of one recovery.
class Recovery final {
 public:
    Recovery(FileSystem& fileSystem, TrashMover& trash, const LockFile& turns,
             CleanUpJournal& journal)
        : fileSystem_(fileSystem),
          trash_(trash),
          turns_(turns),
          journal_(journal),
          files_(fileSystem, trash) {}

    /// One of which something cannot be looked at now stays unfinished.
    std::optional<StoreError> complete(const CleanUpSummary& cleanUp) {
        isWhole_ = true;
        std::optional<StoreError> failure =
            forEachPortion(cleanUp.id, MoveState::planned, [&](std::vector<JournalMove> moves) {
                const std::size_t count = moves.size();
                const std::vector<RecordedOutcome> outcomes = outcomesOf(std::move(moves));
                isWhole_ = isWhole_ && outcomes.size() == count;
                return whenFlushed([&] { return journal_.record(outcomes); });
            });
        if (!failure && isWhole_) {
            failure = forEachPortion(cleanUp.id, MoveState::moved, [&](const auto& moves) {
                return lookAtMoved(moves, cleanUp.begun);
            });
        }
        if (failure) {
            return failure;
        }
        if (isWhole_ && !trash_.flush()) {
            return journal_.finish(cleanUp.id);
        }
        journal_.release(cleanUp.id);
        return std::nullopt;
    }

 private:
    /// Writes down what was done to files, unless a power failure could still undo it.
    std::optional<StoreError> whenFlushed(const std::function<std::optional<StoreError>()>& write) {
        if (trash_.flush()) {
            isWhole_ = false;
            return std::nullopt;
        }
        return write();
    }

    std::optional<StoreError> forEachPortion(
        CleanUpId id, MoveState state,
        const std::function<std::optional<StoreError>(std::vector<JournalMove>)>& visit) {
        for (MoveRow after = 0;;) {
            auto read = journal_.moves(id, {state}, movesAtOnce, after);
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

    /// What became of planned moves, as far as that can be seen now.
    std::vector<RecordedOutcome> outcomesOf(std::vector<JournalMove> moves) {
        outcomes_.clear();
        takeInPlace(moves);
        std::unordered_map<std::string, bool> isReadable;
        while (!moves.empty()) {
            // Finds the others that are in the same places, too.
            for (const std::string& trash : trash_.trashesFor(moves.back().path)) {
                if (!isReadable.contains(trash)) {
                    isReadable[trash] = takeFoundIn(trash, moves);
                }
            }
            dropSought(isReadable, moves);
        }
        return std::move(outcomes_);
    }

    /// Those at the end that were looked for wherever they can be. They are gone, unless a place
    /// could not be looked at: then the next start looks again.
    void dropSought(const std::unordered_map<std::string, bool>& isReadable,
                    std::vector<JournalMove>& moves) {
        for (; !moves.empty(); moves.pop_back()) {
            bool isGone = isAttached(moves.back());
            for (const std::string& trash : trash_.trashesFor(moves.back().path)) {
                const auto sought = isReadable.find(trash);
                if (sought == isReadable.end()) {
                    return;
                }
                isGone = isGone && sought->second;
            }
            if (isGone) {
                outcomes_.push_back({moves.back().row, MoveState::left, {}, {}, "gone"});
            }
        }
    }

    /// Whether the folder of a file is there. If it is not, its drive may not be, either.
    bool isAttached(const JournalMove& move) {
        const std::size_t slash = move.path.rfind('/');
        return slash == 0 || fileSystem_.attributesAtPath(move.path.substr(0, slash));
    }

    bool isInPlace(const JournalMove& move) {
        const Result<FileAttributes> now = fileSystem_.attributesAtPath(move.path);
        return now && isPlanned(move, *now);
    }

    /// The moves that were not made. The next one may have its note already.
    void takeInPlace(std::vector<JournalMove>& moves) {
        std::vector<std::string> paths;
        std::erase_if(moves, [&](JournalMove& move) {
            if (!isInPlace(move)) {
                return false;
            }
            outcomes_.push_back({move.row, MoveState::left, {}, {}, "stopped"});
            paths.push_back(std::move(move.path));
            return true;
        });
        if (!paths.empty()) {
            removeNotesOf(paths);
        }
    }

    /// Waits until no clean-up moves anything: it may be one of these files.
    void removeNotesOf(const std::vector<std::string>& paths) {
        const Result<FileLock> turn = turns_.take(cleanUpTurn, waitForTurn);
        if (!turn) {
            return;
        }
        std::unordered_set<std::string> trashes;
        for (const std::string& path : paths) {
            for (std::string& trash : trash_.trashesFor(path)) {
                trashes.insert(std::move(trash));
            }
        }
        for (const std::string& trash : trashes) {
            if (fileSystem_.attributesAtPath(trash)) {
                static_cast<void>(trash_.removeUnusedNotes(trash, paths));
            }
        }
    }

    /// False if the Trash is there and cannot be looked at.
    bool takeFoundIn(const std::string& trash, std::vector<JournalMove>& moves) {
        const Result<FileAttributes> files = fileSystem_.attributesAtPath(trash + "/files");
        if (!files) {
            return files.error().code == ENOENT || files.error().code == ENOTDIR;
        }
        std::vector<FileIdentity> wanted;
        wanted.reserve(moves.size());
        for (const JournalMove& move : moves) {
            wanted.push_back({files->identity.device, move.inode});
        }
        const auto found = trash_.find(trash, wanted);
        if (!found) {
            return false;
        }
        for (const TrashedFile& file : *found) {
            const auto move = std::find_if(moves.begin(), moves.end(), [&](const auto& planned) {
                return planned.inode != 0 && isPlanned(planned, file.attributes);
            });
            if (move != moves.end()) {
                move->trashFolder = trash;
                move->trashName = file.name;
                outcomes_.push_back(outcomeOfFound(*move));
                moves.erase(move);
            }
        }
        return true;
    }

    /// Of a file in the Trash. The look that follows each move may not have been made.
    RecordedOutcome outcomeOfFound(const JournalMove& move) {
        if (!staysAsPlanned(move) && isBack(files_.bring(move).outcome)) {
            return {
                move.row, MoveState::left, {}, {}, std::string(outcomeWord(MoveOutcome::lastCopy))};
        }
        return {move.row, MoveState::moved, move.trashFolder, move.trashName, {}};
    }

    bool staysAsPlanned(const JournalMove& move) {
        if (!move.staying) {
            return true;
        }
        const Result<FileAttributes> now = fileSystem_.currentAttributesAtPath(move.staying->path);
        return now && now->type == EntryType::regular && now->size == move.size &&
               now->modified == move.staying->modified &&
               now->identity.inode == move.staying->inode;
    }

    /// After a power failure the disk may have lost a note, or the whole move, of what the journal
    /// knows as moved; and who put files back may have ended before that was written down.
    std::optional<StoreError> lookAtMoved(const std::vector<JournalMove>& moves, Timestamp begun) {
        std::vector<MoveRow> notMoved;
        for (const JournalMove& move : moves) {
            const TrashPlace place{move.trashFolder, move.trashName};
            const auto there = trash_.look(place);
            if (there && isPlanned(move, *there)) {
                isWhole_ = !trash_.mendNote(place, move.path, begun) && isWhole_;
            } else if (!there && files_.isBackAlready(move)) {
                notMoved.push_back(move.row);
            } else if (!there) {
                const PutBackOutcome outlook = files_.lookAt(move).outcome;
                isWhole_ = isWhole_ && outlook == PutBackOutcome::lost;
            }
        }
        return notMoved.empty() ? std::nullopt : journal_.markPutBack(notMoved);
    }

    FileSystem& fileSystem_;
    TrashMover& trash_;
    const LockFile& turns_;
    CleanUpJournal& journal_;
    FileReturn files_;
    std::vector<RecordedOutcome> outcomes_;
    bool isWhole_ = true;  // of the clean-up in hand: everything could be looked at and mended
};

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

}  // namespace tarvin
