#pragma once

#include "model/modal.h"

#include <QAbstractItemModel>
#include <cstddef>
#include <memory>

namespace tarvin {

class TreeSnapshot;

/// A result list as its outline shows it: extensions, and the sets of each below it. Reads the list
/// itself and holds nothing of it: memory does not grow with the result, and every row is found at
/// once. Never changes the list. Main thread.
///
/// The list tells nobody of its changes, so whoever changes marks or files says which rows follow.
/// Extensions and sets stay where they are until the next setModal(); the row numbers here are the
/// positions in Modal::extensions() and Extensions::sets().
class ResultTree final : public QAbstractItemModel {
    Q_OBJECT

 public:
    enum Column { check, name };

    // Of the horizontal header.
    static constexpr int identifier = Qt::UserRole;  ///< QString: "check" or "name"

    explicit ResultTree(QObject* parent = nullptr);
    ~ResultTree() override;

    /// Shows another list, or the same after its extensions or sets became others; none shows
    /// nothing. Ends showSnapshot().
    void setModal(std::shared_ptr<Modal> modal);
    [[nodiscard]] const std::shared_ptr<Modal>& modal() const { return modal_; }

    /// The check box of what is not in the tree (any more).
    void setSelectAll(bool selectAll) { selectAll_ = selectAll; }

    /// Marks or files of one set became others: its row and that of its extension follow.
    void marksChanged(int extension, int set);
    /// The same for one extension and all its sets.
    void extensionChanged(int extension);
    /// The same for every row.
    void allMarksChanged();

    /// While another thread changes marks and files, the rows show what they showed before, and
    /// nothing of the list is read but which extensions and sets there are. Takes 16 bytes a set.
    void showSnapshot();
    /// The other thread is done; every row shows what there is now.
    void endSnapshot();

    /// The extension of a row, or the one above the row of a set; none without such a row.
    [[nodiscard]] std::shared_ptr<Extensions> extensionAt(const QModelIndex& index) const;
    /// None for the row of an extension.
    [[nodiscard]] std::shared_ptr<Set> setAt(const QModelIndex& index) const;
    /// Where they are, -1 for none.
    [[nodiscard]] static int extensionRow(const QModelIndex& index);
    [[nodiscard]] static int setRow(const QModelIndex& index);
    /// In the first column; invalid if there is no such row.
    [[nodiscard]] QModelIndex indexOfExtension(int extension) const;
    [[nodiscard]] QModelIndex indexOfSet(int extension, int set) const;

    [[nodiscard]] QModelIndex index(int row, int column,
                                    const QModelIndex& parent = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex& index) const override;
    using QObject::parent;
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    /// The text is the second column's, the check state and "Mark <text>" for assistive technology
    /// are the first's.
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
    [[nodiscard]] QString textOf(const QModelIndex& index) const;
    void reportExtension(int extension);
    void reportSetsOf(int extension);

    std::shared_ptr<Modal> modal_;
    std::unique_ptr<TreeSnapshot> snapshot_;  // none while the list is followed
    bool selectAll_ = false;
};

}  // namespace tarvin
