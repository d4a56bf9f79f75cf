#pragma once

#include "clean/put_back.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QString>
#include <cstdint>
#include <vector>

namespace tarvin {

/// The expected outcome of putting a clean-up back. All files are counted; of each group
/// FileReasons::maxListed are kept. One thread at a time.
class PutBackForecast final {
 public:
    /// Call in the order of the clean-up.
    void add(const PutBackFile& file);

    // Files that can be put back, that cannot, and both.

    [[nodiscard]] std::uint64_t coming() const { return coming_; }
    [[nodiscard]] std::uint64_t staying() const { return all_ - coming_; }
    [[nodiscard]] std::uint64_t all() const { return all_; }
    /// Size of all files, in bytes.
    [[nodiscard]] std::uint64_t bytes() const { return bytes_; }

    /// At most FileReasons::maxListed: first those that cannot be put back, then those that are put
    /// back under another name or into a new folder.
    [[nodiscard]] std::vector<PutBackFile> files() const;

 private:
    std::vector<PutBackFile> staying_;
    std::vector<PutBackFile> changed_;
    std::vector<PutBackFile> ready_;
    std::uint64_t coming_ = 0;
    std::uint64_t all_ = 0;
    std::uint64_t bytes_ = 0;
};

/// The files of the last clean-up, the folders they go back to and the expected outcome, for a
/// ListTable. Main thread only.
class PutBackList final : public QAbstractTableModel {
    Q_OBJECT

 public:
    enum Column { fileColumn, statusColumn, columns };

    using QAbstractTableModel::QAbstractTableModel;

    void setFiles(const PutBackForecast& forecast);
    /// The same while the outcomes are unknown.
    void setUnchecked(const UncheckedCleanUp& cleanUp);

    /// Why a file is not put back; empty if it is.
    [[nodiscard]] static QString reasonOf(const PutBackFile& file);
    /// The text of the status column.
    [[nodiscard]] static QString statusText(const PutBackFile& file);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

 private:
    [[nodiscard]] static QString refusalText(const PutBackFile& file);
    [[nodiscard]] QString shownStatus(const PutBackFile& file) const;
    [[nodiscard]] QVariant fileData(const PutBackFile& file, int role) const;
    [[nodiscard]] QVariant statusData(const PutBackFile& file, int role) const;
    [[nodiscard]] QVariant lastRowData(int column, int role) const;

    std::vector<PutBackFile> files_;
    std::uint64_t more_ = 0;  // files not listed
    bool isChecked_ = true;   // whether the outcomes are known
};

}  // namespace tarvin
