#include "controller/desktop.h"

#include "platform/conventions.h"

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFile>
#include <QProcess>
#include <QUrl>
#include <algorithm>
#include <array>

namespace tarvin {

namespace {

bool isSafeToOpen(const QUrl& url) {
    const std::array<QString, 4> schemes{QStringLiteral("file"), QStringLiteral("http"),
                                         QStringLiteral("https"), QStringLiteral("mailto")};
    return url.isValid() &&
           std::find(schemes.begin(), schemes.end(), url.scheme()) != schemes.end();
}

/// Encoded byte by byte: a path need not be UTF-8.
QByteArray urlOf(const std::string& path) {
    return "file://" + QByteArray::fromStdString(path).toPercentEncoding("/");
}

std::string containingFolder(const std::string& path) {
    return path.substr(0, std::max<std::size_t>(path.rfind('/'), 1));
}

class QtDesktop final : public Desktop {
 public:
    bool openPath(const std::string& path) override {
        if (!path.starts_with('/')) {
            return false;
        }
        return QDesktopServices::openUrl(QUrl::fromEncoded(urlOf(path)));
    }

    void showInFolder(const std::string& path) override {
        if (!path.starts_with('/')) {
            return;
        }
        if (const char* const program = conventions().fileShower; program != nullptr) {
            QProcess::startDetached(QString::fromLatin1(program),
                                    {QString::fromLatin1(conventions().fileShowerOption),
                                     QFile::decodeName(QByteArray::fromStdString(path))});
            return;
        }
        const QDBusConnection bus = QDBusConnection::sessionBus();
        if (!bus.isConnected()) {
            openPath(containingFolder(path));
            return;
        }
        constexpr int answerLimit = 10'000;  // ms; a file manager may have to be started
        QDBusMessage call = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.FileManager1"),
            QStringLiteral("/org/freedesktop/FileManager1"),
            QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
        const QString noStartupId;
        call << QStringList{QString::fromLatin1(urlOf(path))} << noStartupId;
        auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(call, answerLimit));
        QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [this, answer, path] {
            if (answer->isError()) {
                openPath(containingFolder(path));
            }
            answer->deleteLater();
        });
    }

    bool openUrl(const QString& text) override {
        const QUrl url(text, QUrl::StrictMode);
        return isSafeToOpen(url) && QDesktopServices::openUrl(url);
    }

    bool startProgram(const QString& program, const QStringList& arguments) override {
        return QProcess::startDetached(program, arguments);
    }
};

}  // namespace

Desktop& systemDesktop() {
    static QtDesktop desktop;
    return desktop;
}

}  // namespace tarvin
