#include "model/marking.h"

#include "model/each_set.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace tarvin {

namespace {

using Marks = std::vector<CheckState>;

/// Whether files are in one folder. Fast if files of the same folder follow each other.
class FolderMatch final {
 public:
    explicit FolderMatch(const Directory& folder) : folder_(folder), path_(folder.path()) {}

    bool holds(const File& file) {
        const Directory* const folder = file.directory();
        if (folder != last_) {
            last_ = folder;
            // A folder can be stored twice, if single files of it were chosen.
            holdsLast_ = folder == &folder_ ||
                         (folder->pathLength == folder_.pathLength &&
                          path_.ends_with(std::string_view(folder->name, folder->nameLength)) &&
                          folder->path() == path_);
        }
        return holdsLast_;
    }

 private:
    const Directory& folder_;
    const std::string path_;
    const Directory* last_ = nullptr;
    bool holdsLast_ = false;
};

/// Whether adding the marks of the folder changes those of a set.
bool changesMarks(FolderMatch& folder, const Set& set) {
    bool anyAdded = false;
    bool anyStays = false;
    bool differsFromFirst = false;  // from the marks of a set of which only the first file stays
    bool isFirst = true;
    for (const std::shared_ptr<File>& file : set.files()) {
        const bool isMarked = file->state() != CheckState::off;
        const bool isAdded = !isMarked && folder.holds(*file);
        anyAdded = anyAdded || isAdded;
        anyStays = anyStays || (!isMarked && !isAdded);
        differsFromFirst = differsFromFirst || (isFirst ? isMarked : isAdded);
        isFirst = false;
    }
    return anyAdded && (anyStays || differsFromFirst);
}

/// The marks of a set after those of the folder have been added.
Marks marksWith(FolderMatch& folder, const Set& set) {
    Marks marks;
    for (const std::shared_ptr<File>& file : set.files()) {
        const bool isOn = file->state() != CheckState::off || folder.holds(*file);
        marks.push_back(isOn ? CheckState::on : CheckState::off);
    }
    if (std::find(marks.begin(), marks.end(), CheckState::off) == marks.end()) {
        marks.front() = CheckState::off;
    }
    return marks;
}

void setMarksOf(Modal& modal, const Set& set, const Marks& marks) {
    modal.changeMarksOfFewSets([&set, &marks](Set& each) {
        if (&each == &set) {
            each.setMarks(marks);
        }
    });
}

}  // namespace

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

void keepFile(Modal& modal, const Set& set, std::size_t position) {
    Marks marks(set.files().size(), CheckState::on);
    marks[position] = CheckState::off;
    setMarksOf(modal, set, marks);
}

void unmarkFirstFiles(Modal& modal, const std::vector<std::shared_ptr<Set>>& sets) {
    std::unordered_set<const Set*> meant;
    for (const std::shared_ptr<Set>& set : sets) {
        if (!set->files().empty() && set->files().front()->state() != CheckState::off) {
            meant.insert(set.get());
        }
    }
    modal.changeMarksOfFewSets([&meant](Set& set) {
        if (meant.contains(&set)) {
            set.changeStateOfFile(set.files().front());
        }
    });
}

bool canMarkFolder(const Modal& modal, const Directory& folder) {
    FolderMatch match(folder);
    for (const std::shared_ptr<Extensions>& extension : modal.extensions()) {
        if (!forEachSet(extension->sets(),
                        [&match](const Set& set) { return !changesMarks(match, set); })) {
            return true;
        }
    }
    return false;
}

void markFolder(Modal& modal, const Directory& folder) {
    FolderMatch match(folder);
    modal.changeMarksOfSets([&match](Set& set) {
        if (changesMarks(match, set)) {
            set.setMarks(marksWith(match, set));
        }
    });
}

std::string takeOutFile(Modal& modal, const std::shared_ptr<Extensions>& extension,
                        const std::shared_ptr<Set>& set, std::size_t position) {
    Marks others;
    for (const std::shared_ptr<File>& file : set->files()) {
        others.push_back(file->state());
    }
    others.erase(others.begin() + static_cast<std::ptrdiff_t>(position));
    if (!others.empty() &&
        std::find(others.begin(), others.end(), CheckState::off) == others.end()) {
        others.front() = CheckState::off;
    }
    Marks only(set->files().size(), CheckState::off);
    only[position] = CheckState::on;
    setMarksOf(modal, *set, only);
    const std::vector<std::string> paths = modal.addSelectedFilesToExceptionInSet(set, extension);
    setMarksOf(modal, *set, others);
    return paths.front();
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
