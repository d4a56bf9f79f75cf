#pragma once

#include "controller/held_marks.h"
#include "interface/result_tree_view.h"
#include "model/modal.h"

#include <QAbstractItemModel>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>

namespace tarvin {

class TreeSnapshot;

/// Tree model of a result list: extensions, with their sets below them. Reads the list live, so it
/// needs no memory per row and finds every row in constant time. Never changes the list. Main
/// thread only.
///
/// The list emits no signals: Results reports here which rows changed. Extensions and sets keep
/// their positions until the next setModal(); row numbers are the positions in Modal::extensions()
/// and Extensions::sets().
class ResultTree final : public QAbstractItemModel {
    Q_OBJECT

 public:
    using enum ResultTreeView::Column;

    // Role of the horizontal header.
    static constexpr int identifier = Qt::UserRole;  ///< QString: "check" or "name"

    explicit ResultTree(QObject* parent = nullptr);
    ~ResultTree() override;

    /// Shows a list, or the same one after its extensions or sets changed; nullptr shows no rows.
    /// Ends showSnapshot().
    void setModal(std::shared_ptr<Modal> modal);
    [[nodiscard]] const std::shared_ptr<Modal>& modal() const { return modal_; }

    /// The check state of rows that are not in the tree (any more).
    void setSelectAll(bool selectAll) { selectAll_ = selectAll; }

    /// Reports that marks or files of one set changed: its row and that of its extension.
    void marksChanged(int extension, int set);
    /// Reports one extension and all its sets.
    void extensionChanged(int extension);
    /// Reports every row.
    void allMarksChanged();

    /// Call before another thread changes marks and files: the rows show this copy of the list, and
    /// only its extensions and sets are read, not their contents.
    void showSnapshot(std::unique_ptr<const TreeSnapshot> snapshot);
    /// Call after the other thread has finished. Reports every row.
    void endSnapshot();

    /// Call before another thread changes marks, but no files: each row keeps the state that it
    /// last showed.
    void holdMarks(HeldMarks held);
    /// Call after the other thread has finished, then report the changed rows.
    void releaseMarks() { held_.reset(); }

    /// The extension of a row, or above the row of a set; nullptr if there is no such row.
    [[nodiscard]] std::shared_ptr<Extensions> extensionAt(const QModelIndex& index) const;
    /// nullptr for the row of an extension.
    [[nodiscard]] std::shared_ptr<Set> setAt(const QModelIndex& index) const;

    // Positions; -1 for none.

    [[nodiscard]] static int extensionRow(const QModelIndex& index);
    [[nodiscard]] static int setRow(const QModelIndex& index);

    // In the first column; invalid if there is no such row.

    [[nodiscard]] QModelIndex indexOfExtension(int extension) const;
    [[nodiscard]] QModelIndex indexOfSet(int extension, int set) const;

    [[nodiscard]] QModelIndex index(int row, int column,
                                    const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    using QObject::parent;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    /// First column: check state, and "Mark <text>" for assistive technology. Second column: text
    /// and, for a set, its size and details. The description for assistive technology has these
    /// details too.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    /// Only sets can be selected.
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
    [[nodiscard]] const Extensions* extensionIn(int extension) const;
    [[nodiscard]] const Set* setIn(int extension, int set) const;
    [[nodiscard]] bool isInTree(const QModelIndex& index) const;
    [[nodiscard]] CheckState stateOf(const QModelIndex& index) const;
    [[nodiscard]] CheckState currentState(int extension, int set) const;
    [[nodiscard]] QString textOf(const QModelIndex& index) const;
    [[nodiscard]] QString sizeOf(const QModelIndex& index) const;
    [[nodiscard]] QStringList detailsOf(const QModelIndex& index) const;
    [[nodiscard]] QString descriptionOf(const QModelIndex& index) const;
    void reportExtension(int extension);
    void reportSetsOf(int extension);

    /// A row with the state that it last showed; of an extension if `set` is -1.
    struct ShownRow {
        int extension = -1;
        int set = -1;
        CheckState state = CheckState::off;
    };
    /// The place of a row among the last ones: rows that follow each other have different places.
    [[nodiscard]] ShownRow& lastShown(int extension, int set) const;
    void forgetShown(int extension);

    std::shared_ptr<Modal> modal_;
    std::unique_ptr<const TreeSnapshot> snapshot_;  // null while the list is read live
    mutable std::array<ShownRow, 256> shown_;       // more than there are on a screen
    mutable std::optional<HeldMarks> held_;         // none while the marks may be read
    bool isFilledAnew_ = false;                     // since the marks are held
    bool selectAll_ = false;
};

}  // namespace tarvin
