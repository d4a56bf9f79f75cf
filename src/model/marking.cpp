#include "model/marking.h"

namespace tarvin {

std::optional<SelectionClass> selectionClassOf(const Modal& modal) {
    const std::uint64_t selected = modal.totalFilesSelected();
    const std::uint64_t total = modal.totalFiles();
    if (selected == 0) {
        return SelectionClass::nothing;
    }
    if (selected == total) {
        return SelectionClass::all;
    }
    return selected < total ? std::optional(SelectionClass::some) : std::nullopt;
}

bool allDuplicatesAreSelectedOfSet(const Set& set) {
    // Wraps for an empty set, which has nothing to mark.
    return set.totalFilesSelectedInSet() == std::uint64_t{set.files().size()} - 1;
}

ToggleAnswer toggleFile(Modal& modal, const std::shared_ptr<Extensions>& extension,
                        const std::shared_ptr<Set>& set, std::size_t position) {
    // Kept alive and in hand: the list may change under its reference.
    const std::shared_ptr<File> file = set->files()[position];
    if (file->state() == CheckState::off && allDuplicatesAreSelectedOfSet(*set)) {
        return ToggleAnswer::refused;
    }
    modal.changeStateOfExtension(extension, set, file);
    return ToggleAnswer::toggled;
}

ButtonStates buttonStatesFor(const Modal& modal, bool exact, std::optional<ResultView> current) {
    ButtonStates states;
    if (exact && modal.extensionCount() == 0) {
        states.markAll = false;
        states.unMarkAll = false;
        states.sendToRecycle = false;
        states.addEceptionBtn = false;
        states.sortPopupBtn = false;
        return states;
    }
    states.currentView = current;
    const std::optional<SelectionClass> selection = exact ? selectionClassOf(modal) : std::nullopt;
    if (!selection) {
        return states;
    }
    const bool anything = *selection != SelectionClass::nothing;
    states.markAll = *selection != SelectionClass::all;
    states.unMarkAll = anything;
    states.sendToRecycle = anything;
    states.deletePermanently = anything;
    states.addEceptionBtn = anything;
    if (!anything) {
        states.sortPopupBtn = true;
    }
    return states;
}

}  // namespace tarvin
