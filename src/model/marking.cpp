#include "model/marking.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

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

ToggleResult toggleFile(Modal& modal, const std::shared_ptr<Extensions>& extension,
                        const std::shared_ptr<Set>& set, std::size_t position) {
    // A copy: the set's list may change during the call.
    const std::shared_ptr<File> file = set->files()[position];
    if (file->state() == CheckState::off && allDuplicatesAreSelectedOfSet(*set)) {
        return ToggleResult::refused;
    }
    modal.changeStateOfExtension(extension, set, file);
    return ToggleResult::toggled;
}

std::optional<ResultView> currentViewOf(const ViewFlags& flags) {
    const std::array inOrder{std::pair(flags.allTab, ResultView::all),
                             std::pair(flags.imageTab, ResultView::image),
                             std::pair(flags.audioTab, ResultView::audio),
                             std::pair(flags.videoTab, ResultView::video),
                             std::pair(flags.docsTab, ResultView::documents),
                             std::pair(flags.othrTab, ResultView::other)};
    const auto* const set =
        std::find_if(inOrder.begin(), inOrder.end(), [](const auto& view) { return view.first; });
    return set == inOrder.end() ? std::nullopt : std::optional(set->second);
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

DeletionStart deletionStartFor(const Modal& modal, bool unMarkAllEnabled) {
    if (!unMarkAllEnabled) {
        return DeletionStart::information;
    }
    return modal.totalFilesSelected() == 0 ? DeletionStart::nothing : DeletionStart::run;
}

bool mayAddExceptions(const Modal& modal) {
    return modal.totalFiles() != 0 && modal.totalFilesSelected() != 0;
}

bool mayRemoveExceptions(const std::vector<std::string>& exceptionArrayData) {
    return !exceptionArrayData.empty();
}

std::vector<std::string> takeOutMarkedFiles(Modal& modal) {
    std::vector<std::string> batch;
    if (modal.totalFilesSelected() == 0) {
        return batch;
    }
    for (const std::shared_ptr<Extensions>& extension : modal.extensionsArray()) {
        if (extension->extensionState() == CheckState::off) {
            continue;
        }
        for (const std::shared_ptr<Set>& set : extension->sets()) {
            if (set->setsState() != CheckState::off) {
                std::vector<std::string> paths =
                    modal.addSelectedFilesToExceptionInSet(set, extension);
                std::move(paths.begin(), paths.end(), std::back_inserter(batch));
            }
        }
    }
    return batch;
}

}  // namespace tarvin
