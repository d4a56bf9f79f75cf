// Reads an address for the program with the window: takes it on the standard input, and answers on
// the standard output with what is there. The status is 0 only if all of it was had. A process of
// its own, because Qt bounds neither the head of an answer nor what the system is asked for on the
// way; whoever starts it ends it in time.

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

/// For an answer without end. Libraries that are loaded count.
constexpr rlim_t memoryAllowed = rlim_t{1} << 30U;
constexpr qint64 longestAddress = 64 * 1024;

void limitMemory() {
    // The sanitizers reserve more than any limit.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    const rlimit limit{memoryAllowed, memoryAllowed};
    ::setrlimit(RLIMIT_AS, &limit);
#endif
}

bool isOnThisMachine(const QUrl& address) {
    return address.isLocalFile() || address.host() == QLatin1String("localhost") ||
           QHostAddress(address.host()).isLoopback();
}

/// Whether there is a way to the address, as far as the system knows; where nothing tells, a read
/// will find out.
bool isReachable(const QUrl& address) {
    return isOnThisMachine(address) ||
           !QNetworkInformation::loadBackendByFeatures(
               QNetworkInformation::Feature::Reachability) ||
           QNetworkInformation::instance()->reachability() !=
               QNetworkInformation::Reachability::Disconnected;
}

QUrl givenAddress() {
    QFile input;
    if (!input.open(stdin, QIODevice::ReadOnly)) {
        return {};
    }
    return QUrl::fromEncoded(input.read(longestAddress));
}

bool answer(const QByteArray& bytes) {
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
    const QUrl address = givenAddress();
    const auto bytes = isReachable(address) ? tarvin::readUrl(address, {}) : std::nullopt;
    const bool done = bytes && answer(*bytes);
    // At once: Qt would wait for a server that it has given up.
    std::_Exit(done ? EXIT_SUCCESS : EXIT_FAILURE);
}
