#pragma once

#include "model/modal.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace tarvin {

// The rules of marking that no control decides. All pure but toggleFile(), which changes the tree
// and belongs to the thread that does.

/// How much of a result list is marked.
enum class SelectionClass : std::uint8_t {
    nothing,  ///< "0"
    all,      ///< "1": as many as there are duplicates
    some      ///< "-1"
};

/// The class that follows from the counters of a list; none if more is marked than there are
/// duplicates.
[[nodiscard]] std::optional<SelectionClass> selectionClassOf(const Modal& modal);

/// Whether no more of the set may be marked: one file has to stay. Counters decide, not positions,
/// so any one file may be the one that stays.
[[nodiscard]] bool allDuplicatesAreSelectedOfSet(const Set& set);

enum class ToggleResult : std::uint8_t {
    toggled,
    refused  ///< it is the last file of its set that is not marked; nothing has changed
};

/// What a click on one file's check box does: its mark turns over, unless that would leave the set
/// without an unmarked file. `set` is one of `extension`'s and `position` one of the set's.
ToggleResult toggleFile(Modal& modal, const std::shared_ptr<Extensions>& extension,
                        const std::shared_ptr<Set>& set, std::size_t position);

/// The lists of a result that can be looked at, each with a button of its own.
enum class ResultView : std::uint8_t { all, image, audio, video, documents, other };

/// The flags of the six views. One at most is set.
struct ViewFlags {
    bool allTab = false;
    bool imageTab = false;
    bool videoTab = false;
    bool audioTab = false;
    bool docsTab = false;
    bool othrTab = false;
};

/// The view whose flag is set; were several, the first in the order of ResultView.
[[nodiscard]] std::optional<ResultView> currentViewOf(const ViewFlags& flags);

/// Which buttons of the result screen may be pressed. No value: the button stays as it is.
struct ButtonStates {
    std::optional<bool> markAll{};
    std::optional<bool> unMarkAll{};
    std::optional<bool> sendToRecycle{};
    std::optional<bool> deletePermanently{};
    std::optional<bool> addEceptionBtn{};
    std::optional<bool> sortPopupBtn{};
    /// The view whose button is disabled while the other five are enabled; none: all stay.
    std::optional<ResultView> currentView{};

    bool operator==(const ButtonStates&) const = default;
};

/// The states that follow from a list. `exact` says that it comes from a scan for identical files;
/// `current` is the view that is shown, if one is.
[[nodiscard]] ButtonStates buttonStatesFor(const Modal& modal, bool exact,
                                           std::optional<ResultView> current);

/// What a person who asks for a deletion gets.
enum class DeletionStart : std::uint8_t {
    information,  ///< it is said that nothing is marked
    nothing,
    run
};

/// The button `unMarkAll` decides whether anything is said, whatever is marked: it may be behind
/// the counters.
[[nodiscard]] DeletionStart deletionStartFor(const Modal& modal, bool unMarkAllEnabled);

}  // namespace tarvin
