#include "controller/results.h"

#include "controller/result_tabs.h"
#include "controller/sort_files.h"
#include "model/marking.h"

#include <array>
#include <utility>

namespace tarvin {

namespace {

Category categoryOf(ResultView view) {
    static constexpr std::array categories{Category::other, Category::image,     Category::audio,
                                           Category::video, Category::documents, Category::other};
    return ofView(categories, view);
}

ViewFlags flagsOf(ResultView view) {
    return {.allTab = view == ResultView::all,
            .imageTab = view == ResultView::image,
            .videoTab = view == ResultView::video,
            .audioTab = view == ResultView::audio,
            .docsTab = view == ResultView::documents,
            .othrTab = view == ResultView::other};
}

}  // namespace

Results::Results(const ScanRun& scan, QObject* parent) : QObject(parent), scan_(scan) {
    connect(
        this, &Results::marked, this,
        [this](quint64 change) {
            // Not of an earlier change, for which something has waited already.
            if (change == changes_) {
                finishMarking();
            }
        },
        Qt::QueuedConnection);
}

Results::~Results() {
    thread_.wait();
}

void Results::begin() {
    begin(scan_.result().modal);
}

void Results::begin(std::shared_ptr<Modal> list) {
    beginChange();
    list_ = std::move(list);
    firstFilesMayBeMarked_ = false;
    tabs_ = flagsOf(ResultView::all);
}

const std::shared_ptr<Modal>& Results::of(ResultView view) const {
    return scan_.result().of(categoryOf(view));
}

void Results::change(ResultView view) {
    beginChange();
    tabs_ = flagsOf(view);
    if (!list_) {
        return;
    }
    if (view != ResultView::all) {
        list_ = of(view) ? of(view) : std::make_shared<Modal>();
        return;
    }
    list_ = joinCategories(scan_.result().categories);
}

void Results::forget() {
    beginChange();
    selected_ = QPersistentModelIndex();
    files_.setSet(nullptr, 0);
    tree_.setModal(nullptr);
    list_.reset();
}

void Results::reload() {
    selected_ = QPersistentModelIndex();
    files_.setSet(nullptr, 0);
    tree_.setModal(list_);
}

const Modal& Results::list() const {
    static const Modal none;
    thread_.wait();
    return list_ ? *list_ : none;
}

std::shared_ptr<const Modal> Results::sharedList() const {
    thread_.wait();
    return list_;
}

std::uint64_t Results::filesOf(ResultView view) const {
    return of(view) ? of(view)->totalFiles() : 0;
}

void Results::showFilesInOrder(bool ascending) {
    if (const std::shared_ptr<Set> set = selectedSet()) {
        static_cast<void>(sortMaadi(set->files(), ascending));
        showFiles();
    }
}

void Results::showFiles() {
    // Sets are numbered from 1 within their extension.
    files_.setSet(selectedSet(), ResultTree::setRow(selected_) + 1);
}

void Results::markAll() {
    if (list_) {
        beginChange();
        change(list_->totalFiles(), [unmarksFirst = firstFilesMayBeMarked_](Modal& list) {
            if (unmarksFirst) {
                list.unmarkAllExtension();
            }
            list.markAllExtension();
        });
        allAreMarked_ = true;
    }
}

void Results::unmarkAll() {
    if (list_) {
        beginChange();
        firstFilesMayBeMarked_ = false;
        change(
            list_->totalFiles(), [](Modal& list) { list.unmarkAllExtension(); }, CheckState::off);
    }
}

void Results::markByRule(const MarkingRule& rule) {
    if (list_) {
        beginChange();
        firstFilesMayBeMarked_ = true;
        change(list_->totalFiles(), [rule](Modal& list) { tarvin::markByRule(list, rule); });
    }
}

/// Changes marks at once or on the thread. `duplicates`: those of the sets that it concerns.
/// `after`: the state that all have then, if it is the same.
void Results::change(std::uint64_t duplicates, const std::function<void(Modal&)>& marks,
                     std::optional<CheckState> after) {
    if (duplicates >= markedAsideFrom_) {
        changeAside(marks, after);
    } else {
        marks(*list_);
        reportAllMarks();
    }
}

void Results::changeAside(std::function<void(Modal&)> marks, std::optional<CheckState> after) {
    const HeldMarks held{.wait = [this] { thread_.wait(); }, .after = after};
    tree_.holdMarks(held);
    files_.holdMarks(held);
    isMarking_ = true;
    beforeInput_ = std::make_unique<BeforeInput>([this] { finishMarking(); });
    thread_.start([list = list_, marks = std::move(marks)] { marks(*list); },
                  [this, number = ++changes_] { Q_EMIT marked(number); });
}

/// Before each change of marks, files or the list itself.
void Results::beginChange() {
    finishMarking();
    allAreMarked_ = false;
}

void Results::finishMarking() {
    if (!isMarking_) {
        return;
    }
    thread_.wait();
    isMarking_ = false;
    beforeInput_.reset();
    tree_.releaseMarks();
    files_.releaseMarks();
    reportAllMarks();
}

void Results::reportAllMarks() {
    Q_EMIT marksChanged();
    tree_.allMarksChanged();
    files_.allMarksChanged();
}

void Results::toggle(const QModelIndex& row) {
    const std::shared_ptr<Extensions> extension = tree_.extensionAt(row);
    const std::shared_ptr<Set> set = tree_.setAt(row);
    if (!list_) {
        return;
    }
    beginChange();
    if (extension && !set && extension->totalFilesInExtension() >= markedAsideFrom_) {
        changeAside(
            [extension, unmarksFirst = firstFilesMayBeMarked_](Modal& list) {
                if (unmarksFirst && extension->extensionState() != CheckState::on) {
                    unmarkFirstFiles(list, extension->sets());
                }
                list.changeStateOfExtension(extension, nullptr, nullptr);
            },
            std::nullopt);
        return;
    }
    if (extension) {
        const CheckState state = set ? set->setsState() : extension->extensionState();
        if (firstFilesMayBeMarked_ && state != CheckState::on) {
            unmarkFirstFiles(*list_, set ? std::vector{set} : extension->sets());
        }
        list_->changeStateOfExtension(extension, set, nullptr);
    }
    Q_EMIT marksChanged();
    files_.allMarksChanged();
    if (set) {
        tree_.marksChanged(ResultTree::extensionRow(row), ResultTree::setRow(row));
    } else {
        tree_.extensionChanged(ResultTree::extensionRow(row));
    }
}

std::optional<ToggleResult> Results::toggleFile(int row) {
    const std::shared_ptr<Set> set = selectedSet();
    if (!list_ || !set || row < 0 || std::cmp_greater_equal(row, set->files().size())) {
        return std::nullopt;
    }
    beginChange();
    const ToggleResult answer = tarvin::toggleFile(*list_, tree_.extensionAt(selected_), set,
                                                   static_cast<std::size_t>(row));
    Q_EMIT marksChanged();
    files_.markChanged(row);
    tree_.marksChanged(ResultTree::extensionRow(selected_), ResultTree::setRow(selected_));
    return answer;
}

void Results::keepFile(int row) {
    const std::shared_ptr<Set> set = selectedSet();
    if (!list_ || files_.fileAt(row) == nullptr || !set) {
        return;
    }
    beginChange();
    tarvin::keepFile(*list_, *set, static_cast<std::size_t>(row));
    firstFilesMayBeMarked_ = true;
    Q_EMIT marksChanged();
    files_.allMarksChanged();
    tree_.marksChanged(ResultTree::extensionRow(selected_), ResultTree::setRow(selected_));
}

bool Results::canMarkFolderOf(int row) const {
    const std::shared_ptr<File> file = files_.fileAt(row);
    // With all marked only first files are left, and each of them has to stay.
    return list_ && file && !allAreMarked_ && canMarkFolder(list(), *file->directory());
}

void Results::markFolderOf(int row) {
    const std::shared_ptr<File> file = files_.fileAt(row);
    if (list_ && file) {
        beginChange();
        firstFilesMayBeMarked_ = true;
        change(list_->totalFiles(), [file](Modal& list) { markFolder(list, *file->directory()); });
    }
}

std::optional<std::string> Results::takeOutFile(int row) {
    const std::shared_ptr<Set> set = selectedSet();
    if (!list_ || files_.fileAt(row) == nullptr || !set) {
        return std::nullopt;
    }
    beginChange();
    std::string path = tarvin::takeOutFile(*list_, tree_.extensionAt(selected_), set,
                                           static_cast<std::size_t>(row));
    tree_.marksChanged(ResultTree::extensionRow(selected_), ResultTree::setRow(selected_));
    showFiles();
    Q_EMIT marksChanged();
    Q_EMIT filesRemoved();
    return path;
}

const Modal& Results::countedList() {
    if (list_) {
        list_->calculateTotalFilesAndSize();
        return *list_;
    }
    return list();
}

std::vector<std::string> Results::takeOutMarkedFiles() {
    if (!list_) {
        return {};
    }
    beginChange();
    std::vector<std::string> paths = tarvin::takeOutMarkedFiles(*list_);
    tree_.allMarksChanged();
    showFiles();
    Q_EMIT marksChanged();
    Q_EMIT filesRemoved();
    return paths;
}

std::shared_ptr<Modal> Results::beginDeletion() {
    beginChange();
    files_.setSet(nullptr, 0);
    return list_;
}

void Results::freezeRows(std::unique_ptr<const TreeSnapshot> rows) {
    tree_.showSnapshot(std::move(rows));
}

void Results::endDeletion() {
    tree_.endSnapshot();
    showFiles();
    Q_EMIT marksChanged();
    Q_EMIT filesRemoved();
}

}  // namespace tarvin
