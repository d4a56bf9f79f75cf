#include "model/extensions.h"

#include "model/each_set.h"

#include <atomic>

namespace tarvin {

namespace {

// Atomic: the five categories are built on five threads.
std::atomic<std::uint64_t> renamingCount{0};

}  // namespace

Extensions::~Extensions() {
    releaseSets();
}

void Extensions::addSet(std::shared_ptr<Set> set) {
    adopt(*set);
    sets_.push_back(std::move(set));
}

void Extensions::markAllSet() {
    marked_ = 0;
    markedSize_ = 0;
    forEachSet(sets_, [this](Set& set) {
        set.markAllFiles();
        marked_ += set.totalFilesSelectedInSet();
        markedSize_ += set.totalFilesSelectedInSetSize();
        return true;
    });
    extensionState_ = CheckState::on;
}

void Extensions::unmarkAllSet() {
    forEachSet(sets_, [this](Set& set) {
        set.unmarkAllFiles();
        marked_ = 0;
        markedSize_ = 0;
        return true;
    });
    extensionState_ = CheckState::off;
}

void Extensions::changeState() {
    switch (extensionState_) {
        case CheckState::off:
        case CheckState::mixed:
            markAllSet();
            break;
        case CheckState::on:
            unmarkAllSet();
            break;
    }
}

void Extensions::changeStateOfSet(const std::shared_ptr<Set>& set) {
    switch (set->setsState()) {
        case CheckState::off:
        case CheckState::mixed:
            set->markAllFiles();
            break;
        case CheckState::on:
            set->unmarkAllFiles();
            break;
    }
    extensionState_ = determineSelfState();
}

void Extensions::changeStateOfFile(const std::shared_ptr<File>& file,
                                   const std::shared_ptr<Set>& set) {
    set->changeStateOfFile(file);
    extensionState_ = determineSelfState();
}

void Extensions::changeMarksOfSets(const std::function<void(Set&)>& change) {
    forEachSet(sets_, [&change](Set& set) {
        change(set);
        return true;
    });
    updateMarks();
}

void Extensions::changeMarksOfFewSets(const std::function<void(Set&)>& change) {
    for (const std::shared_ptr<Set>& set : sets_) {
        change(*set);
    }
    updateMarks();
}

void Extensions::updateMarks() {
    const CheckState state = determineSelfState();
    extensionState_ = sets_.empty() ? CheckState::off : state;
}

CheckState Extensions::determineSelfState() {
    const SetTally tally = tallyIsComplete_ ? tally_ : walkSets();
    marked_ = tally.marked;
    markedSize_ = tally.markedSize;
    const auto touched = static_cast<std::uint32_t>(tally.on + tally.mixed);
    if (sets_.size() == touched) {
        return CheckState::on;
    }
    return touched > 0 && sets_.size() > touched ? CheckState::mixed : CheckState::off;
}

RemovalResult Extensions::removeSelectedFilesInSet(const std::shared_ptr<Set>& set,
                                                   FileMover& mover) {
    // The marked counters are recomputed by determineSelfState().
    total_ = lessened(total_, set->totalFilesInSet());
    totalSize_ = lessened(totalSize_, set->totalFilesInSetSize());
    const RemovalResult result = set->removeSelectedFilesInSet(mover);
    total_ += set->totalFilesInSet();
    totalSize_ += set->totalFilesInSetSize();
    extensionState_ = determineSelfState();
    return result;
}

std::vector<std::string> Extensions::addSelectedFilesInExtensionToExceptionOfSet(
    const std::shared_ptr<Set>& set) {
    std::vector<std::string> paths = set->addSelectedFilesInSetToException();
    extensionState_ = determineSelfState();
    return paths;
}

void Extensions::setSets(std::vector<std::shared_ptr<Set>> sets) {
    releaseSets();
    tallyIsComplete_ = true;
    sets_ = std::move(sets);
    for (const std::shared_ptr<Set>& set : sets_) {
        adopt(*set);
    }
}

void Extensions::setName(std::string name) {
    name_ = std::move(name);
    renamingCount.fetch_add(1, std::memory_order_relaxed);
}

std::uint64_t Extensions::renamings() {
    return renamingCount.load(std::memory_order_relaxed);
}

void Extensions::adopt(Set& set) {
    if (!set.joinTally(tally_)) {
        tallyIsComplete_ = false;
    }
}

void Extensions::releaseSets() {
    for (const std::shared_ptr<Set>& set : sets_) {
        set->leaveTally(tally_);
    }
}

SetTally Extensions::walkSets() const {
    SetTally tally;
    for (const std::shared_ptr<Set>& set : sets_) {
        set->addTo(tally);
    }
    return tally;
}

}  // namespace tarvin
