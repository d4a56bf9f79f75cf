#include "clean/file_return.h"

#include "platform/file_paths.h"
#include "platform/open_folder.h"
#include "platform/varied_name.h"

#include <cerrno>
#include <filesystem>
#include <utility>

namespace tarvin {

namespace {

/// Limit of most file systems.
constexpr std::size_t maxNameBytes = 255;
/// Names to try before the file is refused.
constexpr std::uint64_t maxNames = 10'000;

std::string_view nameOf(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

std::string nameAtTry(const std::string& own, std::uint64_t number) {
    return number == 0 ? own : putBackName(own, number, maxNameBytes);
}

bool isSameFile(const JournalMove& move, const FileAttributes& now) {
    return now.type == EntryType::regular && now.identity.inode == move.inode &&
           now.size == move.size && now.modified == move.modified;
}

void refuse(PutBackFile& file, SystemError error, std::string reason) {
    file.outcome = PutBackOutcome::refused;
    file.error = error;
    file.reason = std::move(reason);
}

void refuse(PutBackFile& file, const TrashRefusal& refusal) {
    refuse(file, refusal.error, refusal.text);
    file.refusal =
        refusal.kind == TrashRefusalKind::system ? PutBackRefusal::system : PutBackRefusal::trash;
    file.trash = refusal.kind;
}

/// The folder cannot be opened or created.
void refuseFolder(PutBackFile& file, SystemError error) {
    switch (error.code) {
        case ELOOP:
            refuse(file, error, "its folder is a link now");
            file.refusal = PutBackRefusal::link;
            break;
        case ENOTDIR:
            refuse(file, error, "something else is where its folder was");
            file.refusal = PutBackRefusal::notFolder;
            break;
        default:
            refuse(file, error, error.text());
            break;
    }
}

/// Returns the top directory of the volume of a Trash, by the names that Linux and macOS use there;
/// empty for the home Trash.
std::string topOf(const std::string& trash) {
    const std::filesystem::path path(trash);
    if (path.filename().native().starts_with(".Trash-")) {
        return path.parent_path();
    }
    const std::filesystem::path above = path.parent_path().filename();
    if (above == ".Trash" || above == ".Trashes") {
        return path.parent_path().parent_path();
    }
    return {};
}

}  // namespace

std::string_view putBackWord(PutBackOutcome outcome) {
    switch (outcome) {
        case PutBackOutcome::toItsPlace:
            return "toItsPlace";
        case PutBackOutcome::underOtherName:
            return "underOtherName";
        case PutBackOutcome::withItsFolder:
            return "withItsFolder";
        case PutBackOutcome::lost:
            return "lost";
        case PutBackOutcome::changed:
            return "changed";
        case PutBackOutcome::notAttached:
            return "notAttached";
        case PutBackOutcome::refused:
            return "refused";
        case PutBackOutcome::stopped:
            break;
    }
    return "stopped";
}

std::string putBackName(std::string_view name, std::uint64_t number, std::size_t maxBytes) {
    const std::string addition =
        number == 1 ? " (put back)" : " (put back " + std::to_string(number) + ")";
    return variedName(name, addition, maxBytes);
}

PutBackFile FileReturn::fileOf(const JournalMove& move) {
    PutBackFile file;
    file.row = move.row;
    file.path = move.path;
    file.size = move.size;
    file.name = nameOf(move.path);
    return file;
}

/// Checks that the moved file is in the Trash. The outcome is `toItsPlace` if it is.
PutBackFile FileReturn::checkInTrash(const JournalMove& move) {
    PutBackFile file = fileOf(move);
    const auto there = trash_.attributes({move.trashFolder, move.trashName});
    if (there) {
        if (!isMovedFile(move, *there)) {
            file.outcome = PutBackOutcome::changed;
        }
        return file;
    }
    const TrashRefusal& refusal = there.error();
    const bool isGone = refusal.kind == TrashRefusalKind::gone || refusal.error.code == ENOENT ||
                        refusal.error.code == ENOTDIR;
    if (!isGone) {
        refuse(file, refusal);
    } else {
        file.outcome =
            isAttached(move.trashFolder) ? PutBackOutcome::lost : PutBackOutcome::notAttached;
    }
    return file;
}

bool FileReturn::isMovedFile(const JournalMove& move, const FileAttributes& there) {
    if (isSameFile(move, there)) {
        return true;
    }
    if (there.type != EntryType::regular || there.size != move.size) {
        return false;
    }
    const std::uint64_t device = there.identity.device;
    if (!unsteadyVolumes_.contains(device)) {
        const Result<Descriptor> opened =
            fileSystem_.openFile(pathIn(trash_.filesFolder(move.trashFolder), move.trashName));
        if (!opened || !unsteadyVolumes_.examine(fileSystem_, *opened)) {
            return false;
        }
    }
    return unsteadyVolumes_.contains(device) &&
           trash_.wasAt({move.trashFolder, move.trashName}, move.path);
}

PutBackFile FileReturn::check(const JournalMove& move) {
    PutBackFile file = checkInTrash(move);
    if (isBack(file.outcome)) {
        checkDestination(folderPathOf(move.path), file);
    }
    return file;
}

/// Checks where a file in the Trash could go.
void FileReturn::checkDestination(const std::string& folder, PutBackFile& file) {
    std::string nearest = folder;
    ReturnFolders::Opened opened = folders_.open(nearest);
    while (!opened && opened.error().code == ENOENT && nearest != "/") {
        file.outcome = PutBackOutcome::withItsFolder;
        nearest = folderPathOf(nearest);
        opened = folders_.open(nearest);
    }
    if (!opened) {
        refuseFolder(file, opened.error());
        return;
    }
    if (const auto refusal = refusalOfNames((*opened)->descriptor)) {
        refuse(file, *refusal, refusal->text());
        return;
    }
    if (file.outcome == PutBackOutcome::withItsFolder) {
        return;
    }
    const std::string own = file.name;
    for (std::uint64_t number = 0; number < maxNames; ++number) {
        file.name = nameAtTry(own, number);
        if (!fileSystem_.attributesAt((*opened)->descriptor, file.name.c_str())) {
            file.outcome =
                number == 0 ? PutBackOutcome::toItsPlace : PutBackOutcome::underOtherName;
            return;
        }
    }
    refuse(file, SystemError{EEXIST}, SystemError{EEXIST}.text());
}

PutBackFile FileReturn::putBack(const JournalMove& move) {
    PutBackFile file = checkInTrash(move);
    if (!isBack(file.outcome)) {
        return file;
    }
    const std::string path = folderPathOf(move.path);
    ReturnFolders::Opened folder = folders_.open(path);
    const bool isMade = !folder && folder.error().code == ENOENT;
    if (isMade) {
        file.outcome = PutBackOutcome::withItsFolder;
        folder = folders_.openOrMake(path);
    }
    if (folder) {
        putBackInto(**folder, move, file);
    } else {
        refuseFolder(file, folder.error());
    }
    if (isMade && !isBack(file.outcome)) {
        folders_.removeMade();
    }
    return file;
}

void FileReturn::putBackInto(const OpenFolder& folder, const JournalMove& move, PutBackFile& file) {
    const TrashPlace place{move.trashFolder, move.trashName};
    const std::string own = file.name;
    for (std::uint64_t number = 0; number < maxNames; ++number) {
        file.name = nameAtTry(own, number);
        const auto refusal = trash_.putBack(place, folder.descriptor, file.name.c_str());
        if (!refusal) {
            if (number != 0) {
                file.outcome = PutBackOutcome::underOtherName;
            }
            return;
        }
        if (refusal->kind == TrashRefusalKind::gone) {
            file.outcome = PutBackOutcome::lost;
            return;
        }
        if (refusal->kind != TrashRefusalKind::taken) {
            refuse(file, *refusal);
            return;
        }
    }
    refuse(file, SystemError{EEXIST}, SystemError{EEXIST}.text());
}

bool FileReturn::isBackAlready(const JournalMove& move) {
    const std::string folder = folderPathOf(move.path);
    const std::string own(nameOf(move.path));
    for (std::uint64_t number = 0; number < maxNames; ++number) {
        const auto now = fileSystem_.attributesAtPath(pathIn(folder, nameAtTry(own, number)));
        if (!now) {
            return false;
        }
        if (isSameFile(move, *now)) {
            return true;
        }
    }
    return false;
}

/// Whether the volume of a Trash is mounted: a mount point has another device than its parent.
bool FileReturn::isAttached(const std::string& trash) {
    const std::string top = topOf(trash);
    if (top.empty() || top == "/" || fileSystem_.attributesAtPath(trash)) {
        return true;
    }
    const auto mounted = fileSystem_.attributesAtPath(top);
    const auto above = fileSystem_.attributesAtPath(folderPathOf(top));
    return mounted && above && mounted->identity.device != above->identity.device;
}

}  // namespace tarvin
