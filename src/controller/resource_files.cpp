#include "controller/resource_files.h"

#include "platform/conventions.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tarvin {

QString installedResource(const QString& name) {
    // Relative to the folder of the programs, so that the installation can be moved.
    const QString path = QDir::cleanPath(QCoreApplication::applicationDirPath() + u'/' +
                                         QLatin1String(conventions().resources) + name);
    return QFileInfo::exists(path) ? path : QString();
}

QString helperProgram(const QString& name, QString folder) {
    if (folder.isEmpty()) {
        folder = QCoreApplication::applicationDirPath();
    }
    for (const QString& helpers : {QStringLiteral("."), QStringLiteral(TARVIN_HELPERS)}) {
        QString path = QDir::cleanPath(folder + u'/' + helpers + u'/' + name);
        if (QFileInfo(path).isExecutable() && QFileInfo(path).isFile()) {
            return path;
        }
    }
    return {};
}

QString updaterProgram(const QString& folder) {
    const QString name = QStringLiteral("Tarvin Duplicate File Remover Updater");
    return helperProgram(QString::fromLatin1(conventions().program).replace(u'*', name), folder);
}

}  // namespace tarvin
