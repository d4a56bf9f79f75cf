#include "clean/recovery.h"

#include "store/clean_up_totals.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <variant>

namespace tarvin {

namespace {

/// So many moves at a time, which bounds the memory and the passes over a Trash.
constexpr std::size_t movesAtOnce = 4096;

bool isPlanned(const JournalMove& move, const FileAttributes& now) {
    return now.type == EntryType::regular && now.size == move.size &&
           now.modified == move.modified && (move.inode == 0 || now.identity.inode == move.inode);
}

class Recovery final {
 public:
    Recovery(FileSystem& fileSystem, TrashMover& trash) : fileSystem_(fileSystem), trash_(trash) {}

    /// What became of these moves, as far as that can be seen now.
    std::vector<RecordedOutcome> outcomesOf(std::vector<JournalMove> moves) {
        outcomes_.clear();
        std::erase_if(moves, [this](const JournalMove& move) { return isInPlace(move); });
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

 private:
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
        if (!now || !isPlanned(move, *now)) {
            return false;
        }
        outcomes_.push_back({move.row, MoveState::left, {}, {}, "stopped"});
        return true;
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
                outcomes_.push_back({move->row, MoveState::moved, trash, file.name, {}});
                moves.erase(move);
            }
        }
        return true;
    }

    FileSystem& fileSystem_;
    TrashMover& trash_;
    std::vector<RecordedOutcome> outcomes_;
};

/// One of which something cannot be looked at now stays unfinished.
std::optional<StoreError> complete(CleanUpId id, Recovery& recovery, CleanUpJournal& journal) {
    bool isWhole = true;
    for (MoveRow after = 0;;) {
        auto moves = journal.moves(id, {MoveState::planned}, movesAtOnce, after);
        if (auto* error = std::get_if<StoreError>(&moves)) {
            return std::move(*error);
        }
        auto& planned = std::get<std::vector<JournalMove>>(moves);
        if (planned.empty()) {
            break;
        }
        after = planned.back().row;
        const std::size_t count = planned.size();
        const std::vector<RecordedOutcome> outcomes = recovery.outcomesOf(std::move(planned));
        isWhole = isWhole && outcomes.size() == count;
        if (auto failure = journal.record(outcomes)) {
            return failure;
        }
    }
    if (isWhole) {
        return journal.finish(id);
    }
    journal.release(id);
    return std::nullopt;
}

}  // namespace

std::optional<StoreError> recoverCleanUps(FileSystem& fileSystem, TrashMover& trash,
                                          CleanUpJournal& journal, DataFile& totals) {
    auto crashed = journal.crashed();
    if (auto* error = std::get_if<StoreError>(&crashed)) {
        return std::move(*error);
    }
    Recovery recovery(fileSystem, trash);
    std::optional<StoreError> failure;
    for (const CleanUpSummary& cleanUp : std::get<std::vector<CleanUpSummary>>(crashed)) {
        std::optional<StoreError> ofOne = complete(cleanUp.id, recovery, journal);
        failure = failure ? failure : std::move(ofOne);
    }
    std::optional<StoreError> unsettled = settleTotals(totals, journal);
    return failure ? failure : unsettled;
}

}  // namespace tarvin
