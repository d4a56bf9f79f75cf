#pragma once

#include "model/set.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

/// All sets of one file-name extension within a result list, with the state of its check box and
/// its counters. Shared by the list of its category and the list of all categories. One thread at a
/// time may change a result tree.
///
/// A set belongs to one extension and keeps that extension's sums of marks current, so the cost of
/// an operation on one set does not depend on the number of sets. An extension that was given a set
/// of another one, or one of its own sets twice, is still correct, but walks all its sets for each
/// sum until setSets() gives it other sets.
class Extensions final {
 public:
    /// `name` is in lower case, as the scan derives it, for example "jpg". Native bytes.
    explicit Extensions(std::string name) : name_(std::move(name)) {}
    Extensions(const Extensions&) = delete;
    Extensions& operator=(const Extensions&) = delete;
    /// Sets that outlive their extension belong to no extension.
    ~Extensions();

    /// Appends a set. Changes no counter: the caller adds the set's totals.
    void addSet(std::shared_ptr<Set> set);
    [[nodiscard]] std::size_t nummberOfSets() const { return sets_.size(); }

    /// Marks every set (Set::markAllFiles) and turns the state on.
    void markAllSet();
    /// Unmarks every set and turns the state off. Without sets, counters that were set explicitly
    /// stay.
    void unmarkAllSet();
    /// Toggles the extension's check box: off and mixed mark all, on unmarks all.
    void changeState();
    /// Toggles the check box of `set` likewise, then updates counters and state.
    void changeStateOfSet(const std::shared_ptr<Set>& set);
    /// Toggles the mark of `file`, a file of `set`, then updates counters and state.
    void changeStateOfFile(const std::shared_ptr<File>& file, const std::shared_ptr<Set>& set);
    /// Calls `change` with each set, which may change its marks, then updates counters and state.
    /// Without sets the state is off.
    void changeMarksOfSets(const std::function<void(Set&)>& change);
    /// The same, if `change` does not look into most sets: they are not loaded from memory.
    void changeMarksOfFewSets(const std::function<void(Set&)>& change);
    /// Sets the marked counters to the sums over the sets and returns the state that follows from
    /// the sets' states: on if every set is on or mixed (also without sets), mixed if some are,
    /// else off. Does not change extensionState().
    CheckState determineSelfState();

    /// Set::removeSelectedFilesInSet() for one of the sets; updates totals, marks and state.
    RemovalResult removeSelectedFilesInSet(const std::shared_ptr<Set>& set, FileMover& mover);
    /// Set::addSelectedFilesInSetToException() for one of the sets; updates marks and state, but
    /// not the totals.
    std::vector<std::string> addSelectedFilesInExtensionToExceptionOfSet(
        const std::shared_ptr<Set>& set);

    [[nodiscard]] const std::vector<std::shared_ptr<Set>>& sets() const { return sets_; }
    /// Changes no counter. The former sets belong to no extension afterwards.
    void setSets(std::vector<std::shared_ptr<Set>> sets);

    [[nodiscard]] const std::string& name() const { return name_; }
    /// Lists that hold the extension find it under the new name afterwards.
    void setName(std::string name);
    /// How many times extensions have been renamed in this process. Lists compare it to see whether
    /// their index of names is out of date. Any thread.
    [[nodiscard]] static std::uint64_t renamings();

    [[nodiscard]] CheckState extensionState() const { return extensionState_; }
    void setExtensionState(CheckState state) { extensionState_ = state; }

    /// Sum of the sets' totalFilesInSet.
    [[nodiscard]] std::uint64_t totalFilesInExtension() const { return total_; }
    void setTotalFilesInExtension(std::uint64_t count) { total_ = count; }

    /// Sum of the sets' totalFilesInSetSize, bytes.
    [[nodiscard]] std::uint64_t totalFilesInExtensionSize() const { return totalSize_; }
    void setTotalFilesInExtensionSize(std::uint64_t bytes) { totalSize_ = bytes; }

    /// Sum of the sets' totalFilesSelectedInSet.
    [[nodiscard]] std::uint64_t totalFilesSelectedInExtension() const { return marked_; }
    void setTotalFilesSelectedInExtension(std::uint64_t count) { marked_ = count; }

    /// Sum of the sets' totalFilesSelectedInSetSize, bytes.
    [[nodiscard]] std::uint64_t totalFilesSelectedInExtensionSize() const { return markedSize_; }
    void setTotalFilesSelectedInExtensionSize(std::uint64_t bytes) { markedSize_ = bytes; }

 private:
    void updateMarks();
    void adopt(Set& set);
    void releaseSets();
    [[nodiscard]] SetTally walkSets() const;

    std::vector<std::shared_ptr<Set>> sets_;
    std::string name_;
    SetTally tally_;               ///< kept current by the sets that belong to this extension
    bool tallyIsComplete_ = true;  ///< `tally_` counts each entry of `sets_` exactly once
    CheckState extensionState_ = CheckState::off;
    std::uint64_t total_ = 0;
    std::uint64_t totalSize_ = 0;
    std::uint64_t marked_ = 0;
    std::uint64_t markedSize_ = 0;
};

}  // namespace tarvin
