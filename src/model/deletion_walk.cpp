#include "model/deletion_walk.h"

#include "model/file_mover.h"

#include <utility>
#include <vector>

namespace tarvin {

void DeletionControl::setPauseDeletion(bool pause) {
    pauseDeletion_ = pause;
    pauseDeletion_.notify_all();
}

void DeletionControl::stop() {
    // In this order, so that a walk that wakes up sees the stop.
    stopDeletion_ = true;
    setPauseDeletion(false);
}

void DeletionControl::abandon() {
    abandoned_ = true;
    stop();
}

void DeletionControl::waitWhilePaused() const {
    while (pauseDeletion_) {
        pauseDeletion_.wait(true);
    }
}

DeletionWalk::DeletionWalk(Modal& modal, FileMover& mover, DeletionControl& control,
                           BeforeSet beforeSet)
    : modal_(modal), mover_(mover), control_(control), beforeSet_(std::move(beforeSet)) {}

RemovalResult DeletionWalk::run() {
    walk();
    return {progress_.deletedCount, progress_.deletedSize};
}

void DeletionWalk::walk() {
    const std::vector<std::shared_ptr<Extensions>>& extensions = modal_.extensionsArray();
    for (std::size_t number = 0; number < extensions.size(); ++number) {
        if (control_.stopDeletion()) {
            return;
        }
        control_.waitWhilePaused();
        if (extensions[number]->extensionState() != CheckState::off && !walkSetsOf(number)) {
            return;
        }
    }
}

/// Returns false after a stop, or if the mover cannot continue.
bool DeletionWalk::walkSetsOf(std::size_t extension) {
    const std::shared_ptr<Extensions>& of = modal_.extensionsArray()[extension];
    for (std::size_t number = 0; number < of->sets().size(); ++number) {
        if (control_.stopDeletion()) {
            return false;
        }
        control_.waitWhilePaused();
        if (control_.isAbandoned()) {
            return false;
        }
        const std::shared_ptr<Set>& set = of->sets()[number];
        progress_.indicator += std::uint64_t{set->files().size() == 1};
        if (set->setsState() == CheckState::off) {
            continue;
        }
        if (prepared_ == 0 && !prepareFrom({extension, number})) {
            return false;
        }
        --prepared_;
        if (beforeSet_) {
            beforeSet_(*set, progress_);
        }
        const RemovalResult removed = modal_.removeSelectedFilesInSet(set, of, mover_);
        progress_.deletedCount += removed.deletedFilesCount;
        progress_.deletedSize += removed.deletedFilesSize;
    }
    return true;
}

/// Prepares sets in batches: large enough that the mover's fixed cost is small for each set, small
/// enough that a stop finds few prepared. Includes the current extension in any state: the removals
/// so far may have changed that, and the extension is walked to its end.
bool DeletionWalk::prepareFrom(Position from) {
    constexpr std::uint64_t filesAtOnce = 512;
    std::vector<std::shared_ptr<Set>> sets;
    std::uint64_t files = 0;
    const auto& extensions = modal_.extensionsArray();
    const std::size_t current = from.extension;
    for (; from.extension < extensions.size() && files < filesAtOnce; ++from.extension) {
        const Extensions& extension = *extensions[from.extension];
        if (from.extension == current || extension.extensionState() != CheckState::off) {
            for (; from.set < extension.sets().size() && files < filesAtOnce; ++from.set) {
                const std::shared_ptr<Set>& set = extension.sets()[from.set];
                if (set->setsState() != CheckState::off) {
                    sets.push_back(set);
                    files += set->totalFilesSelectedInSet();
                }
            }
        }
        from.set = 0;
    }
    prepared_ = sets.size();
    return mover_.prepare(sets);
}

}  // namespace tarvin
