#include "controller/file_properties.h"

#include "controller/location_folders.h"
#include "controller/path_text.h"
#include "scan/texts.h"

#include <QDateTime>
#include <array>
#include <charconv>
#include <chrono>

namespace tarvin {

namespace {

/// The lines of both sheets.
struct CommonProperties {
    QString name;
    QString size;
    QString created;
    QString modified;
};

std::optional<FileAttributes> attributesAt(FileSystem& fileSystem, const std::string& path) {
    const Result<FileAttributes> attributes = fileSystem.attributesAtPath(path);
    return attributes ? std::optional(*attributes) : std::nullopt;
}

CommonProperties commonOf(const std::optional<FileAttributes>& attributes,
                          const std::string& path) {
    CommonProperties properties{textOfPath(lastPathComponent(path)), {}, {}, {}};
    if (attributes) {
        properties.size = QString::fromStdString(getFormattedStringForSize(attributes->size));
        properties.created = FileProperties::dateToString(attributes->created);
        properties.modified = FileProperties::dateToString(attributes->modified);
    }
    return properties;
}

}  // namespace

QString FileProperties::getImageProperties(FileSystem& fileSystem, const std::string& path,
                                           QSizeF size) {
    return getImageProperties(attributesAt(fileSystem, path), path, size);
}

QString FileProperties::getImageProperties(const std::optional<FileAttributes>& attributes,
                                           const std::string& path, QSizeF size) {
    const CommonProperties common = commonOf(attributes, path);
    const QString dimensions =
        size.isEmpty() ? QString()
                       : QString(decimalText(size.width()) % 'x' % decimalText(size.height()));
    return tr(" %1\nSize                          : %2\nImage Dimensions   : %3\n"
              "Created Date           : %4\nModified Date         : %5")
        .arg(common.name, common.size, dimensions, common.created, common.modified);
}

QString FileProperties::getAllProperties(FileSystem& fileSystem, const std::string& path) {
    return getAllProperties(attributesAt(fileSystem, path), path);
}

QString FileProperties::getAllProperties(const std::optional<FileAttributes>& attributes,
                                         const std::string& path) {
    const CommonProperties common = commonOf(attributes, path);
    return tr(" %1\nSize                       : %2\nCreated Date        : %3\n"
              "Modified Date       : %4")
        .arg(common.name, common.size, common.created, common.modified);
}

QString FileProperties::dateToString(std::optional<Timestamp> date) {
    if (!date) {
        return {};
    }
    const auto seconds = std::chrono::floor<std::chrono::seconds>(*date);
    return QDateTime::fromSecsSinceEpoch(seconds.time_since_epoch().count())
        .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString FileProperties::decimalText(double number) {
    std::array<char, 400> digits{};  // the largest double has 309 before its point
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::fixed);
    return QString::fromLatin1(digits.data(), end.ptr - digits.data());
}

}  // namespace tarvin
