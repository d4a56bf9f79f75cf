#include "controller/dropped_paths.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QSysInfo>

namespace tarvin {

namespace {

/// Some programs put the host name into file URLs.
bool isThisMachine(const QString& host) {
    return host.isEmpty() || host == QStringLiteral("localhost") ||
           host.compare(QSysInfo::machineHostName(), Qt::CaseInsensitive) == 0;
}

}  // namespace

std::optional<std::string> localPath(const QUrl& url) {
    if (!url.isValid() || !url.isLocalFile() || !isThisMachine(url.host())) {
        return std::nullopt;
    }
    // Not toLocalFile(): it decodes to UTF-16, and a path need not be UTF-8.
    const QByteArray encoded = url.path(QUrl::FullyEncoded).toLatin1();
    std::string path = QByteArray::fromPercentEncoding(encoded).toStdString();
    if (!path.starts_with('/') || path.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    while (path.size() > 1 && path.ends_with('/')) {
        path.pop_back();
    }
    return path;
}

std::vector<std::string> droppedPaths(const QMimeData& data) {
    std::vector<std::string> paths;
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls) {
        if (auto path = localPath(url)) {
            paths.push_back(std::move(*path));
        }
    }
    return paths;
}

}  // namespace tarvin
