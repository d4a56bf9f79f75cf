#include "clean/recovery.h"

#include "store/clean_up_totals.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_set>
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

    /// What became of each of these moves.
    std::vector<RecordedOutcome> outcomesOf(std::vector<JournalMove> moves) {
        outcomes_.clear();
        std::erase_if(moves, [this](const JournalMove& move) { return isInPlace(move); });
        std::unordered_set<std::string> searched;
        while (!moves.empty()) {
            // Finds the others that are in the same places, too.
            for (const std::string& trash : trash_.trashesFor(moves.back().path)) {
                if (searched.insert(trash).second) {
                    takeFoundIn(trash, moves);
                }
            }
            takeLost(searched, moves);
        }
        return std::move(outcomes_);
    }

 private:
    /// Those at the end that were looked for in vain wherever they can be.
    void takeLost(const std::unordered_set<std::string>& searched,
                  std::vector<JournalMove>& moves) {
        const auto isSearched = [&searched](const std::string& trash) {
            return searched.contains(trash);
        };
        while (!moves.empty()) {
            const std::vector<std::string> trashes = trash_.trashesFor(moves.back().path);
            if (!std::all_of(trashes.begin(), trashes.end(), isSearched)) {
                return;
            }
            outcomes_.push_back({moves.back().row, MoveState::left, {}, {}, "gone"});
            moves.pop_back();
        }
    }

    bool isInPlace(const JournalMove& move) {
        const Result<FileAttributes> now = fileSystem_.attributesAtPath(move.path);
        if (!now || !isPlanned(move, *now)) {
            return false;
        }
        outcomes_.push_back({move.row, MoveState::left, {}, {}, "stopped"});
        return true;
    }

    void takeFoundIn(const std::string& trash, std::vector<JournalMove>& moves) {
        const Result<FileAttributes> files = fileSystem_.attributesAtPath(trash + "/files");
        if (!files) {
            return;
        }
        std::vector<FileIdentity> wanted;
        for (const JournalMove& move : moves) {
            wanted.push_back({files->identity.device, move.inode});
        }
        const auto found = trash_.find(trash, wanted);
        if (!found) {
            return;
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
    }

    FileSystem& fileSystem_;
    TrashMover& trash_;
    std::vector<RecordedOutcome> outcomes_;
};

std::optional<StoreError> complete(CleanUpId id, Recovery& recovery, CleanUpJournal& journal) {
    for (MoveRow after = 0;;) {
        auto moves = journal.moves(id, {MoveState::planned}, movesAtOnce, after);
        if (auto* error = std::get_if<StoreError>(&moves)) {
            return std::move(*error);
        }
        auto& planned = std::get<std::vector<JournalMove>>(moves);
        if (planned.empty()) {
            return journal.finish(id);
        }
        after = planned.back().row;
        if (auto failure = journal.record(recovery.outcomesOf(std::move(planned)))) {
            return failure;
        }
    }
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
