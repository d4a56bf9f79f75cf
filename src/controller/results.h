#pragma once

#include "controller/before_input.h"
#include "controller/file_list.h"
#include "controller/result_tree.h"
#include "controller/tree_snapshot.h"
#include "controller/work_thread.h"
#include "model/marking.h"
#include "model/marking_rule.h"
#include "scan/scan_run.h"

#include <QObject>
#include <QPersistentModelIndex>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// The result in view: its list, the models of outline and file table, and the selected set. Every
/// change of the list, its marks or its files is made here and reported: to the views by the
/// models, to all others by marksChanged(). Owned by AppDelegate. Main thread only.
///
/// Marking a long list takes tenths of a second, so another thread does it (isMarking()). Until it
/// has finished, the models show the marks of before and marksChanged() is not emitted; whoever
/// asks for the list waits. Every press of a button or key waits first, too, and so finds the marks
/// and controls that it would find if they were changed at once.
class Results final : public QObject {
    Q_OBJECT

 public:
    /// `scan` holds the results of its categories and must outlive this object.
    explicit Results(const ScanRun& scan, QObject* parent = nullptr);
    Results(const Results&) = delete;
    Results& operator=(const Results&) = delete;
    /// Waits for the thread that changes marks.
    ~Results() override;

    // The list in view. The models show it after the next reload().

    /// Shows all categories of the scan that has just ended.
    void begin();
    /// Shows `list` as the one of all categories.
    void begin(std::shared_ptr<Modal> list);
    /// Replaces the list by that of another view; without a result, only tabs() change. A category
    /// that was not compared has an empty list.
    void change(ResultView view);
    /// Drops the result. Call before the scan drops its own.
    void forget();
    /// The models show the list in view, from its start, with nothing selected.
    void reload();

    /// An empty list if there is no result. Waits for a thread that changes its marks.
    [[nodiscard]] const Modal& list() const;
    /// The same list, for another thread, which may read it only while no thread changes it. Null
    /// if there is no result.
    [[nodiscard]] std::shared_ptr<const Modal> sharedList() const;
    [[nodiscard]] bool hasResult() const { return list_ != nullptr; }
    [[nodiscard]] bool isEmpty() const { return !list_ || list_->extensionCount() == 0; }
    [[nodiscard]] const ViewFlags& tabs() const { return tabs_; }
    /// Duplicates that the scan found in a category; 0 if it was not compared.
    [[nodiscard]] std::uint64_t filesOf(ResultView view) const;

    // The models, for their views and for looking up rows.

    [[nodiscard]] QAbstractItemModel* treeModel() { return &tree_; }
    [[nodiscard]] QAbstractItemModel* fileModel() { return &files_; }
    [[nodiscard]] const ResultTree& tree() const { return tree_; }
    [[nodiscard]] const FileList& files() const { return files_; }

    // The selected set.

    /// Selects a row of the tree; the file table keeps its set until showFilesInOrder().
    void select(const QModelIndex& row) { selected_ = row; }
    [[nodiscard]] QModelIndex selected() const { return selected_; }
    /// `nullptr` if no set is selected.
    [[nodiscard]] std::shared_ptr<Set> selectedSet() const { return tree_.setAt(selected_); }
    /// Numbers the files of the selected set by their creation date and shows them in the table.
    /// Possible while marks are being changed.
    void showFilesInOrder(bool ascending);

    // Marks. Without a result these do nothing and report nothing. Marking a whole set, extension
    // or list does not change the mark of a set's first file, unless files were marked by a rule,
    // by keepFile() or by markFolderOf(): then the first file of each set is unmarked.

    /// Whether another thread is changing marks.
    [[nodiscard]] bool isMarking() const { return isMarking_; }
    /// Waits until it has finished and reports the marks. All that changes marks or files does so.
    void finishMarking();
    /// From how many duplicates on another thread marks a list; about 50,000 take a millisecond.
    void setMarkedAsideFrom(std::uint64_t duplicates) { markedAsideFrom_ = duplicates; }

    void markAll();
    void unmarkAll();
    /// Replaces all marks by those of a rule.
    void markByRule(const MarkingRule& rule);
    /// Toggles an extension or a set by its row in the tree. If there is no such row, only reports
    /// the marks again.
    void toggle(const QModelIndex& row);
    /// Toggles a file of the selected set; nullopt if there is no such file.
    std::optional<ToggleResult> toggleFile(int row);

    // One file of the selected set. Without such a file these do nothing.

    /// Unmarks it and marks all others of the set.
    void keepFile(int row);
    /// Whether markFolderOf() would mark a file.
    [[nodiscard]] bool canMarkFolderOf(int row) const;
    /// Marks the files of its folder in the list in view: tarvin::markFolder().
    void markFolderOf(int row);
    /// Takes it out of the list, to be excluded from scans. Returns its path.
    [[nodiscard]] std::optional<std::string> takeOutFile(int row);

    // Files.

    /// Sums the totals of the list in view again and returns it. Its marks may be changing.
    [[nodiscard]] const Modal& countedList();
    /// Takes the marked files out of the list, to be excluded from scans. Returns their paths.
    [[nodiscard]] std::vector<std::string> takeOutMarkedFiles();
    /// Lends the list to another thread until endDeletion(). That may only read it at first: it
    /// copies the rows, and after freezeRows() it changes marks and files. The file table is empty.
    [[nodiscard]] std::shared_ptr<Modal> beginDeletion();
    /// The tree shows these rows of the lent list until endDeletion().
    void freezeRows(std::unique_ptr<const TreeSnapshot> rows);
    void endDeletion();

 Q_SIGNALS:
    /// Marks or marked files may have changed, so the counters of the list may be different.
    void marksChanged();
    /// Files were taken out of the list, or may have been moved. The file table shows what is left
    /// of the selected set.
    void filesRemoved();
    /// Emitted by the thread that changed marks, received on the main thread.
    void marked(quint64 change);

 private:
    [[nodiscard]] const std::shared_ptr<Modal>& of(ResultView view) const;
    void showFiles();
    void reportAllMarks();
    void beginChange();
    void change(std::uint64_t duplicates, const std::function<void(Modal&)>& marks,
                std::optional<CheckState> after = std::nullopt);
    void changeAside(std::function<void(Modal&)> marks, std::optional<CheckState> after);

    const ScanRun& scan_;
    std::shared_ptr<Modal> list_;  // none while no result is held
    ViewFlags tabs_;
    ResultTree tree_;
    FileList files_;
    QPersistentModelIndex selected_;  // in tree_
    // A rule, keepFile() or markFolderOf() may have marked the first files of sets.
    bool firstFilesMayBeMarked_ = false;
    // markAll() made the last change: canMarkFolderOf() would look through the whole list in vain.
    bool allAreMarked_ = false;
    std::uint64_t markedAsideFrom_ = 500'000;
    bool isMarking_ = false;
    quint64 changes_ = 0;                       // made by the thread so far, with the current one
    std::unique_ptr<BeforeInput> beforeInput_;  // while marks are being changed
    mutable WorkThread thread_;
};

}  // namespace tarvin
