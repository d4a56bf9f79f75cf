#pragma once

#include "controller/held_marks.h"
#include "interface/result_table.h"
#include "model/set.h"

#include <QAbstractTableModel>
#include <memory>
#include <optional>
#include <vector>

namespace tarvin {

/// Table model of the files of the selected set, in the set's order. Reads the set live and never
/// changes it. Main thread only.
///
/// The set emits no signals: Results reports changed marks here and calls setSet() again after
/// adding or removing files. Rows whose files have been removed since are empty.
class FileList final : public QAbstractTableModel {
    Q_OBJECT

 public:
    using enum ResultTable::Column;

    // Role of the horizontal header.
    static constexpr int identifier = Qt::UserRole;  ///< QString: the column's name

    explicit FileList(QObject* parent = nullptr);

    /// Shows a set, or the same one after its files changed; with nullptr the table is empty.
    /// `ordinal` is the set's 1-based number within its extension.
    void setSet(std::shared_ptr<Set> set, int ordinal);
    [[nodiscard]] const std::shared_ptr<Set>& set() const { return set_; }

    // Report that the mark of one file, or of any, changed.

    void markChanged(int row);
    void allMarksChanged();

    /// Call before another thread changes marks, but no files: each row keeps its state.
    void holdMarks(HeldMarks held);
    /// Call after the other thread has finished, then report the changed rows.
    void releaseMarks();

    /// Returns nullptr if there is no such row (any more).
    [[nodiscard]] std::shared_ptr<File> fileAt(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    /// First three columns: texts. Last column: check state, and "Mark <name>" for assistive
    /// technology. All four: the path as tool tip.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
    [[nodiscard]] QString textOf(const File& file, int column) const;
    [[nodiscard]] CheckState stateOf(int row) const;

    std::shared_ptr<Set> set_;
    int ordinal_ = 0;
    int rows_ = 0;
    mutable std::optional<HeldMarks> held_;  // none while the marks may be read
    std::vector<CheckState> heldStates_;     // of the rows; none if the set was shown later
    bool isFilledAnew_ = false;              // since the marks are held
};

}  // namespace tarvin
