#include "scan/checked_trash.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace tarvin {

namespace {

bool isAsCompared(const File& file, const FileAttributes& now) {
    return now.type == EntryType::regular && now.size == file.fileSize() &&
           now.modified == file.fileModificationDate();
}

bool isMissing(SystemError error) {
    return error.code == ENOENT || error.code == ENOTDIR;
}

}  // namespace

CheckedTrash::CheckedTrash(FileSystem& fileSystem, Trash& trash, Report report,
                           std::function<bool()> stopped)
    : fileSystem_(fileSystem),
      trash_(trash),
      report_(std::move(report)),
      stopped_(std::move(stopped)) {}

CheckedTrash::CheckedTrash(FileSystem& fileSystem, Trash& trash, WholeSets wholeSets)
    : fileSystem_(fileSystem), trash_(trash), wholeSets_(wholeSets) {}

void CheckedTrash::beginSet(const Set& set) {
    mayTakeAll_ = wholeSets_ == WholeSets::goIfMarked &&
                  std::all_of(set.files().begin(), set.files().end(),
                              [](const auto& file) { return file->state() != CheckState::off; });
    files_.clear();
    byPath_.clear();
    survivor_ = 0;
    for (const std::shared_ptr<File>& file : set.files()) {
        files_.push_back(file.get());
        byPath_.emplace(file->filePath(), file.get());
    }
}

bool CheckedTrash::fileExistsAtPath(const std::string& path) {
    return byPath_.contains(path);
}

bool CheckedTrash::trashItemAtPath(const std::string& path) {
    const auto found = byPath_.find(path);
    if (found == byPath_.end()) {
        return false;
    }
    const File& file = *found->second;
    const MoveOutcome outcome = move(file, path);
    if (report_) {
        report_(file, outcome);
    }
    return outcome == MoveOutcome::moved;
}

MoveOutcome CheckedTrash::move(const File& file, const std::string& path) {
    if (stopped_ && stopped_()) {
        return MoveOutcome::stopped;
    }
    const Result<Place> place = look(file);
    if (!place) {
        return isMissing(place.error()) ? MoveOutcome::gone : MoveOutcome::changed;
    }
    if (!isAsCompared(file, place->attributes)) {
        return MoveOutcome::changed;
    }
    if (!mayTakeAll_ && !anotherIsThere(file, *place)) {
        return MoveOutcome::lastCopy;
    }
    return trash_.trashItemAtPath(path) ? MoveOutcome::moved : MoveOutcome::refused;
}

/// Relative to its open folder, so that a path of any length will do.
Result<CheckedTrash::Place> CheckedTrash::look(const File& file) {
    const Result<Descriptor> folder = fileSystem_.openRootDirectory(file.directory()->path());
    if (!folder) {
        return folder.error();
    }
    const Result<FileAttributes> folderNow = fileSystem_.attributesOf(*folder);
    if (!folderNow) {
        return folderNow.error();
    }
    const Result<FileAttributes> now =
        fileSystem_.attributesAt(*folder, std::string(file.fileName()).c_str());
    if (!now) {
        return now.error();
    }
    return Place{folderNow->identity, *now};
}

/// Begins with the one that was there the last time: most often the first of the set stays.
bool CheckedTrash::anotherIsThere(const File& file, const Place& place) {
    for (std::size_t step = 0; step < files_.size(); ++step) {
        const std::size_t number = (survivor_ + step) % files_.size();
        if (files_[number] != &file && isAnother(*files_[number], file, place)) {
            survivor_ = number;
            return true;
        }
    }
    return false;
}

/// Not the same name on another way, as where a folder was put under a link meanwhile.
bool CheckedTrash::isAnother(const File& other, const File& file, const Place& place) {
    const Result<Place> now = look(other);
    if (!now || !isAsCompared(other, now->attributes)) {
        return false;
    }
    if (now->attributes.identity != place.attributes.identity) {
        return true;
    }
    const bool sameName = now->folder == place.folder && other.fileName() == file.fileName();
    return now->attributes.linkCount > 1 && !sameName;
}

}  // namespace tarvin
