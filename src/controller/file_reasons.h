#pragma once

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QString>
#include <QVector>
#include <cstdint>
#include <string_view>

namespace tarvin {

/// A file, its folder and a reason, as the window shows them.
struct FileReason {
    /// Tells folders from files in lists that have both.
    enum class Kind : std::uint8_t { any, folder, file };

    QString name;
    QString folder;
    QString reason;
    Kind kind = Kind::any;
};

/// Splits an absolute path of native bytes.
[[nodiscard]] FileReason fileReason(std::string_view path, const QString& reason,
                                    FileReason::Kind kind = FileReason::Kind::any);

/// Files with a reason for each, for a ListTable, which shows the kind of each as an image. Main
/// thread only.
class FileReasons final : public QAbstractTableModel {
    Q_OBJECT

 public:
    enum Column { name, location, reason, columns };

    /// Rows for files; one more row then has the number of the others.
    static constexpr std::size_t maxListed = 10'000;

    using QAbstractTableModel::QAbstractTableModel;

    /// `all` is the number of files, including those not in `files`.
    void setFiles(QVector<FileReason> files, std::uint64_t all);

    /// Header and rows as lines of tab-separated columns.
    [[nodiscard]] QString text() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;

 private:
    [[nodiscard]] QString textOf(int row, int column) const;
    [[nodiscard]] static QVariant kindData(FileReason::Kind kind, int role);

    QVector<FileReason> files_;
    std::uint64_t more_ = 0;  // files not listed
};

}  // namespace tarvin
