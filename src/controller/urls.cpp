#include "controller/urls.h"

#include "store/property_list.h"

#include <QFile>
#include <QFileInfo>
#include <string>

namespace tarvin {

namespace {

constexpr qint64 maxUrlsBytes = 1024 * 1024;

QString textOf(const PropertyList& list, const char* key) {
    return QString::fromStdString(list.text(key).value_or(std::string()));
}

}  // namespace

Urls readUrls(const QString& path) {
    QFile file(path);
    // Opening a FIFO would block.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray bytes = file.read(maxUrlsBytes + 1);
    if (bytes.size() > maxUrlsBytes) {
        return {};
    }
    const auto list = PropertyList::parse(bytes.toStdString());
    if (!list || !list->isDictionary()) {
        return {};
    }
    return {.support = textOf(*list, "Support"),
            .folderLocation = textOf(*list, "FolderLocation"),
            .folderName = textOf(*list, "FolderName")};
}

}  // namespace tarvin
