#include "controller/resource_files.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace tarvin {

namespace {

QString helperFile(const QString& name, QString folder) {
    if (folder.isEmpty()) {
        folder = QCoreApplication::applicationDirPath();
    }
    for (const QString& place : {QStringLiteral("."), QStringLiteral(TARVIN_HELPERS)}) {
        QString path = QDir::cleanPath(folder + u'/' + place + u'/' + name);
        if (QFileInfo(path).isFile()) {
            return path;
        }
    }
    return {};
}

}  // namespace

QString installedResource(const QString& name) {
    // Beside the folder of the programs, wherever that was installed.
    const QString path =
        QDir::cleanPath(QCoreApplication::applicationDirPath() +
                        QStringLiteral("/../share/tarvin-duplicate-file-remover/") + name);
    return QFileInfo::exists(path) ? path : QString();
}

QString helperProgram(const QString& name, const QString& folder) {
    const QString path = helperFile(name, folder);
    return QFileInfo(path).isExecutable() ? path : QString();
}

QString helperLibrary(const QString& name) {
    return helperFile(name, {});
}

QString updaterProgram() {
    const QString name = QStringLiteral("Tarvin Duplicate File Remover Updater");
#ifdef Q_OS_DARWIN
    return helperProgram(name + QStringLiteral(".app/Contents/MacOS/") + name);
#else
    return helperProgram(name);
#endif
}

}  // namespace tarvin
