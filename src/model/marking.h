#pragma once

#include "model/modal.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

// The rules of marking and of excluding marked files. Pure, except for toggleFile() and
// takeOutMarkedFiles(): only on the thread that changes the tree.

/// How many files of a result list are marked.
enum class SelectionClass : std::uint8_t {
    nothing,  ///< "0"
    all,      ///< "1": as many files as there are duplicates
    some      ///< "-1"
};

/// The class that follows from the counters of a list; nullopt if more files are marked than there
/// are duplicates.
[[nodiscard]] std::optional<SelectionClass> selectionClassOf(const Modal& modal);

/// Whether no more files of the set may be marked, because one file must stay. Depends on the
/// counters, not on positions, so any file may be the one that stays.
[[nodiscard]] bool allDuplicatesAreSelectedOfSet(const Set& set);

enum class ToggleResult : std::uint8_t {
    toggled,
    refused  ///< the last unmarked file of its set; nothing has changed
};

/// Toggles the mark of one file, unless that would leave the set without an unmarked file. `set`
/// belongs to `extension`, and `position` is in the set.
ToggleResult toggleFile(Modal& modal, const std::shared_ptr<Extensions>& extension,
                        const std::shared_ptr<Set>& set, std::size_t position);

/// Unmarks the file at `position` of `set`, a set of `modal`, and marks all others of the set. Only
/// on the thread that changes the tree.
void keepFile(Modal& modal, const Set& set, std::size_t position);

/// Unmarks the first file of each of the sets, which belong to `modal`. Marking all files of a set
/// does not change the mark of its first file, so a set whose first file was marked by a rule would
/// be marked as a whole. Only on the thread that changes the tree.
void unmarkFirstFiles(Modal& modal, const std::vector<std::shared_ptr<Set>>& sets);

/// Whether markFolder() would change a mark.
[[nodiscard]] bool canMarkFolder(const Modal& modal, const Directory& folder);

/// Marks the files in `folder`, without those in its subfolders. In a set that would have no
/// unmarked file left, the first file is unmarked, wherever it is and even if it was marked before.
/// Removes no other mark. Only on the thread that changes the tree.
void markFolder(Modal& modal, const Directory& folder);

/// Removes one file from `set`, which belongs to `extension`, and returns its path, to be excluded
/// from scans. The other files keep their marks; if all of them are marked, the first is unmarked.
/// The totals still count the file. Only on the thread that changes the tree.
[[nodiscard]] std::string takeOutFile(Modal& modal, const std::shared_ptr<Extensions>& extension,
                                      const std::shared_ptr<Set>& set, std::size_t position);

/// The lists of a result that can be shown, each with its own button.
enum class ResultView : std::uint8_t { all, image, audio, video, documents, other };

/// The flags of the six views. At most one is set.
struct ViewFlags {
    bool allTab = false;
    bool imageTab = false;
    bool videoTab = false;
    bool audioTab = false;
    bool docsTab = false;
    bool othrTab = false;
};

/// The view whose flag is set; if there are several, the first in the order of ResultView.
[[nodiscard]] std::optional<ResultView> currentViewOf(const ViewFlags& flags);

/// Which buttons of the result screen are enabled. nullopt: the button does not change.
struct ButtonStates {
    std::optional<bool> markAll{};
    std::optional<bool> unMarkAll{};
    std::optional<bool> sendToRecycle{};
    std::optional<bool> deletePermanently{};
    std::optional<bool> addEceptionBtn{};
    std::optional<bool> sortPopupBtn{};
    /// The view whose button is disabled while the other five are enabled. nullopt: no change.
    std::optional<ResultView> currentView{};

    bool operator==(const ButtonStates&) const = default;
};

/// The states that follow from a list. `exact`: found by a scan for identical files.
/// `current`: the view that is shown, if any.
[[nodiscard]] ButtonStates buttonStatesFor(const Modal& modal, bool exact,
                                           std::optional<ResultView> current);

/// The effect of a click on Delete.
enum class DeletionStart : std::uint8_t {
    information,  ///< the notice that nothing is marked
    nothing,
    run
};

/// The notice depends on the button `unMarkAll`, not on the counters, which may be newer.
[[nodiscard]] DeletionStart deletionStartFor(const Modal& modal, bool unMarkAllEnabled);

/// Whether there are marked files to exclude. If not, the pressed button is disabled and nothing
/// else happens.
[[nodiscard]] bool mayAddExceptions(const Modal& modal);

/// Whether the button that clears the exceptions list is enabled.
[[nodiscard]] bool mayRemoveExceptions(const std::vector<std::string>& exceptionArrayData);

/// Removes the marked files from a result list and returns their paths, extension by extension and
/// set by set, to be excluded from scans. Skips extensions and sets whose state is off, even if
/// every file of a set is marked. The totals of the list still count the removed files.
[[nodiscard]] std::vector<std::string> takeOutMarkedFiles(Modal& modal);

}  // namespace tarvin
