#pragma once

#include <QByteArray>
#include <QUrl>
#include <chrono>
#include <optional>
#include <stop_token>

namespace tarvin {

/// What reading an address may cost.
struct ReadBounds {
    std::chrono::milliseconds time{10'000};  ///< for all of it
    qint64 bytes = 1024 * 1024;
};

/// What is at a file, http or https address. None if it cannot be had within the bounds, for any
/// reason: nobody answers, the answer is no success, it is longer than allowed, the certificate is
/// not trusted, it leads to an address of another scheme, or a stop is asked for.
///
/// Blocks its thread, which may be any one but the main thread; a stop ends it soon. Only the file
/// system can hold it for longer, if it hangs itself.
[[nodiscard]] std::optional<QByteArray> readAddress(const QUrl& address, const ReadBounds& bounds,
                                                    const std::stop_token& stop);

}  // namespace tarvin
