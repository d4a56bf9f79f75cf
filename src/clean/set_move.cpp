#include "clean/set_move.h"

#include "clean/listed_name.h"
#include "platform/file_paths.h"
#include "platform/open_folder.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <utility>

namespace tarvin {

namespace {

bool isMarked(const File& file) {
    return file.state() != CheckState::off;
}

/// Returns the outcome of errors that are not refusals of the system.
std::optional<MoveOutcome> outcomeOf(SystemError error) {
    switch (error.code) {
        case ENOENT:
        case ENOTDIR:
            return MoveOutcome::gone;
        case ESTALE:
        case ELOOP:
            return MoveOutcome::changed;
        default:
            return std::nullopt;
    }
}

MoveResult resultOf(SystemError error) {
    const std::optional<MoveOutcome> outcome = outcomeOf(error);
    return outcome
               ? MoveResult{*outcome, {}}
               : MoveResult{MoveOutcome::refused, error.text(), TrashRefusalKind::system, error};
}

}  // namespace

SetMove::SetMove(const MoveTools& tools, const Set& set, bool mayTakeAll)
    : tools_(tools), mayTakeAll_(mayTakeAll) {
    for (const std::shared_ptr<File>& file : set.files()) {
        files_.push_back(file.get());
    }
    const auto marked = std::stable_partition(files_.begin(), files_.end(),
                                              [](const File* file) { return !isMarked(*file); });
    mayTakeAll_ = mayTakeAll_ && marked == files_.begin() && allUnchanged();
}

MoveResult SetMove::move(const File& file, TrashPlace& place) {
    if (isStopped()) {
        return {MoveOutcome::stopped, {}};
    }
    isDoubtful_ = false;
    before(MoveStep::checkFile);
    const Result<Seen> seen = stat(file);
    if (!seen) {
        return resultOf(seen.error());
    }
    const Match match = this->match(file, seen->attributes);
    if (match == Match::different) {
        return {MoveOutcome::changed, {}};
    }
    if (match == Match::onlySize) {
        mayTakeAll_ = false;
    }
    before(MoveStep::findSurvivor);
    if (!mayTakeAll_ && !findSurvivor(file, *seen)) {
        return leftWith(unlessStopped(MoveOutcome::lastCopy));
    }
    if (mayTakeAll_ && match == Match::otherChange && !isAsMoved(file, *seen) &&
        !findSurvivor(file, *seen)) {
        return {unlessStopped(MoveOutcome::changed), {}};
    }
    return moveSeen(file, *seen, place);
}

/// Whether the content equals that of the file of the set that was moved last. Moving one hard link
/// changes the change date of all.
bool SetMove::isAsMoved(const File& file, const Seen& seen) const {
    if (!moved_) {
        return false;
    }
    const FileAttributes& moved = moved_->attributes;
    return (moved.identity == seen.attributes.identity &&
            moved.changed == seen.attributes.changed) ||
           haveEqualContents(tools_.fileSystem, *moved_, {file.filePath(), seen.attributes},
                             tools_.stopped);
}

/// Relative to the open folder, so that the path may be of any length.
Result<SetMove::Seen> SetMove::stat(const File& file) {
    const Result<std::shared_ptr<const OpenFolder>> folder = tools_.folders.open(*file.directory());
    if (!folder) {
        return folder.error();
    }
    Result<FileAttributes> now =
        tools_.fileSystem.attributesAt((*folder)->descriptor, std::string(file.fileName()).c_str());
    if (!now) {
        return now.error();
    }
    return Seen{*folder, *now};
}

SetMove::Match SetMove::match(const File& file, const FileAttributes& now) {
    if (now.type != EntryType::regular || now.size != file.fileSize()) {
        return Match::different;
    }
    const Match stated = statedMatch(file, now);
    return stated != Match::asCompared && isUnsteady(file, now) ? Match::onlySize : stated;
}

/// By the metadata alone.
SetMove::Match SetMove::statedMatch(const File& file, const FileAttributes& now) const {
    if (now.modified != file.fileModificationDate()) {
        return Match::different;
    }
    const ComparedState* const compared = file.compared();
    if (compared == nullptr) {
        return Match::otherChange;
    }
    if (now.identity != compared->identity) {
        return Match::different;
    }
    const auto confirmed = confirmed_.find(&file);
    const bool isConfirmed = confirmed != confirmed_.end() && confirmed->second == now.changed;
    return now.changed == compared->changed || isConfirmed ? Match::asCompared : Match::otherChange;
}

/// Whether the volume of a file that is not as compared is unsteady. Asks it at most once for each
/// such file.
bool SetMove::isUnsteady(const File& file, const FileAttributes& now) {
    UnsteadyVolumes& volumes = tools_.unsteadyVolumes;
    if (volumes.contains(now.identity.device)) {
        return true;
    }
    if (const ComparedState* const compared = file.compared()) {
        FileAttributes before = now;
        before.identity = compared->identity;
        before.modified = file.fileModificationDate();
        before.changed = compared->changed;
        if (volumes.addIfRenumbered(before, now)) {
            return true;
        }
    }
    const Result<Descriptor> opened = tools_.fileSystem.openFile(file.filePath());
    return opened && volumes.examine(tools_.fileSystem, *opened) &&
           volumes.contains(now.identity.device);
}

/// Whether every file is as compared or has the bytes of the first.
bool SetMove::allUnchanged() {
    const File* first = nullptr;
    FileAttributes firstNow;
    for (const File* const file : files_) {
        const Result<Seen> seen = stat(*file);
        if (!seen) {
            return false;
        }
        const Match match = this->match(*file, seen->attributes);
        if (match == Match::different || match == Match::onlySize ||
            (match == Match::otherChange &&
             (first == nullptr || !confirmEqual(*first, firstNow, *file, seen->attributes)))) {
            return false;
        }
        if (first == nullptr) {
            first = file;
            firstNow = seen->attributes;
        }
    }
    return true;
}

/// Starts with the last one found.
std::optional<std::size_t> SetMove::findSurvivor(const File& file, const Seen& seen) {
    for (std::size_t step = 0; step < files_.size(); ++step) {
        const std::size_t number = (survivor_ + step) % files_.size();
        if (files_[number] != &file && survives(*files_[number], file, seen)) {
            survivor_ = number;
            return number;
        }
    }
    return std::nullopt;
}

/// Whether `other` is as compared and not the same file under another path, as with a bind mount.
bool SetMove::survives(const File& other, const File& file, const Seen& seen) {
    const Result<Seen> now = stat(other);
    if (!now) {
        return false;
    }
    const Match others = match(other, now->attributes);
    const Match files = match(file, seen.attributes);
    if (others == Match::different) {
        return false;
    }
    const bool sameName =
        now->folder->identity == seen.folder->identity && other.fileName() == file.fileName();
    const bool sameIdentity = now->attributes.identity == seen.attributes.identity;
    if (sameIdentity && (now->attributes.linkCount < 2 || sameName)) {
        return false;
    }
    comparesArrived_ = others == Match::onlySize || files == Match::onlySize;
    if (comparesArrived_) {
        if (sameName || !hasBytesOf(other, {file.filePath(), seen.attributes, true})) {
            return false;
        }
    } else if (!sameIdentity && (others == Match::otherChange || files == Match::otherChange) &&
               !confirmEqual(other, now->attributes, file, seen.attributes)) {
        return false;
    }
    survivorState_ = now->attributes;
    return true;
}

/// Whether a file of the set is at its path, is not the given one as another mount may remember it,
/// and has its bytes.
bool SetMove::hasBytesOf(const File& other, const SeenFile& file) {
    const std::string path = other.filePath();
    const Result<Seen> seen = stat(other);
    if (path == file.path || !seen || mayBeMountPoint(*seen->folder, other)) {
        return false;
    }
    const Result<FileAttributes> now = tools_.fileSystem.currentAttributesAtPath(path);
    if (!now) {
        return false;
    }
    const Match match = this->match(other, *now);
    const bool isOnSameVolume = now->identity.device == file.attributes.identity.device;
    const bool isDoubtful = match != Match::asCompared && !isOnSameVolume;
    if (match == Match::different || (isDoubtful && isDoubtful_)) {
        return false;
    }
    const bool isEqual = haveEqualContents(
        tools_.fileSystem, {path, *now, match == Match::onlySize}, file, tools_.stopped);
    isDoubtful_ = isDoubtful_ || (isDoubtful && isEqual);
    return isEqual && !isDoubtful;
}

/// Whether something may be mounted at the path of a file: that would stay there even if the file
/// were moved under its other name.
bool SetMove::mayBeMountPoint(const OpenFolder& folder, const File& file) {
    const std::optional<std::string> path = currentPathOf(folder.descriptor);
    const std::vector<MountedFolder> mounted = tools_.fileSystem.mountedFolders();
    return !path || mounted.empty() ||
           std::any_of(mounted.begin(), mounted.end(),
                       [place = pathIn(*path, file.fileName())](const MountedFolder& each) {
                           return each.mountPoint == place;
                       });
}

/// Whether a file of the set other than the moved one has the bytes that arrived in the Trash.
/// Starts with the survivor. Two names in one folder are two entries, so there the listing need not
/// be asked.
bool SetMove::anyHasBytesOf(const File& file, const SeenFile& arrived) {
    tools_.folders.invalidate();
    for (std::size_t step = 0; step < files_.size(); ++step) {
        const File* const other = files_[(survivor_ + step) % files_.size()];
        if (other != &file && other->filePath() != file.filePath() &&
            (other->directory() == file.directory() ||
             listsName(tools_.fileSystem, other->directory()->path(), other->fileName())) &&
            hasBytesOf(*other, arrived)) {
            return true;
        }
    }
    return false;
}

/// Compares bytes. A file found equal to one as compared is not read again until its change date
/// changes.
bool SetMove::confirmEqual(const File& one, const FileAttributes& oneNow, const File& other,
                           const FileAttributes& otherNow) {
    if (!haveEqualContents(tools_.fileSystem, {one.filePath(), oneNow},
                           {other.filePath(), otherNow}, tools_.stopped)) {
        return false;
    }
    if (match(one, oneNow) == Match::asCompared && other.compared() != nullptr) {
        confirmed_[&other] = otherNow.changed;
    } else if (match(other, otherNow) == Match::asCompared && one.compared() != nullptr) {
        confirmed_[&one] = oneNow.changed;
    }
    return true;
}

MoveResult SetMove::moveSeen(const File& file, const Seen& seen, TrashPlace& place) {
    before(MoveStep::moveToTrash);
    const std::string name(file.fileName());
    Result<TrashPlace, TrashRefusal> moved = tools_.trash.move(*seen.folder, name.c_str());
    if (!moved) {
        const TrashRefusal refusal = moved.error();
        return refusal.kind == TrashRefusalKind::gone
                   ? MoveResult{MoveOutcome::gone, {}}
                   : MoveResult{MoveOutcome::refused, refusal.text, refusal.kind, refusal.error};
    }
    place = std::move(*moved);
    before(MoveStep::recheck);
    const std::optional<MoveOutcome> failure = recheck(file, seen, place);
    return failure ? moveBack(file, seen, place, *failure) : MoveResult{MoveOutcome::moved, {}};
}

/// Returns nullopt if the file that arrived is the one checked and the survivor is still there.
std::optional<MoveOutcome> SetMove::recheck(const File& file, const Seen& seen,
                                            const TrashPlace& place) {
    const Result<FileAttributes, TrashRefusal> arrived = tools_.trash.attributes(place);
    if (comparesArrived_) {
        const bool isSafe = arrived && arrived->type == EntryType::regular &&
                            anyHasBytesOf(file, {pathOf(place), *arrived, true});
        return isSafe ? std::nullopt : std::optional(unlessStopped(MoveOutcome::lastCopy));
    }
    if (!arrived || !isSameFile(seen.attributes, *arrived)) {
        return MoveOutcome::changed;
    }
    if (mayTakeAll_) {
        moved_ = {pathOf(place), *arrived};
        return std::nullopt;
    }
    if (isUnchangedNow(*files_[survivor_], *arrived)) {
        return std::nullopt;
    }
    // The open folders may have been moved, and the metadata may come from a cache.
    tools_.folders.invalidate();
    return findSurvivor(file, seen) && isUnchangedNow(*files_[survivor_], *arrived)
               ? std::nullopt
               : std::optional(unlessStopped(MoveOutcome::lastCopy));
}

/// Checks by path, since the folder may have been moved since it was opened, and bypasses caches,
/// which may be older than the move. Moving a file changes the change date of its other hard links.
bool SetMove::isUnchangedNow(const File& file, const FileAttributes& moved) {
    const Result<FileAttributes> now = tools_.fileSystem.currentAttributesAtPath(file.filePath());
    return now && isSameFile(survivorState_, *now) &&
           (now->identity == moved.identity || now->changed == survivorState_.changed);
}

std::string SetMove::pathOf(const TrashPlace& place) const {
    return pathIn(tools_.trash.filesFolder(place.trash), place.name);
}

/// If that fails, the file stays in the Trash with its .trashinfo file.
MoveResult SetMove::moveBack(const File& file, const Seen& seen, const TrashPlace& place,
                             MoveOutcome outcome) {
    before(MoveStep::moveBack);
    const std::string name(file.fileName());
    const std::optional<TrashRefusal> refusal =
        tools_.trash.putBack(place, seen.folder->descriptor, name.c_str());
    return refusal ? MoveResult{MoveOutcome::moved, refusal->text, refusal->kind, refusal->error}
                   : leftWith(outcome);
}

MoveResult SetMove::leftWith(MoveOutcome outcome) const {
    const bool isDoubtful = outcome == MoveOutcome::lastCopy && isDoubtful_;
    return {outcome, isDoubtful ? "its copy on another volume may be the same file" : ""};
}

bool SetMove::isStopped() const {
    return tools_.stopped && tools_.stopped();
}

/// A stop ends a byte comparison early, so that its result says nothing about the contents.
MoveOutcome SetMove::unlessStopped(MoveOutcome outcome) const {
    return isStopped() ? MoveOutcome::stopped : outcome;
}

void SetMove::before(MoveStep step) const {
    if (tools_.beforeStep) {
        tools_.beforeStep(step);
    }
}

}  // namespace tarvin
