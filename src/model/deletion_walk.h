#pragma once

#include "model/modal.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <thread>

namespace tarvin {

class FileMover;

/// The two flags through which a deletion is paused and stopped. Any thread.
class DeletionControl final {
 public:
    DeletionControl() = default;
    DeletionControl(const DeletionControl&) = delete;
    DeletionControl& operator=(const DeletionControl&) = delete;

    [[nodiscard]] bool stopDeletion() const { return stopDeletion_; }
    [[nodiscard]] bool pauseDeletion() const { return pauseDeletion_; }

    void setPauseDeletion(bool pause);
    /// Stops this deletion and every later one: nothing clears the flag again. Ends a pause.
    void stop();
    /// The same at the end of the program: a walk that is paused before a set does not begin it.
    void abandon();
    [[nodiscard]] bool isAbandoned() const { return abandoned_; }
    void waitWhilePaused() const;

 private:
    std::atomic<bool> stopDeletion_{false};
    std::atomic<bool> pauseDeletion_{false};
    std::atomic<bool> abandoned_{false};
};

/// Moves the marked files of a result list to the Trash, set by set, on a thread of its own.
///
/// Between start() and the end of wait() the walk alone changes the tree; others may read nothing
/// of it. A file whose move fails is passed over and stays marked. A set that is begun is finished
/// before a stop or a pause takes effect.
class DeletionWalk final {
 public:
    /// How far a walk is.
    struct Progress {
        /// Counts the sets met that hold exactly one file, whose maximum is the number of marked
        /// files: a measure that rarely moves, and is meant so.
        std::uint64_t indicator = 0;
        std::uint64_t deletedCount = 0;
        std::uint64_t deletedSize = 0;  ///< bytes

        bool operator==(const Progress&) const = default;
    };

    /// Called on the walk's thread before a set is begun; the set is not changed meanwhile.
    using BeforeSet = std::function<void(const Set& set, const Progress& progress)>;

    /// All outlive the walk. `beforeSet` may be empty.
    DeletionWalk(Modal& modal, FileMover& mover, DeletionControl& control, BeforeSet beforeSet);
    DeletionWalk(const DeletionWalk&) = delete;
    DeletionWalk& operator=(const DeletionWalk&) = delete;
    /// Waits for the end; whoever does not want to wait long stops the walk before.
    ~DeletionWalk();

    /// Called on the walk's thread as the last. What the walk met behind the last set that it began
    /// has been told to nobody before.
    using AtEnd = std::function<void(const Progress& progress)>;

    /// Begins; once only. Returns at once. `atEnd` may be empty.
    void start(AtEnd atEnd = {});
    /// Waits until the walk is over and answers what was moved.
    RemovalResult wait();

 private:
    /// A set of the list, by the places of its extension and of itself in that.
    struct Place {
        std::size_t extension = 0;
        std::size_t set = 0;
    };

    void walk();
    [[nodiscard]] bool walkSetsOf(std::size_t extension);
    [[nodiscard]] bool prepareFrom(Place from);

    Modal& modal_;
    FileMover& mover_;
    DeletionControl& control_;
    const BeforeSet beforeSet_;
    Progress progress_;         // the walk's own until it is over
    std::size_t prepared_ = 0;  // sets that come and that the mover knows of; the walk's own
    std::thread thread_;
};

}  // namespace tarvin
