#include "clean/open_folders.h"

#include <cerrno>
#include <utility>

namespace tarvin {

Result<std::shared_ptr<const OpenFolder>> OpenFolders::open(const Directory& directory) {
    const Clock::time_point now = Clock::now();
    const auto known = byDirectory_.find(&directory);
    if (known != byDirectory_.end()) {
        kept_.splice(kept_.begin(), kept_, known->second);
        if (now - kept_.front().checkedAt < maxAge_) {
            return kept_.front().folder;
        }
        byDirectory_.erase(known);
        kept_.pop_front();
    }
    Result<std::shared_ptr<const OpenFolder>> folder = openAnew(directory);
    if (!folder) {
        return folder;
    }
    if (kept_.size() >= maxOpen_) {
        byDirectory_.erase(kept_.back().directory);
        kept_.pop_back();
    }
    kept_.push_front({&directory, *folder, now});
    byDirectory_[&directory] = kept_.begin();
    return folder;
}

void OpenFolders::invalidate() {
    for (Kept& kept : kept_) {
        kept.checkedAt = {};
    }
}

Result<std::shared_ptr<const OpenFolder>> OpenFolders::openAnew(const Directory& directory) {
    OpenFolder folder;
    folder.path = directory.path();
    // A location chosen by the user may be a symlink; the folder is identified by its identity.
    Result<Descriptor> opened = directory.parent == nullptr
                                    ? fileSystem_.openRootDirectory(folder.path)
                                    : fileSystem_.openDirectory(folder.path);
    if (!opened) {
        return opened.error();
    }
    const Result<FileAttributes> attributes = fileSystem_.attributesOf(*opened);
    if (!attributes) {
        return attributes.error();
    }
    const bool isKnown = directory.identity.inode != 0;
    if (isKnown && attributes->identity != directory.identity &&
        (attributes->identity.device != directory.identity.device ||
         !unsteadyVolumes_.examine(fileSystem_, *opened))) {
        return SystemError{ESTALE};
    }
    folder.descriptor = std::move(*opened);
    folder.identity = attributes->identity;
    return std::shared_ptr<const OpenFolder>(std::make_shared<OpenFolder>(std::move(folder)));
}

}  // namespace tarvin
