#include "clean/planned_outcomes.h"

#include "clean/clean_up.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <unordered_set>
#include <utility>

namespace tarvin {

namespace {

/// For a clean-up that moves one set meanwhile.
constexpr std::chrono::seconds turnTimeout{1};

}  // namespace

bool isFileOf(const JournalMove& move, const FileAttributes& now) {
    return now.type == EntryType::regular && now.size == move.size &&
           now.modified == move.modified && (move.inode == 0 || now.identity.inode == move.inode);
}

/// What became of planned moves, as far as that can be seen now.
std::vector<RecordedOutcome> PlannedOutcomes::of(std::vector<JournalMove> moves) {
    outcomes_.clear();
    settleInPlace(moves);
    std::unordered_map<std::string, bool> isReadable;
    while (!moves.empty()) {
        // Finds the others that are in the same places, too.
        for (const std::string& trash : trash_.trashesFor(moves.back().path)) {
            if (!isReadable.contains(trash)) {
                isReadable[trash] = settleFoundIn(trash, moves);
            }
        }
        settleMissing(isReadable, moves);
    }
    return std::move(outcomes_);
}

/// Those at the end that were looked for wherever they can be. They are gone, unless a place
/// could not be looked at: then the next start looks again.
void PlannedOutcomes::settleMissing(const std::unordered_map<std::string, bool>& isReadable,
                                    std::vector<JournalMove>& moves) {
    for (; !moves.empty(); moves.pop_back()) {
        bool isGone = isAttached(moves.back());
        for (const std::string& trash : trash_.trashesFor(moves.back().path)) {
            const auto searched = isReadable.find(trash);
            if (searched == isReadable.end()) {
                return;
            }
            isGone = isGone && searched->second;
        }
        if (isGone) {
            outcomes_.push_back({moves.back().row, MoveState::left, {}, {}, "gone"});
        }
    }
}

/// Whether the folder of a file is there. If it is not, its drive may not be, either.
bool PlannedOutcomes::isAttached(const JournalMove& move) {
    const std::size_t slash = move.path.rfind('/');
    return slash == 0 || fileSystem_.attributesAtPath(move.path.substr(0, slash));
}

bool PlannedOutcomes::isInPlace(const JournalMove& move) {
    const Result<FileAttributes> now = fileSystem_.attributesAtPath(move.path);
    return now && isFileOf(move, *now);
}

/// The moves that were not made. The next one may have its note already.
void PlannedOutcomes::settleInPlace(std::vector<JournalMove>& moves) {
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
        removeTrashInfosOf(paths);
    }
}

/// Waits until no clean-up moves anything: it may be one of these files.
void PlannedOutcomes::removeTrashInfosOf(const std::vector<std::string>& paths) {
    const Result<FileLock> turn = turns_.take(cleanUpTurn, turnTimeout);
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
bool PlannedOutcomes::settleFoundIn(const std::string& trash, std::vector<JournalMove>& moves) {
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
            return planned.inode != 0 && isFileOf(planned, file.attributes);
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
RecordedOutcome PlannedOutcomes::outcomeOfFound(const JournalMove& move) {
    if (!staysAsPlanned(move) && isBack(files_.putBack(move).outcome)) {
        return {move.row, MoveState::left, {}, {}, std::string(outcomeWord(MoveOutcome::lastCopy))};
    }
    return {move.row, MoveState::moved, move.trashFolder, move.trashName, {}};
}

bool PlannedOutcomes::staysAsPlanned(const JournalMove& move) {
    if (!move.staying) {
        return true;
    }
    const Result<FileAttributes> now = fileSystem_.currentAttributesAtPath(move.staying->path);
    return now && now->type == EntryType::regular && now->size == move.size &&
           now->modified == move.staying->modified && now->identity.inode == move.staying->inode;
}

}  // namespace tarvin
