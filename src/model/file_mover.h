#pragma once

#include <memory>
#include <span>

namespace tarvin {

class File;
class Set;

/// Moves files of one set to the Trash, from the first to the last that is to go. Called on the
/// thread that changes the result tree.
class SetMover {
 public:
    virtual ~SetMover() = default;

    /// Moves a file of the set. True if it was there and is in the Trash now; on false it has
    /// been left, or put back, where it was. Nothing is ever deleted outright.
    virtual bool move(const File& file) = 0;
};

/// Moves the marked files of a result tree to the Trash, as the tree needs it.
class FileMover {
 public:
    virtual ~FileMover() = default;

    /// Is told of the sets that come next, before the first of them is begun. False: none of their
    /// files can be moved, and whoever goes over the tree ends there.
    virtual bool prepare(std::span<const std::shared_ptr<Set>> sets) = 0;

    /// Begins a set that was prepared. Never none; ends before the next is begun, and before the
    /// mover does.
    virtual std::unique_ptr<SetMover> begin(const Set& set) = 0;
};

}  // namespace tarvin
