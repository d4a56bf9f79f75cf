// Reads a URL for the window: takes it from standard input and writes the content to standard
// output. The exit status is 0 only if the content is complete. A separate process, because Qt
// limits neither the header of a response nor the system calls before it; the parent kills it in
// time.

#include "network/url_reader.h"

#include <sys/resource.h>

#include <QCoreApplication>
#include <QFile>
#include <QHostAddress>
#include <QNetworkInformation>
#include <QNetworkProxyFactory>
#include <cstdio>
#include <cstdlib>

namespace {

/// For an endless response. Bytes, with the loaded libraries.
constexpr rlim_t maxMemory = rlim_t{1} << 30U;
constexpr qint64 maxUrlBytes = 64 * 1024;

void limitMemory() {
    // The sanitizers reserve more than any limit.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    const rlimit limit{maxMemory, maxMemory};
    ::setrlimit(RLIMIT_AS, &limit);
#endif
}

bool isOnThisMachine(const QUrl& url) {
    return url.isLocalFile() || url.host() == QLatin1String("localhost") ||
           QHostAddress(url.host()).isLoopback();
}

/// Whether the system reports a network connection for the URL; true if it does not report any, and
/// the read will show.
bool isReachable(const QUrl& url) {
    return isOnThisMachine(url) ||
           !QNetworkInformation::loadBackendByFeatures(
               QNetworkInformation::Feature::Reachability) ||
           QNetworkInformation::instance()->reachability() !=
               QNetworkInformation::Reachability::Disconnected;
}

QUrl urlFromInput() {
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        return {};
    }
    return QUrl::fromEncoded(input.read(maxUrlBytes));
}

bool writeOutput(const QByteArray& bytes) {
    return std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout) ==
               static_cast<std::size_t>(bytes.size()) &&
           std::fflush(stdout) == 0;
}

}  // namespace

int main(int argc, char** argv) {
    limitMemory();
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Tarvin Duplicate File Remover"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TARVIN_VERSION));
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    const QUrl url = urlFromInput();
    const auto bytes = isReachable(url) ? tarvin::readUrl(url, {}) : std::nullopt;
    const bool done = bytes && writeOutput(*bytes);
    // Skip destructors: Qt's would block on a connection that has already been abandoned.
    std::_Exit(done ? EXIT_SUCCESS : EXIT_FAILURE);
}
