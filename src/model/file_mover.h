#pragma once

#include <memory>
#include <span>

namespace tarvin {

class File;
class Set;

/// Moves files of one set to the Trash, in set order. Called on the thread that changes the result
/// tree.
class SetMover {
 public:
    virtual ~SetMover() = default;

    /// Moves a file of the set. Returns true if it existed and is in the Trash now; on false it has
    /// stayed in its folder, or been put back. Nothing is ever deleted permanently.
    virtual bool move(const File& file) = 0;
};

/// Moves the marked files of a result tree to the Trash.
class FileMover {
 public:
    virtual ~FileMover() = default;

    /// Prepares the next sets. Called before the first of them is begun. Returns false if none of
    /// their files can be moved; the caller ends its walk then.
    virtual bool prepare(std::span<const std::shared_ptr<Set>> sets) = 0;

    /// Begins a prepared set. Never returns nullptr. The SetMover must be destroyed before the next
    /// set is begun, and before this object.
    virtual std::unique_ptr<SetMover> begin(const Set& set) = 0;
};

}  // namespace tarvin
