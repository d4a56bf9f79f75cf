#include "scan/list_collector.h"

#include "scan/own_folder.h"
#include "scan/trash_folders.h"

namespace tarvin {

ListCollector::ListCollector(const ScanServices& services, const ExceptionFilter& exceptions,
                             ScanObserver& observer, ProgressGate& gate, CategoryLists& lists)
    : fileSystem_(services.fileSystem),
      control_(services.control),
      watch_(services.watch),
      unsteadyVolumes_(services.unsteadyVolumes),
      exceptions_(exceptions),
      observer_(observer),
      gate_(gate),
      lists_(lists) {}

Collector::Outcome ListCollector::collect(ListedFiles& files) {
    observer_.collectionStarted();
    for (ListedFile& entry : files) {
        control_.waitWhilePaused();
        if (control_.stop()) {
            return Collector::Outcome::stopped;
        }
        if (entry.state == ListedState::usable || entry.state == ListedState::repeated) {
            take(entry);
        }
    }
    const bool nothing = lists_.total() == 0;
    if (nothing) {
        observer_.nothingCollected();
    }
    observer_.collectionFinished();
    return nothing ? Collector::Outcome::nothing : Collector::Outcome::collected;
}

void ListCollector::take(ListedFile& entry) {
    const std::string_view path = entry.path;
    const std::size_t slash = path.rfind('/');
    const Folder& folder = folderOf(path.substr(0, slash));
    if (folder.state != ListedState::usable) {
        entry.state = folder.state;
        entry.error = folder.error;
        return;
    }
    const IoWatch::Call call(watch_, *folder.directory);
    const Result<FileAttributes> attributes = fileSystem_.attributesAtPath(entry.path);
    if (!attributes) {
        entry.state = ListedState::unreadable;
        entry.error = attributes.error();
    } else if (attributes->type == EntryType::directory) {
        entry.state = ListedState::isFolder;
    } else if (attributes->type != EntryType::regular) {
        entry.state = ListedState::isSpecial;
    } else {
        add(entry, folder, path.substr(slash + 1), *attributes);
    }
}

void ListCollector::add(ListedFile& entry, const Folder& folder, std::string_view name,
                        const FileAttributes& attributes) {
    if (entry.state == ListedState::usable) {
        if (exceptions_.contains(*folder.directory, name)) {
            entry.state = ListedState::excluded;
        } else if (attributes.immutable) {
            entry.state = ListedState::locked;
        }
    }
    entry.file = lists_.store->addFile(folder.directory, name, attributes);
    lists_.of(Category::other).push_back(entry.file);
    if (gate_.due()) {
        observer_.collecting(entry.path);
    }
}

const ListCollector::Folder& ListCollector::folderOf(std::string_view path) {
    const auto [known, isNew] = folders_.try_emplace(std::string(path));
    Folder& folder = known->second;
    if (isNew) {
        folder.directory = lists_.store->addRoot(path);
        examine(folder);
    }
    return folder;
}

/// The folder itself may be a symbolic link, as the folder of a scan: only its identity counts.
void ListCollector::examine(Folder& folder) {
    const IoWatch::Call call(watch_, *folder.directory);
    const std::string path = folder.directory->path();
    const Result<Descriptor> opened = fileSystem_.openRootDirectory(path);
    const Result<FileAttributes> attributes =
        opened ? fileSystem_.attributesOf(*opened) : Result<FileAttributes>(opened.error());
    if (!attributes) {
        folder.state = ListedState::unreadable;
        folder.error = attributes.error();
        return;
    }
    folder.directory->identity = attributes->identity;
    if (fileSystem_.isPseudoFileSystem(attributes->identity.device)) {
        folder.state = ListedState::isSpecial;
        return;
    }
    if (isOwnFolder(fileSystem_, unsteadyVolumes_, path, *opened, attributes->identity)) {
        folder.state = ListedState::isOwn;
        return;
    }
    const Result<bool> inTrash = isInTrash(fileSystem_, path);
    if (!inTrash) {
        folder.state = ListedState::unreadable;
        folder.error = inTrash.error();
    } else if (*inTrash) {
        folder.state = ListedState::inTrash;
    }
}

}  // namespace tarvin
