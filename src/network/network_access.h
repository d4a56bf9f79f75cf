#pragma once

#include <QByteArray>
#include <QUrl>
#include <QtPlugin>
#include <chrono>
#include <optional>
#include <stop_token>

namespace tarvin {

/// What reading an address may cost.
struct ReadBounds {
    std::chrono::milliseconds time{10'000};  ///< for all of it
    qint64 bytes = 1024 * 1024;
};

/// The network, as a plug-in that is loaded when it is first asked for something: the libraries
/// behind it would take a fifth of the program's start.
class NetworkAccess {
 public:
    virtual ~NetworkAccess() = default;

    /// Whether the system is connected to the Internet, as far as it knows; where nothing tells
    /// it, a read will find out. Main thread.
    virtual bool isInternetReachable() = 0;

    /// What is at a file, http or https address. None if it cannot be had within the bounds, for
    /// any reason: nobody answers, the answer is no success, it is longer than allowed, the
    /// certificate is not trusted, it leads to an address of another scheme, or a stop is asked
    /// for.
    ///
    /// Blocks its thread, which may be any one but the main thread; a stop ends it soon. Only the
    /// file system can hold it for longer, if it hangs itself.
    virtual std::optional<QByteArray> readAddress(const QUrl& address, const ReadBounds& bounds,
                                                  const std::stop_token& stop) = 0;
};

}  // namespace tarvin

Q_DECLARE_INTERFACE(tarvin::NetworkAccess, "tarvinsoftware.NetworkAccess/1")
