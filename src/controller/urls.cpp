#include "controller/urls.h"

#include "store/property_list.h"

#include <QFile>
#include <string>

namespace tarvin {

namespace {

constexpr qint64 largestUrls = 1024 * 1024;

QString textOf(const PropertyList& list, const char* key) {
    return QString::fromStdString(list.text(key).value_or(std::string()));
}

}  // namespace

Urls readUrls(const QString& path) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly) || file.size() > largestUrls) {
        return {};
    }
    const auto list = PropertyList::parse(file.readAll().toStdString());
    if (!list || !list->isDictionary()) {
        return {};
    }
    return {.support = textOf(*list, "Support"),
            .folderLocation = textOf(*list, "FolderLocation"),
            .folderName = textOf(*list, "FolderName")};
}

}  // namespace tarvin
