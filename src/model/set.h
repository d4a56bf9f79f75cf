#pragma once

#include "model/file.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tarvin {

class FileMover;

/// The files that were moved to the Trash.
struct RemovalResult {
    std::uint64_t deletedFilesCount = 0;
    std::uint64_t deletedFilesSize = 0;  ///< bytes

    bool operator==(const RemovalResult&) const = default;
};

/// Returns `counter - part`, but never less than 0: a file can be removed with a mark that was
/// never counted (see Set::markAllFiles). Files or bytes.
[[nodiscard]] constexpr std::uint64_t lessened(std::uint64_t counter, std::uint64_t part) {
    return counter - std::min(counter, part);
}

/// The sums of the marks of many sets, so that their extension need not walk them. Sums wrap at 64
/// bits, so subtracting a part again is always exact.
struct SetTally {
    std::uint64_t on = 0;          ///< sets whose state is on
    std::uint64_t mixed = 0;       ///< sets whose state is mixed
    std::uint64_t marked = 0;      ///< sum of totalFilesSelectedInSet
    std::uint64_t markedSize = 0;  ///< sum of totalFilesSelectedInSetSize, bytes

    void addState(CheckState state);
    void dropState(CheckState state);
};

/// One group of files with identical content, with its marks and counters. Shared by its extension
/// and the views. One thread at a time may change a result tree.
///
/// Changes that are made directly, not through the Modal, do not update the counters of the levels
/// above. A file is in at most one set, once.
class Set final {
 public:
    Set() = default;
    Set(const Set&) = delete;
    Set& operator=(const Set&) = delete;

    /// Appends a file. Changes no counter: the caller sets the totals.
    void addFiles(std::shared_ptr<File> file) { files_.push_back(std::move(file)); }

    /// "Set(N)", where N is the number of files less one; 0 without files.
    [[nodiscard]] std::string nameOfSet() const { return nameOfSetWith(files_.size()); }
    /// The same for a set of `files` files.
    [[nodiscard]] static std::string nameOfSetWith(std::size_t files);

    /// Marks every file from position 1 on and turns the state on, even in an empty set. The mark
    /// of the file at position 0 is neither set, cleared nor counted.
    void markAllFiles();
    /// Clears every mark, that of position 0 included, and turns the state off.
    void unmarkAllFiles();
    /// Toggles the mark of `file`, which is in this set. Marks the last unmarked file, too: see
    /// allDuplicatesAreSelectedOfSet().
    void changeStateOfFile(const std::shared_ptr<File>& file);
    /// Sets the mark of every file, one entry for each; the state and the marked counters follow.
    /// At least one entry is off, unless the set is empty.
    void setMarks(const std::vector<CheckState>& marks);
    /// The state that follows from the marked counter and the number of files. A set with all files
    /// marked is off, and so is a set of one unmarked file.
    [[nodiscard]] CheckState determineSelfState() const;

    /// Moves the marked files to the Trash in set order and removes them from the set. A file whose
    /// move fails stays, marked and counted.
    RemovalResult removeSelectedFilesInSet(FileMover& mover);
    /// Removes the marked files and returns their paths in set order. The totals still count them:
    /// only a move to the Trash lowers these.
    std::vector<std::string> addSelectedFilesInSetToException();

    /// markAllFiles() does not mark the file at position 0.
    [[nodiscard]] const std::vector<std::shared_ptr<File>>& files() const { return files_; }
    /// Changes no counter.
    void setFiles(std::vector<std::shared_ptr<File>> files) { files_ = std::move(files); }

    [[nodiscard]] CheckState setsState() const { return setsState_; }
    void setSetsState(CheckState state);

    /// Duplicates: the number of files less one.
    [[nodiscard]] std::uint64_t totalFilesInSet() const { return totalFilesInSet_; }
    void setTotalFilesInSet(std::uint64_t count) { totalFilesInSet_ = count; }

    /// Bytes of all files but the one at position 0.
    [[nodiscard]] std::uint64_t totalFilesInSetSize() const { return totalFilesInSetSize_; }
    void setTotalFilesInSetSize(std::uint64_t bytes) { totalFilesInSetSize_ = bytes; }

    [[nodiscard]] std::uint64_t totalFilesSelectedInSet() const { return marked_; }
    void setTotalFilesSelectedInSet(std::uint64_t count);

    /// Bytes that the set takes beyond one file, by the files that are in it now; at most 2^64 - 1.
    /// The total above counts excluded files too.
    [[nodiscard]] std::uint64_t sizeOfCopies() const;

    /// Bytes of the marked files.
    [[nodiscard]] std::uint64_t totalFilesSelectedInSetSize() const { return markedSize_; }
    void setTotalFilesSelectedInSetSize(std::uint64_t bytes);

 private:
    friend class Extensions;

    /// Adds this set to `tally` and keeps that current, until leaveTally(). Returns false and does
    /// nothing if a tally already counts this set.
    bool joinTally(SetTally& tally);
    /// Does nothing if `tally` does not count this set.
    void leaveTally(const SetTally& tally);
    void addTo(SetTally& tally) const;

    void countMark(const File& file);
    void uncountMark(const File& file);
    void remove(const std::unordered_set<const File*>& leaving);

    std::vector<std::shared_ptr<File>> files_;
    std::uint64_t totalFilesInSet_ = 0;
    std::uint64_t totalFilesInSetSize_ = 0;
    std::uint64_t marked_ = 0;
    std::uint64_t markedSize_ = 0;
    SetTally* tally_ = nullptr;  ///< of the set's extension, which resets it on destruction
    CheckState setsState_ = CheckState::off;
};

}  // namespace tarvin
