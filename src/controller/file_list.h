#pragma once

#include "model/set.h"

#include <QAbstractTableModel>
#include <memory>

namespace tarvin {

/// The files of the chosen set as their table shows them, in the set's order. Reads the set itself
/// and holds nothing of it; never changes it. Main thread.
///
/// The set tells nobody of its changes: whoever changes marks says so, and whoever adds or takes
/// files calls setSet() again. Rows whose files have gone meanwhile are empty.
class FileList final : public QAbstractTableModel {
    Q_OBJECT

 public:
    enum Column {
        nameText,
        fileLocation,
        fileGroup,
        ButtonCell  // NOLINT(readability-identifier-naming)
    };

    // Of the horizontal header.
    static constexpr int identifier = Qt::UserRole;  ///< QString: the column's name

    explicit FileList(QObject* parent = nullptr);

    /// Shows another set, or the same after its files became others; none shows nothing. `ordinal`
    /// is the set's number within its extension, beginning with 1.
    void setSet(std::shared_ptr<Set> set, int ordinal);
    [[nodiscard]] const std::shared_ptr<Set>& set() const { return set_; }

    /// The mark of one file became another.
    void markChanged(int row);
    void allMarksChanged();

    /// None if there is no such row (any more).
    [[nodiscard]] std::shared_ptr<File> fileAt(int row) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    /// Texts of the first three columns; check state and "Mark <name>" for assistive technology of
    /// the last; the whole path as tool tip of all four.
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;

 private:
    [[nodiscard]] QString textOf(const File& file, int column) const;

    std::shared_ptr<Set> set_;
    int ordinal_ = 0;
    int rows_ = 0;
};

}  // namespace tarvin
