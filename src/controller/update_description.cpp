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

bool isReadable(const QUrl& address) {
    static const QStringList schemes{QStringLiteral("file"), QStringLiteral("http"),
                                     QStringLiteral("https")};
    return address.isValid() && schemes.contains(address.scheme());
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

QUrl updateAddress(const Urls& urls) {
    if (urls.folderLocation.isEmpty() || urls.folderName.isEmpty()) {
        return {};
    }
    QString text =
        joined(joined(urls.folderLocation, urls.folderName), QStringLiteral("Update.plist"));
    text.replace(u' ', QStringLiteral("%20"));
    QUrl address(text);
    return isReadable(address) ? address : QUrl();
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
