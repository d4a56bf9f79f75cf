#pragma once

#include "platform/file_system.h"
#include "platform/timestamp.h"

#include <QCoreApplication>
#include <QSizeF>
#include <QString>
#include <optional>
#include <string>

namespace tarvin {

/// The property sheet of one file, in one of two formats: from the current attributes of a path
/// (symbolic links are not followed), or from attributes read before. Unknown values are empty.
/// Paths are native bytes; the name is shown as textOfPath() writes it. Main thread only.
class FileProperties final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::FileProperties)

 public:
    /// For the image view. `size` is the size of the image after applying its orientation, in
    /// pixels; empty while unknown or if the file is not a readable image, and then not shown.
    [[nodiscard]] static QString getImageProperties(FileSystem& fileSystem, const std::string& path,
                                                    QSizeF size);
    [[nodiscard]] static QString getImageProperties(const std::optional<FileAttributes>& attributes,
                                                    const std::string& path, QSizeF size);
    /// For every other view.
    [[nodiscard]] static QString getAllProperties(FileSystem& fileSystem, const std::string& path);
    [[nodiscard]] static QString getAllProperties(const std::optional<FileAttributes>& attributes,
                                                  const std::string& path);

    /// "2026-01-31 23:59:59" in local time, without fractions of a second, the same in every
    /// language; empty without a date.
    [[nodiscard]] static QString dateToString(std::optional<Timestamp> date);
    /// The shortest decimal text that round-trips, without an exponent: "1024", "0.1".
    [[nodiscard]] static QString decimalText(double number);
};

}  // namespace tarvin
