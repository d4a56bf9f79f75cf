#include "controller/tree_snapshot.h"

#include "model/each_set.h"

#include <memory>

namespace tarvin {

TreeSnapshot::TreeSnapshot(const Modal& modal) {
    std::size_t count = 0;
    for (const std::shared_ptr<Extensions>& extension : modal.extensions()) {
        count += extension->sets().size();
    }
    sets_.reserve(count);
    extensions_.reserve(modal.extensionCount());
    for (const std::shared_ptr<Extensions>& extension : modal.extensions()) {
        extensions_.push_back({sets_.size(), extension->extensionState()});
        forEachSet(extension->sets(), [this](const Set& set) {
            sets_.push_back({set.sizeOfCopies(), static_cast<std::uint32_t>(set.files().size()),
                             set.setsState()});
            return true;
        });
    }
}

CheckState TreeSnapshot::stateOfExtension(int extension) const {
    return extensions_[static_cast<std::size_t>(extension)].state;
}

CheckState TreeSnapshot::stateOfSet(int extension, int set) const {
    return at(extension, set).state;
}

std::string TreeSnapshot::nameOfSet(int extension, int set) const {
    return Set::nameOfSetWith(at(extension, set).files);
}

std::size_t TreeSnapshot::filesOfSet(int extension, int set) const {
    return at(extension, set).files;
}

std::uint64_t TreeSnapshot::sizeOfCopies(int extension, int set) const {
    return at(extension, set).sizeOfCopies;
}

const TreeSnapshot::SetRow& TreeSnapshot::at(int extension, int set) const {
    return sets_[extensions_[static_cast<std::size_t>(extension)].firstSet +
                 static_cast<std::size_t>(set)];
}

}  // namespace tarvin
