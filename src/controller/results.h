#pragma once

#include "controller/file_list.h"
#include "controller/result_tree.h"
#include "model/marking.h"
#include "scan/scan_run.h"

#include <QPersistentModelIndex>
#include <memory>

namespace tarvin {

/// The result that is looked at, which the tasks of the result screen share. Main thread.
struct Results {
    /// `theScan` holds the results of its categories and outlives this.
    explicit Results(ScanRun& theScan) : scan(theScan) {}

    /// A scan is over: all categories are in view.
    void begin();
    /// Puts another view's list in its place; nothing while there is no result. A category that was
    /// not compared has no list.
    void change(ResultView view);
    /// There is no result any more. Call it before the scan forgets its own.
    void forget();

    /// The list in view, which is none of the models' until they are reloaded.
    [[nodiscard]] const std::shared_ptr<Modal>& of(ResultView view) const;
    [[nodiscard]] bool isEmpty() const { return !modal || modal->extensionCount() == 0; }

    /// The rows show the list in view, from its beginning.
    void reload();
    /// The rows show what has become of marks and files; whatever is selected stays so.
    void refresh();

    /// The selected set; invalid if none is.
    [[nodiscard]] std::shared_ptr<Set> selectedSet() const { return tree.setAt(selected); }
    /// The file list shows the selected set.
    void showFiles();

    ScanRun& scan;
    std::shared_ptr<Modal> modal;  ///< none while no result is held
    ViewFlags tabs;
    ResultTree tree;
    FileList files;
    QPersistentModelIndex selected;  ///< in `tree`
};

}  // namespace tarvin
