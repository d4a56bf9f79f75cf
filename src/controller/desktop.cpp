#include "controller/desktop.h"

#include <QByteArray>
#include <QDesktopServices>
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

class QtDesktop final : public Desktop {
 public:
    bool openPath(const std::string& path) override {
        if (!path.starts_with('/')) {
            return false;
        }
        // Encoded byte by byte: a path need not be UTF-8.
        const QByteArray encoded = QByteArray::fromStdString(path).toPercentEncoding("/");
        return QDesktopServices::openUrl(QUrl::fromEncoded(QByteArray("file://" + encoded)));
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
