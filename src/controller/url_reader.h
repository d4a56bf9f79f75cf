#pragma once

#include "network/read_bounds.h"

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>
#include <stop_token>

namespace tarvin {

/// Reads what is at a file, http or https address; none if it cannot be had, for any reason. Blocks
/// its thread, which is not the main one, until it is done or a stop is asked for.
using UrlReader =
    std::function<std::optional<QByteArray>(const QUrl& address, const std::stop_token& stop)>;

/// Lets `program` read, as `tarvin-url-reader` does; an empty path reads nothing. The program
/// is ended as soon as a bound is passed or a stop asked for, so both take effect at once whatever
/// the program waits for.
[[nodiscard]] UrlReader urlReaderFor(QString program, ReadBounds bounds = {});

}  // namespace tarvin
