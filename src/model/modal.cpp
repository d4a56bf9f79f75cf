#include "model/modal.h"

namespace tarvin {

void Modal::addExtension(std::shared_ptr<Extensions> extension) {
    // The first extension of a name wins: try_emplace() keeps an existing entry.
    firstPosition_.try_emplace(extension->name(), extensionsArray_.size());
    extensionsArray_.push_back(std::move(extension));
}

void Modal::addExtensionFromArray(std::vector<std::shared_ptr<Extensions>> extensions) {
    for (std::shared_ptr<Extensions>& extension : extensions) {
        addExtension(std::move(extension));
    }
}

std::shared_ptr<Extensions> Modal::getExtensionWithName(std::string_view name) const {
    if (indexedRenamings_ != Extensions::renamings()) {
        rebuildIndex();
    }
    const auto found = firstPosition_.find(name);
    return found == firstPosition_.end() ? nullptr : extensionsArray_[found->second];
}

void Modal::markAllExtension() {
    totalFilesSelected_ = 0;
    totalFilesSelectedSize_ = 0;
    for (const std::shared_ptr<Extensions>& extension : extensionsArray_) {
        extension->markAllSet();
        addMarksOf(*extension);
    }
}

void Modal::unmarkAllExtension() {
    for (const std::shared_ptr<Extensions>& extension : extensionsArray_) {
        extension->unmarkAllSet();
    }
    totalFilesSelected_ = 0;
    totalFilesSelectedSize_ = 0;
}

void Modal::changeStateOfExtension(const std::shared_ptr<Extensions>& extension,
                                   const std::shared_ptr<Set>& set,
                                   const std::shared_ptr<File>& file) {
    subtractMarksOf(*extension);
    if (file != nullptr) {
        extension->changeStateOfFile(file, set);
    } else if (set != nullptr) {
        extension->changeStateOfSet(set);
    } else {
        extension->changeState();
    }
    addMarksOf(*extension);
}

void Modal::changeMarksOfSets(const std::function<void(Set&)>& change) {
    totalFilesSelected_ = 0;
    totalFilesSelectedSize_ = 0;
    for (const std::shared_ptr<Extensions>& extension : extensionsArray_) {
        extension->changeMarksOfSets(change);
        addMarksOf(*extension);
    }
}

void Modal::changeMarksOfFewSets(const std::function<void(Set&)>& change) {
    totalFilesSelected_ = 0;
    totalFilesSelectedSize_ = 0;
    for (const std::shared_ptr<Extensions>& extension : extensionsArray_) {
        extension->changeMarksOfFewSets(change);
        addMarksOf(*extension);
    }
}

RemovalResult Modal::removeSelectedFilesInSet(const std::shared_ptr<Set>& set,
                                              const std::shared_ptr<Extensions>& extension,
                                              FileMover& mover) {
    subtractMarksOf(*extension);
    subtractTotalsOf(*extension);
    const RemovalResult result = extension->removeSelectedFilesInSet(set, mover);
    addMarksOf(*extension);
    addTotalsOf(*extension);
    return result;
}

std::vector<std::string> Modal::addSelectedFilesToExceptionInSet(
    const std::shared_ptr<Set>& set, const std::shared_ptr<Extensions>& extension) {
    subtractMarksOf(*extension);
    std::vector<std::string> paths = extension->addSelectedFilesInExtensionToExceptionOfSet(set);
    addMarksOf(*extension);
    return paths;
}

void Modal::calculateTotalFilesAndSize() {
    totalFiles_ = 0;
    totalFilesSize_ = 0;
    for (const std::shared_ptr<Extensions>& extension : extensionsArray_) {
        addTotalsOf(*extension);
    }
}

void Modal::setExtensionsArray(std::vector<std::shared_ptr<Extensions>> extensions) {
    extensionsArray_ = std::move(extensions);
    rebuildIndex();
}

void Modal::rebuildIndex() const {
    indexedRenamings_ = Extensions::renamings();
    firstPosition_.clear();
    for (std::size_t position = 0; position < extensionsArray_.size(); ++position) {
        firstPosition_.try_emplace(extensionsArray_[position]->name(), position);
    }
}

void Modal::subtractMarksOf(const Extensions& extension) {
    totalFilesSelected_ = lessened(totalFilesSelected_, extension.totalFilesSelectedInExtension());
    totalFilesSelectedSize_ =
        lessened(totalFilesSelectedSize_, extension.totalFilesSelectedInExtensionSize());
}

void Modal::addMarksOf(const Extensions& extension) {
    totalFilesSelected_ += extension.totalFilesSelectedInExtension();
    totalFilesSelectedSize_ += extension.totalFilesSelectedInExtensionSize();
}

void Modal::subtractTotalsOf(const Extensions& extension) {
    totalFiles_ = lessened(totalFiles_, extension.totalFilesInExtension());
    totalFilesSize_ = lessened(totalFilesSize_, extension.totalFilesInExtensionSize());
}

void Modal::addTotalsOf(const Extensions& extension) {
    totalFiles_ += extension.totalFilesInExtension();
    totalFilesSize_ += extension.totalFilesInExtensionSize();
}

}  // namespace tarvin
