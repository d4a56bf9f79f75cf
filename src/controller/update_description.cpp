#include "controller/update_description.h"

#include "controller/path_text.h"
#include "store/property_list.h"

#include <QStringList>

namespace tarvin {

namespace {

QString joined(QString path, QString component) {
    while (path.endsWith(u'/')) {
        path.chop(1);
    }
    while (component.startsWith(u'/')) {
        component.remove(0, 1);
    }
    return path + u'/' + component;
}

bool isReadable(const QUrl& url) {
    static const QStringList schemes{QStringLiteral("file"), QStringLiteral("http"),
                                     QStringLiteral("https")};
    return url.isValid() && schemes.contains(url.scheme());
}

/// One line that fits into the question.
QString shownVersion(const std::string& version) {
    QString shown = textOfPath(version);
    if (shown.size() > maxVersionLength) {
        shown.truncate(maxVersionLength - 1);
        if (shown.back().isHighSurrogate()) {
            shown.chop(1);
        }
        shown += QChar(0x2026);
    }
    return shown;
}

}  // namespace

QUrl updateUrl(const Urls& urls) {
    if (urls.folderLocation.isEmpty() || urls.folderName.isEmpty()) {
        return {};
    }
    QString text =
        joined(joined(urls.folderLocation, urls.folderName), QStringLiteral("Update.plist"));
    text.replace(u' ', QStringLiteral("%20"));
    QUrl url(text);
    return isReadable(url) ? url : QUrl();
}

std::optional<QString> updateFor(const QString& version, const QByteArray& description) {
    const auto list = PropertyList::parse(description.toStdString());
    if (!list || !list->isDictionary()) {
        return std::nullopt;
    }
    const auto newer = list->text(version.toUtf8().constData());
    if (!newer || *newer == version.toStdString()) {
        return std::nullopt;
    }
    return shownVersion(*newer);
}

}  // namespace tarvin
