#pragma once

#include "model/file.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tarvin {

class FileMover;

/// What a removal took out of a set: the files that were moved to the Trash, and no others.
struct RemovalResult {
    std::uint64_t deletedFilesCount = 0;
    std::uint64_t deletedFilesSize = 0;  ///< bytes

    bool operator==(const RemovalResult&) const = default;
};

/// The marks of many sets added up, so that their extension can answer for all of them without
/// asking each. Sums wrap at 64 bits, which is why taking a part away again is always exact.
struct SetTally {
    std::uint64_t on = 0;          ///< sets whose state is on
    std::uint64_t mixed = 0;       ///< sets whose state is mixed
    std::uint64_t marked = 0;      ///< sum of totalFilesSelectedInSet
    std::uint64_t markedSize = 0;  ///< sum of totalFilesSelectedInSetSize, bytes

    void addState(CheckState state);
    void dropState(CheckState state);
};

/// One group of files with identical content, the marks in it and their counters. Shared by the
/// extension that lists it and whoever shows it; one thread at a time changes a result tree.
///
/// Whoever changes a set through itself and not through its list leaves the counters of the
/// levels above as they were. A file stands in one set, once.
class Set final {
 public:
    Set() = default;
    Set(const Set&) = delete;
    Set& operator=(const Set&) = delete;

    /// Appends a file. Touches no counter: whoever builds the set knows its totals.
    void addFiles(std::shared_ptr<File> file) { files_.push_back(std::move(file)); }

    /// "Set(N)" with the number of copies, which is the number of files less one; 0 without files.
    [[nodiscard]] std::string nameOfSet() const { return nameOfSetWith(files_.size()); }
    /// The same for a set of that many files.
    [[nodiscard]] static std::string nameOfSetWith(std::size_t files);

    /// Marks every file from position 1 on and turns the state on, whatever the number of files.
    /// The file at position 0 survives: its own mark is neither set, cleared nor counted.
    void markAllFiles();
    /// Clears every mark, that of position 0 included, and turns the state off.
    void unmarkAllFiles();
    /// Turns the mark of `file`, which is of this set, over. Marks the last unmarked file too:
    /// callers that must keep one file of each set ask before.
    void changeStateOfFile(const std::shared_ptr<File>& file);
    /// The state that follows from the marked counter and the number of files. A set in which
    /// every file is marked is off, as is one of a single unmarked file.
    [[nodiscard]] CheckState determineSelfState() const;

    /// Moves the marked files to the Trash in set order and takes out those that went. A file
    /// whose move fails stays, marked and counted. Answers what was moved.
    RemovalResult removeSelectedFilesInSet(FileMover& mover);
    /// Takes the marked files out and answers their paths in set order. The totals still count
    /// them: only a removal from the disk lowers those.
    std::vector<std::string> addSelectedFilesInSetToException();

    /// The file at position 0 is the one that marking all leaves alone.
    [[nodiscard]] const std::vector<std::shared_ptr<File>>& files() const { return files_; }
    /// Touches no counter.
    void setFiles(std::vector<std::shared_ptr<File>> files) { files_ = std::move(files); }

    [[nodiscard]] CheckState setsState() const { return setsState_; }
    void setSetsState(CheckState state);

    /// Duplicate copies: the number of files less one.
    [[nodiscard]] std::uint64_t totalFilesInSet() const { return totalFilesInSet_; }
    void setTotalFilesInSet(std::uint64_t count) { totalFilesInSet_ = count; }

    /// Bytes of all files but the one at position 0.
    [[nodiscard]] std::uint64_t totalFilesInSetSize() const { return totalFilesInSetSize_; }
    void setTotalFilesInSetSize(std::uint64_t bytes) { totalFilesInSetSize_ = bytes; }

    [[nodiscard]] std::uint64_t totalFilesSelectedInSet() const { return marked_; }
    void setTotalFilesSelectedInSet(std::uint64_t count);

    /// Bytes of the marked files.
    [[nodiscard]] std::uint64_t totalFilesSelectedInSetSize() const { return markedSize_; }
    void setTotalFilesSelectedInSetSize(std::uint64_t bytes);

 private:
    friend class Extensions;

    /// From now on `tally` counts this set and is kept current with it, until leaveTally.
    /// False, and nothing is done, if another tally counts it already.
    bool joinTally(SetTally& tally);
    /// Does nothing if it is not `tally` that counts this set.
    void leaveTally(const SetTally& tally);
    void addTo(SetTally& tally) const;

    void countMark(const File& file);
    void uncountMark(const File& file);
    void takeOut(const std::unordered_set<const File*>& leaving);

    std::vector<std::shared_ptr<File>> files_;
    std::uint64_t totalFilesInSet_ = 0;
    std::uint64_t totalFilesInSetSize_ = 0;
    std::uint64_t marked_ = 0;
    std::uint64_t markedSize_ = 0;
    SetTally* tally_ = nullptr;  ///< of the extension this set belongs to; ends its hold first
    CheckState setsState_ = CheckState::off;
};

}  // namespace tarvin
