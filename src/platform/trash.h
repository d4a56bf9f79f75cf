#pragma once

#include <string>

namespace tarvin {

/// The user's Trash, as the result tree needs it. Paths are native bytes, absolute. Called on one
/// thread at a time: the one that changes the tree.
class Trash {
 public:
    virtual ~Trash() = default;

    /// Whether an item exists at `path`. A symbolic link whose target is gone does not exist.
    virtual bool fileExistsAtPath(const std::string& path) = 0;

    /// Moves the item at `path` to the Trash. True exactly when the system reported no error; on
    /// false the item is still where it was. Nothing is ever deleted outright.
    virtual bool trashItemAtPath(const std::string& path) = 0;
};

/// The desktop's Trash: a file goes to the Trash of its own volume, with a note of where it was and
/// when. What cannot go there stays. One for the process.
Trash& systemTrash();

}  // namespace tarvin
