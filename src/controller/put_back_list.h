#pragma once

#include "clean/put_back.h"

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QString>
#include <cstdint>
#include <vector>

namespace tarvin {

/// What is found out of a clean-up before it is put back. All files are counted; as many of each
/// group are kept as a list shows. One thread at a time.
class PutBackOutlook final {
 public:
    /// In the order of the clean-up.
    void add(const PutBackFile& file);

    /// Files that come back, and that cannot.
    [[nodiscard]] std::uint64_t coming() const { return coming_; }
    [[nodiscard]] std::uint64_t staying() const { return all_ - coming_; }
    [[nodiscard]] std::uint64_t all() const { return all_; }
    /// Of all files, in bytes.
    [[nodiscard]] std::uint64_t bytes() const { return bytes_; }

    /// Those that cannot come first, then those with a change; at most what a list shows.
    [[nodiscard]] std::vector<PutBackFile> files() const;

 private:
    std::vector<PutBackFile> staying_;
    std::vector<PutBackFile> changed_;
    std::vector<PutBackFile> ready_;
    std::uint64_t coming_ = 0;
    std::uint64_t all_ = 0;
    std::uint64_t bytes_ = 0;
};

/// The files of the last clean-up, the places that they go back to and what becomes of them, for a
/// ListTable. Main thread.
class PutBackList final : public QAbstractTableModel {
    Q_OBJECT

 public:
    enum Column { file, status, columns };

    using QAbstractTableModel::QAbstractTableModel;

    void setFiles(const PutBackOutlook& outlook);
    /// The same while it is not known what becomes of them.
    void setUnchecked(const UncheckedCleanUp& cleanUp);

    /// Why a file does not come back; empty if it does.
    [[nodiscard]] static QString reasonOf(const PutBackFile& file);
    /// What the list says of a file.
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
    std::uint64_t more_ = 0;  // that are not listed
    bool isChecked_ = true;   // whether the outcomes say anything
};

}  // namespace tarvin
