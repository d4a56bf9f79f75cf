#include "clean/planned_outcomes.h"

#include "clean/clean_up.h"
#include "clean/equal_contents.h"
#include "clean/listed_name.h"
#include "platform/file_paths.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <functional>
#include <map>
#include <unordered_set>
#include <utility>

namespace tarvin {

namespace {

/// Another clean-up holds the lock for one set.
constexpr std::chrono::seconds turnTimeout{1};

}  // namespace

bool isFileOf(const JournalMove& move, const FileAttributes& now) {
    return now.type == EntryType::regular && now.size == move.size &&
           now.modified == move.modified && (move.inode == 0 || now.identity.inode == move.inode);
}

std::vector<RecordedOutcome> PlannedOutcomes::of(std::vector<JournalMove> moves) {
    outcomes_.clear();
    settleInPlace(moves);
    std::unordered_map<std::string, bool> isReadable;
    while (!moves.empty()) {
        // Also finds other moves in the same Trash folders.
        for (const std::string& trash : trash_.trashesFor(moves.back().path)) {
            if (!isReadable.contains(trash)) {
                isReadable[trash] = settleFoundIn(trash, moves);
            }
        }
        settleMissing(isReadable, moves);
    }
    return std::move(outcomes_);
}

/// Removes moves from the end while all their possible Trash folders have been searched. The
/// outcome is "gone", or none if a folder could not be accessed: then the next start tries again.
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

/// Whether the folder of a file exists. If not, its drive may not be mounted.
bool PlannedOutcomes::isAttached(const JournalMove& move) {
    return fileSystem_.attributesAtPath(folderPathOf(move.path)).ok();
}

bool PlannedOutcomes::isInPlace(const JournalMove& move) {
    const Result<FileAttributes> now = fileSystem_.attributesAtPath(move.path);
    return now && (isFileOf(move, *now) || (now->type == EntryType::regular &&
                                            now->size == move.size && isUnsteady(move.path)));
}

/// Whether the volume of a file is unsteady.
bool PlannedOutcomes::isUnsteady(const std::string& path) {
    const Result<Descriptor> opened = fileSystem_.openFile(path);
    return opened && unsteadyVolumes_.examine(fileSystem_, *opened);
}

/// Removes the moves that were not made. One of them may have its .trashinfo file already.
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

/// Takes the lock of clean-ups, since another one may be moving one of these files.
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
            static_cast<void>(trash_.removeUnusedTrashInfos(trash, paths));
        }
    }
}

/// Removes the moves whose files are in `trash`. Returns false if that exists and cannot be read.
bool PlannedOutcomes::settleFoundIn(const std::string& trash, std::vector<JournalMove>& moves) {
    const Result<FileAttributes> files = fileSystem_.attributesAtPath(trash_.filesFolder(trash));
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
    return settleFoundByPath(trash, files->identity.device, moves);
}

/// The same for the files of an unsteady volume, which have other inode numbers or dates now. Only
/// a Trash on the volume of a file can have it. Of several files that were at one path the last one
/// moved has the longest name, because names are numbered.
bool PlannedOutcomes::settleFoundByPath(const std::string& trash, std::uint64_t device,
                                        std::vector<JournalMove>& moves) {
    std::vector<std::string> paths;
    std::vector<std::size_t> numbers;  // of their moves
    for (std::size_t number = 0; number < moves.size(); ++number) {
        const auto folder = fileSystem_.attributesAtPath(folderPathOf(moves[number].path));
        if (folder && folder->identity.device == device) {
            paths.push_back(moves[number].path);
            numbers.push_back(number);
        }
    }
    if (paths.empty()) {
        return true;
    }
    const auto found = trash_.findByPath(trash, paths);
    if (!found) {
        return false;
    }
    // By number of move, the last one first, so that an erased one does not change the others.
    std::map<std::size_t, std::string, std::greater<>> names;
    for (const TrashedFrom& each : *found) {
        const std::size_t number = numbers[each.path];
        const FileAttributes& now = each.file.attributes;
        std::string& name = names[number];
        if (now.type == EntryType::regular && now.size == moves[number].size &&
            std::pair(each.file.name.size(), each.file.name) > std::pair(name.size(), name) &&
            isUnsteady(pathIn(trash_.filesFolder(trash), each.file.name))) {
            name = each.file.name;
        }
    }
    for (const auto& [number, name] : names) {
        if (!name.empty()) {
            const auto move = moves.begin() + static_cast<std::ptrdiff_t>(number);
            move->trashFolder = trash;
            move->trashName = name;
            outcomes_.push_back(outcomeOfFound(*move));
            moves.erase(move);
        }
    }
    return true;
}

/// Puts the file back if its staying file is not as planned: the check after the move may not have
/// been made.
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
           ((now->modified == move.staying->modified &&
             now->identity.inode == move.staying->inode) ||
            staysWithItsBytes(move, move.staying->path));
}

/// The same if both files are on one unsteady volume: the staying file is another one if it is
/// listed and has the bytes of the moved one. Something mounted on a single file does not count.
bool PlannedOutcomes::staysWithItsBytes(const JournalMove& move, const std::string& path) {
    const std::string moved = pathIn(trash_.filesFolder(move.trashFolder), move.trashName);
    const Result<FileAttributes> stays = fileSystem_.currentAttributesAtPath(path);
    const Result<FileAttributes> away = fileSystem_.currentAttributesAtPath(moved);
    if (path == move.path || !stays || !away || stays->identity.device != away->identity.device ||
        !isUnsteady(moved)) {
        return false;
    }
    const std::vector<MountedFolder> mounted = fileSystem_.mountedFolders();
    return !mounted.empty() &&
           std::none_of(mounted.begin(), mounted.end(),
                        [&](const MountedFolder& each) { return each.mountPoint == path; }) &&
           listsName(fileSystem_, folderPathOf(path), path.substr(path.rfind('/') + 1)) &&
           haveEqualContents(fileSystem_, {path, *stays, true}, {moved, *away, true}, {});
}

}  // namespace tarvin
