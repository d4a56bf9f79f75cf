#include "model/deletion_walk.h"

#include "platform/start_thread.h"
#include "platform/trash.h"

#include <utility>
#include <vector>

namespace tarvin {

void DeletionControl::setPauseDeletion(bool pause) {
    pauseDeletion_ = pause;
    pauseDeletion_.notify_all();
}

void DeletionControl::stop() {
    // In this order, so that a walk that wakes finds the stop.
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

DeletionWalk::DeletionWalk(Modal& modal, Trash& trash, DeletionControl& control,
                           BeforeSet beforeSet)
    : modal_(modal), trash_(trash), control_(control), beforeSet_(std::move(beforeSet)) {}

DeletionWalk::~DeletionWalk() {
    wait();
}

void DeletionWalk::start(AtEnd atEnd) {
    const auto run = [this, atEnd = std::move(atEnd)] {
        walk();
        if (atEnd) {
            atEnd(progress_);
        }
    };
    thread_ = startThread(run);
    if (!thread_.joinable()) {
        run();
    }
}

RemovalResult DeletionWalk::wait() {
    if (thread_.joinable()) {
        thread_.join();
    }
    return {progress_.deletedCount, progress_.deletedSize};
}

void DeletionWalk::walk() {
    for (const std::shared_ptr<Extensions>& extension : modal_.extensionsArray()) {
        if (control_.stopDeletion()) {
            return;
        }
        control_.waitWhilePaused();
        if (extension->extensionState() != CheckState::off && !walkSetsOf(extension)) {
            return;
        }
    }
}

/// False after a stop.
bool DeletionWalk::walkSetsOf(const std::shared_ptr<Extensions>& extension) {
    // NOLINTNEXTLINE(readability-use-anyofallof): it moves files; no question is asked of the sets
    for (const std::shared_ptr<Set>& set : extension->sets()) {
        if (control_.stopDeletion()) {
            return false;
        }
        control_.waitWhilePaused();
        if (control_.isAbandoned()) {
            return false;
        }
        progress_.indicator += std::uint64_t{set->files().size() == 1};
        if (set->setsState() == CheckState::off) {
            continue;
        }
        if (beforeSet_) {
            beforeSet_(*set, progress_);
        }
        const RemovalResult removed = modal_.removeSelectedFilesInSet(set, extension, trash_);
        progress_.deletedCount += removed.deletedFilesCount;
        progress_.deletedSize += removed.deletedFilesSize;
    }
    return true;
}

}  // namespace tarvin
