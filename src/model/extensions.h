#pragma once

#include "model/set.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

/// All sets of one file-name extension within a result list, their check box and their counters.
/// Shared by the list of its category and the list that joins all categories; one thread at a
/// time changes a result tree.
///
/// A set belongs to one extension, and keeps that extension's sums of marks current whoever changes
/// it: an operation on one set costs what the set costs, however many sets stand beside it. An
/// extension that is given a set of another one, or one of its own a second time, answers just as
/// right but walks all its sets for every answer, until setSets() gives it sets of its own.
class Extensions final {
 public:
    /// `name` is in lower case, as the scan derives it, for example "jpg". Native bytes.
    explicit Extensions(std::string name) : name_(std::move(name)) {}
    Extensions(const Extensions&) = delete;
    Extensions& operator=(const Extensions&) = delete;
    /// Sets that outlive their extension belong to none.
    ~Extensions();

    /// Appends a set. Touches no counter: whoever builds the extension adds the set's totals.
    void addSet(std::shared_ptr<Set> set);
    [[nodiscard]] std::size_t nummberOfSets() const { return sets_.size(); }

    /// Marks every set (Set::markAllFiles) and turns the state on.
    void markAllSet();
    /// Unmarks every set and turns the state off. Without sets, counters that were set by hand
    /// stay.
    void unmarkAllSet();
    /// What a click on the extension's check box does: off and mixed mark all, on unmarks all,
    /// any other state does nothing.
    void changeState();
    /// The same for the check box of `set`, followed by determineSelfState.
    void changeStateOfSet(const std::shared_ptr<Set>& set);
    /// Turns the mark of `file`, a file of `set`, over, followed by determineSelfState.
    void changeStateOfFile(const std::shared_ptr<File>& file, const std::shared_ptr<Set>& set);
    /// Sets the marked counters to the sums of the sets' and answers the state that follows from
    /// the sets' states: on when every set is on or mixed (so too without any set), mixed when
    /// some are, else off. Leaves extensionState to the caller.
    CheckState determineSelfState();

    /// Set::removeSelectedFilesInSet for one of the sets; totals, marks and state follow.
    RemovalResult removeSelectedFilesInSet(const std::shared_ptr<Set>& set, FileMover& mover);
    /// Set::addSelectedFilesInSetToException for one of the sets; marks and state follow, the
    /// totals stay.
    std::vector<std::string> addSelectedFilesInExtensionToExceptionOfSet(
        const std::shared_ptr<Set>& set);

    [[nodiscard]] const std::vector<std::shared_ptr<Set>>& sets() const { return sets_; }
    /// Touches no counter. The former sets belong to no extension afterwards.
    void setSets(std::vector<std::shared_ptr<Set>> sets);

    [[nodiscard]] const std::string& name() const { return name_; }
    /// Lists that hold the extension find it by the new name from then on.
    void setName(std::string name);
    /// How often extensions were renamed since the program began, over all of them. Lists compare
    /// it to learn that what they noted of names may be out of date. Any thread may ask.
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
    void takeIn(Set& set);
    void letGoOfSets();
    [[nodiscard]] SetTally walkSets() const;

    std::vector<std::shared_ptr<Set>> sets_;
    std::string name_;
    SetTally tally_;            ///< kept current by the sets that belong here
    bool tallyIsWhole_ = true;  ///< `tally_` counts each entry of `sets_` exactly once
    CheckState extensionState_ = CheckState::off;
    std::uint64_t total_ = 0;
    std::uint64_t totalSize_ = 0;
    std::uint64_t marked_ = 0;
    std::uint64_t markedSize_ = 0;
};

}  // namespace tarvin
