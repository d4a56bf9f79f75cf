#pragma once

#include "model/modal.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>

namespace tarvin {

class FileMover;

/// The pause and stop flags of a deletion. Any thread.
class DeletionControl final {
 public:
    DeletionControl() = default;
    DeletionControl(const DeletionControl&) = delete;
    DeletionControl& operator=(const DeletionControl&) = delete;

    [[nodiscard]] bool stopDeletion() const { return stopDeletion_; }
    [[nodiscard]] bool pauseDeletion() const { return pauseDeletion_; }

    void setPauseDeletion(bool pause);
    /// Stops this deletion and every later one: the flag is never cleared. Ends a pause.
    void stop();
    /// The same when the program exits: a walk that is paused before a set does not begin it.
    void abandon();
    [[nodiscard]] bool isAbandoned() const { return abandoned_; }
    void waitWhilePaused() const;

 private:
    std::atomic<bool> stopDeletion_{false};
    std::atomic<bool> pauseDeletion_{false};
    std::atomic<bool> abandoned_{false};
};

/// Moves the marked files of a result list to the Trash, set by set, on the calling thread.
///
/// During run() the walk alone may use the tree. A file whose move fails is skipped and stays
/// marked. A set that has been begun is finished before a stop or a pause takes effect.
class DeletionWalk final {
 public:
    struct Progress {
        /// The number of visited sets that hold exactly one file. Its maximum is the number of
        /// marked files, so it rarely changes, which is intended.
        std::uint64_t indicator = 0;
        std::uint64_t deletedCount = 0;
        std::uint64_t deletedSize = 0;  ///< bytes

        bool operator==(const Progress&) const = default;
    };

    /// Called before a set is begun; the set does not change during the call.
    using BeforeSet = std::function<void(const Set& set, const Progress& progress)>;

    /// The references must outlive the walk. `beforeSet` may be empty.
    DeletionWalk(Modal& modal, FileMover& mover, DeletionControl& control, BeforeSet beforeSet);
    DeletionWalk(const DeletionWalk&) = delete;
    DeletionWalk& operator=(const DeletionWalk&) = delete;

    /// Walks until the end, or until a stop. Returns what was moved. Call at most once.
    RemovalResult run();
    /// The state at the end of run(), which includes the sets after the last one that was begun.
    [[nodiscard]] const Progress& progress() const { return progress_; }

 private:
    /// The position of a set in the list.
    struct Position {
        std::size_t extension = 0;
        std::size_t set = 0;
    };

    void walk();
    [[nodiscard]] bool walkSetsOf(std::size_t extension);
    [[nodiscard]] bool prepareFrom(Position from);

    Modal& modal_;
    FileMover& mover_;
    DeletionControl& control_;
    const BeforeSet beforeSet_;
    Progress progress_;
    std::size_t prepared_ = 0;  // how many of the next sets the mover has prepared
};

}  // namespace tarvin
