#pragma once

#include "platform/file_system.h"
#include "platform/timestamp.h"

#include <QCoreApplication>
#include <QSizeF>
#include <QString>
#include <optional>
#include <string>

namespace tarvin {

/// The property sheet of one file, in one of two formats: of the entry at a path as it is at that
/// moment (a link is not followed), or of attributes that were asked for before. What cannot be had
/// is an empty text. Paths are native bytes; the sheet shows the name in one line whatever is in
/// it. Main thread.
class FileProperties final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::FileProperties)

 public:
    /// For the view of images. `size` is that of the image as it is seen, after its orientation,
    /// one point a pixel. Empty while it is not known or if the file is no image that can be read;
    /// then nothing stands in its place.
    [[nodiscard]] static QString getImageProperties(FileSystem& fileSystem, const std::string& path,
                                                    QSizeF size);
    [[nodiscard]] static QString getImageProperties(const std::optional<FileAttributes>& attributes,
                                                    const std::string& path, QSizeF size);
    /// For every other view, whatever the file is.
    [[nodiscard]] static QString getAllProperties(FileSystem& fileSystem, const std::string& path);
    [[nodiscard]] static QString getAllProperties(const std::optional<FileAttributes>& attributes,
                                                  const std::string& path);

    /// "2026-01-31 23:59:59" in the time zone of the machine, without fractions of a second and
    /// alike in every language; empty without a date.
    [[nodiscard]] static QString dateToString(std::optional<Timestamp> date);
    /// As few digits as tell the number from all others, never in powers of ten: "1024", "0.1".
    [[nodiscard]] static QString decimalText(double number);
};

}  // namespace tarvin
