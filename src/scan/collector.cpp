#include "scan/collector.h"

#include "platform/file_paths.h"
#include "scan/own_folder.h"
#include "scan/trash_folders.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

namespace tarvin {

namespace {

// Exact names, at any depth: folders of system files, and Trash folders.
constexpr std::array<std::string_view, 7> skippedNames{
    ".Trashes", ".Trash", "Applications", "System", "Library", "private", "usr"};

bool isSkipped(std::string_view name) {
    return std::find(skippedNames.begin(), skippedNames.end(), name) != skippedNames.end() ||
           isVolumeTrash(name);
}

/// A file without an extension is never collected, so its attributes are not read.
EntryInterest interestIn(std::string_view name) {
    if (isSkipped(name)) {
        return EntryInterest::none;
    }
    return pathExtension(name).empty() ? EntryInterest::name : EntryInterest::attributes;
}

/// Levels below a location that are walked on an unsteady volume. Identities cannot show there that
/// a folder leads into itself, as links made by a server can; its path would grow without end.
constexpr int maxUnsteadyLevels = 100;

bool isTooDeep(const Directory& directory) {
    int levels = 0;
    for (const Directory* above = directory.parent; above != nullptr; above = above->parent) {
        ++levels;
    }
    return levels > maxUnsteadyLevels;
}

/// `filter` must outlive the result.
TreeReader::Interest interestWith(const ScanFilter& filter) {
    return [&filter](const Directory& folder, std::string_view name, EntryType type) {
        return filter.skips(folder, name, type) ? EntryInterest::none : interestIn(name);
    };
}

}  // namespace

/// A folder that the walk is inside of, with its current block and the position in it.
struct Collector::OpenFolder {
    const Directory* directory = nullptr;
    std::shared_ptr<TreeReader::Listing> listing;
    std::unique_ptr<TreeReader::Block> block;
    std::size_t nextEntry = 0;
    std::size_t nextFolder = 0;
};

Collector::Collector(const ScanServices& services, const ExceptionFilter& exceptions,
                     const ScanFilter& filter, ScanObserver& observer, ProgressGate& gate,
                     CategoryLists& lists)
    : fileSystem_(services.fileSystem),
      control_(services.control),
      watch_(services.watch),
      unreadableLog_(services.unreadable),
      unsteadyVolumes_(services.unsteadyVolumes),
      exceptions_(exceptions),
      filter_(filter),
      observer_(observer),
      gate_(gate),
      lists_(lists),
      reader_(
          services, interestWith(filter),
          [this](const Directory& parent, std::string_view name) {
              return lists_.store->addDirectory(&parent, name);
          },
          [this] { waitWhilePaused(); },
          filter.oneFileSystem ? TreeReader::Devices::ofTheRoot : TreeReader::Devices::all) {}

Collector::Outcome Collector::addAllPhotos(std::vector<LocationRow>& rows) {
    observer_.collectionStarted();
    for (const LocationRow& row : rows) {
        if (control_.stop()) {
            return Outcome::stopped;
        }
        waitWhilePaused();
        if (row.folder && row.state) {
            row.mayBeFile ? takeGiven(row.name) : acceptFilenameDrag3(row.name);
        }
    }
    const bool nothing = lists_.total() == 0;
    if (nothing) {
        observer_.nothingCollected();
    }
    rows.clear();
    observer_.collectionFinished();
    return nothing ? Outcome::nothing : Outcome::collected;
}

void Collector::acceptFilenameDrag3(const std::string& path) {
    waitWhilePaused();
    if (control_.stop()) {
        return;
    }
    if (path.empty()) {
        // An empty path must not mean the root folder.
        unreadable_.push_back({path, SystemError{ENOENT}});
        return;
    }
    Directory* root = lists_.store->addRoot(path);
    const Result<bool> inTrash = isLocationInTrash(*root);
    if (!inTrash) {
        // Opening it fails as well, as a rule, and tells more.
        const IoWatch::Call call(watch_, *root);
        const Result<Descriptor> opened = fileSystem_.openRootDirectory(path);
        unreadable_.push_back({path, opened ? inTrash.error() : opened.error()});
        return;
    }
    if (*inTrash) {
        unreadable_.push_back({path, SystemError{EOPNOTSUPP}, true});
        return;
    }
    const std::shared_ptr<TreeReader::Listing> listing = TreeReader::makeRoot(root);
    std::vector<OpenFolder> open;
    if (enter(*root, listing)) {
        open.push_back({root, listing, nullptr, 0, 0});
        walk(open);
    }
    for (; !open.empty(); open.pop_back()) {
        leave(open.back());
    }
    if (const std::optional<SystemError> failure = reader_.failureOf(listing)) {
        unreadable_.push_back({path, *failure});
    }
}

/// `path` is absolute.
void Collector::takeGiven(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    const std::string parent = slash == 0 ? "/" : path.substr(0, slash);
    GivenFolder& folder = givenFolders_[parent];
    if (folder.directory == nullptr) {
        folder.directory = lists_.store->addRoot(parent);
    }
    Result<FileAttributes> attributes = SystemError{ENOENT};
    {
        const IoWatch::Call call(watch_, *folder.directory);
        attributes = fileSystem_.attributesAtPath(path);
    }
    if (!attributes) {
        unreadable_.push_back({path, attributes.error(), false, false});
    } else if (attributes->type == EntryType::regular) {
        takeGivenFile(folder, std::string_view(path).substr(slash + 1), *attributes);
    } else {
        const std::size_t before = unreadable_.size();
        acceptFilenameDrag3(path);
        // A link to a folder is followed; links to files are not.
        if (unreadable_.size() > before && unreadable_.back().error.code == ENOTDIR) {
            unreadable_.back().isSpecial = true;
        }
    }
}

void Collector::takeGivenFile(GivenFolder& folder, std::string_view name,
                              const FileAttributes& attributes) {
    check(folder);
    if (folder.isOwn) {
        return;
    }
    if (folder.failure) {
        unreadable_.push_back(
            {folder.directory->pathOf(name), *folder.failure, folder.isTrash, false});
        return;
    }
    if (!taken_) {
        taken_.emplace(lists_);
    }
    if (interestIn(name) == EntryInterest::attributes &&
        !filter_.excludes(*folder.directory, name, EntryType::regular)) {
        takeFile(*folder.directory, {name, EntryType::regular, true, {}, attributes});
    }
}

/// Once for each folder: finding out whether it is in a Trash takes several calls.
void Collector::check(GivenFolder& folder) {
    if (folder.isChecked) {
        return;
    }
    folder.isChecked = true;
    const Result<bool> inTrash = isLocationInTrash(*folder.directory);
    if (!inTrash) {
        folder.failure = inTrash.error();
        return;
    }
    folder.isTrash = *inTrash;
    if (folder.isTrash) {
        folder.failure = SystemError{EOPNOTSUPP};
        return;
    }
    const Result<FileAttributes> attributes = attributesOf(folder);
    if (attributes) {
        folder.directory->identity = identityFor(*folder.directory, attributes->identity);
    } else {
        folder.failure = attributes.error();
    }
}

/// The attributes of the folder itself, not of a symbolic link, after its volume has been examined.
Result<FileAttributes> Collector::attributesOf(GivenFolder& folder) {
    const IoWatch::Call call(watch_, *folder.directory);
    folder.isOwn = holdsOwnFiles(*folder.directory);
    Result<FileAttributes> attributes =
        fileSystem_.attributesAtPath(folder.directory->path() + "/.");
    if (!attributes) {
        return attributes;
    }
    if (fileSystem_.isPseudoFileSystem(attributes->identity.device)) {
        return SystemError{EOPNOTSUPP};
    }
    examineVolume(*folder.directory, attributes->identity);
    return attributes;
}

/// Continues with the innermost open folder until all are done, or the scan is stopped.
void Collector::walk(std::vector<OpenFolder>& open) {
    while (!open.empty()) {
        OpenFolder& folder = open.back();
        if (!folder.block || folder.nextEntry == folder.block->entries.size()) {
            folder.block = reader_.nextBlock(folder.listing);
            folder.nextEntry = 0;
            folder.nextFolder = 0;
            if (!folder.block) {
                leave(folder);
                open.pop_back();
            }
            continue;
        }
        waitWhilePaused();
        if (control_.stop()) {
            return;
        }
        const ListedEntry& entry = folder.block->entries[folder.nextEntry++];
        if (entry.type == EntryType::directory) {
            const TreeReader::Folder& inside = folder.block->folders[folder.nextFolder++];
            if (enter(*inside.directory, inside.listing)) {
                open.push_back({inside.directory, inside.listing, nullptr, 0, 0});
            }
        } else if (entry.error.code != 0) {
            unreadableLog_.addFile(*folder.directory, entry.name, entry.error);
        } else if (entry.type == EntryType::regular && entry.attributesKnown) {
            takeFile(*folder.directory, entry);
        }
    }
}

/// Returns whether the folder can be listed and has not been walked yet. Closes it if not.
bool Collector::enter(Directory& directory, const std::shared_ptr<TreeReader::Listing>& listing) {
    const Result<FileIdentity> told = reader_.identityOf(listing);
    if (told) {
        const FileIdentity identity = identityFor(directory, *told);
        if (unsteadyVolumes_.contains(told->device) && isTooDeep(directory)) {
            unreadableLog_.addFolder(directory, SystemError{EMLINK});
        } else if (walked_.insert(identity).second) {
            directory.identity = identity;
            return true;
        }
    } else {
        noteFailure(directory, listing);
    }
    reader_.close(listing);
    return false;
}

/// As TreeReader does for the folders that are walked. Called inside an IoWatch::Call.
void Collector::examineVolume(const Directory& directory, const FileIdentity& told) {
    const std::string path = directory.path();
    const Result<FileAttributes> again = fileSystem_.currentAttributesAtPath(path + "/.");
    if (again && again->identity.device == told.device && again->identity != told) {
        const Result<Descriptor> opened = fileSystem_.openRootDirectory(path);
        if (opened) {
            unsteadyVolumes_.examine(fileSystem_, *opened);
        }
    }
}

/// The identity told by the volume or, if that is worth nothing, one made up for the path: numbered
/// from the highest inode number down, which no volume reaches.
FileIdentity Collector::identityFor(const Directory& directory, const FileIdentity& told) {
    if (!unsteadyVolumes_.contains(told.device)) {
        return told;
    }
    const FileIdentity made{told.device, ~std::uint64_t{0} - madeIdentities_.size()};
    return madeIdentities_.try_emplace(placeOf(realPathOf(directory)), made).first->second;
}

/// The file system and the path within it, so that a bind mount leads to the same place.
std::string Collector::placeOf(const std::string& realPath) {
    if (!mounted_) {
        mounted_ = fileSystem_.mountedFolders();
    }
    const MountedFolder* nearest = nullptr;
    for (const MountedFolder& each : *mounted_) {
        // Of those at one mount point the last one hides the others.
        if (isWithin(realPath, each.mountPoint) &&
            (nearest == nullptr || each.mountPoint.size() >= nearest->mountPoint.size())) {
            nearest = &each;
        }
    }
    if (nearest == nullptr) {
        return realPath;
    }
    const std::string root = nearest->root == "/" ? "" : nearest->root;
    const std::string below =
        realPath.substr(nearest->mountPoint == "/" ? 0 : nearest->mountPoint.size());
    return std::to_string(nearest->fileSystem) + ':' + root + below;
}

/// The path with the symbolic links of its location resolved; below that none is followed.
std::string Collector::realPathOf(const Directory& directory) {
    const Directory* root = &directory;
    while (root->parent != nullptr) {
        root = root->parent;
    }
    const std::string rootPath = root->path();
    const auto [known, isNew] = realRoots_.try_emplace(root);
    if (isNew) {
        const IoWatch::Call call(watch_, *root);
        std::error_code failure;
        const std::filesystem::path real = std::filesystem::canonical(rootPath, failure);
        known->second = failure ? rootPath : real.native();
    }
    if (root == &directory) {
        return known->second;
    }
    const std::string below = directory.path().substr(rootPath == "/" ? 1 : rootPath.size() + 1);
    return known->second + (known->second == "/" ? "" : "/") + below;
}

/// Closes the folder, with those inside it that a stopped walk has not reached, and logs the error
/// if its listing ended early.
void Collector::leave(const OpenFolder& folder) {
    noteFailure(*folder.directory, folder.listing);
    if (folder.block) {
        for (std::size_t at = folder.nextFolder; at < folder.block->folders.size(); ++at) {
            reader_.close(folder.block->folders[at].listing);
        }
    }
    reader_.close(folder.listing);
}

void Collector::noteFailure(const Directory& directory,
                            const std::shared_ptr<TreeReader::Listing>& listing) {
    const bool isLocation = directory.parent == nullptr;
    const std::optional<SystemError> failure = reader_.failureOf(listing);
    if (failure && !isLocation && !reader_.isRefused(listing)) {
        unreadableLog_.addFolder(directory, *failure);
    }
}

Result<bool> Collector::isLocationInTrash(const Directory& location) {
    const IoWatch::Call call(watch_, location);
    return isInTrash(fileSystem_, location.path());
}

/// Whether it is the folder with the program's own files, which are skipped.
bool Collector::holdsOwnFiles(const Directory& folder) {
    const std::string path = folder.path();
    const Result<Descriptor> opened = fileSystem_.openRootDirectory(path);
    const Result<FileAttributes> attributes =
        opened ? fileSystem_.attributesOf(*opened) : Result<FileAttributes>(opened.error());
    return attributes &&
           isOwnFolder(fileSystem_, unsteadyVolumes_, path, *opened, attributes->identity);
}

void Collector::takeFile(const Directory& directory, const ListedEntry& entry) {
    if (entry.attributes.immutable || !filter_.takesSize(entry.attributes.size)) {
        return;
    }
    if (gate_.due()) {
        reportFile(directory, entry);
    }
    if (!exceptions_.contains(directory, entry.name)) {
        addToArrayFile(directory, entry);
    }
}

/// For a file that is never collected only the name is known. Its attributes, which show whether it
/// is locked and must not be reported, are read only for the few files that are due to be reported.
void Collector::reportFile(const Directory& directory, const ListedEntry& entry) {
    const std::string path = directory.pathOf(entry.name);
    if (interestIn(entry.name) == EntryInterest::name) {
        const IoWatch::Call call(watch_, directory);
        const Result<FileAttributes> attributes = fileSystem_.attributesAtPath(path);
        if (!attributes || attributes->immutable) {
            return;
        }
    }
    observer_.collecting(path);
}

void Collector::addToArrayFile(const Directory& directory, const ListedEntry& entry) {
    const std::optional<Category> category =
        classifier_.classify(entry.name, directory.insideBundle);
    if (!category || (taken_ && taken_->contains(directory, entry.name))) {
        return;
    }
    File* const file = lists_.store->addFile(&directory, entry.name, entry.attributes);
    lists_.of(*category).push_back(file);
    if (taken_) {
        taken_->add(*file);
    }
}

void Collector::waitWhilePaused() {
    if (!control_.pause()) {
        return;
    }
    observer_.collectionPaused(true);
    control_.waitWhilePaused();
    observer_.collectionPaused(false);
}

}  // namespace tarvin
