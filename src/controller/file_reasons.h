#pragma once

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QString>
#include <QVector>
#include <cstdint>
#include <string_view>

namespace tarvin {

/// A file, where it is, and what is to be said of it, as the window shows them.
struct FileReason {
    QString name;
    QString folder;
    QString reason;
};

/// That of an absolute path of native bytes.
[[nodiscard]] FileReason fileReason(std::string_view path, const QString& reason);

/// Files with a reason for each, for a ListTable. Main thread.
class FileReasons final : public QAbstractTableModel {
    Q_OBJECT

 public:
    enum Column { name, location, reason, columns };

    /// So many are listed; a last row tells how many more there are.
    static constexpr std::size_t maxListed = 10'000;

    using QAbstractTableModel::QAbstractTableModel;

    /// `all` counts the files together with those that are not listed.
    void setFiles(QVector<FileReason> files, std::uint64_t all);

    /// The titles and the rows, a line for each, with tabs between the columns.
    [[nodiscard]] QString text() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

 private:
    [[nodiscard]] QString textOf(int row, int column) const;

    QVector<FileReason> files_;
    std::uint64_t more_ = 0;  // that are not listed
};

}  // namespace tarvin
