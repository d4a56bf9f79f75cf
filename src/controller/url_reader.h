#pragma once

#include "controller/stop_request.h"
#include "network/read_bounds.h"

#include <QByteArray>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>

namespace tarvin {

/// Returns the content of a file, http or https URL; nullopt on any failure. Blocks until it is
/// read or a stop is requested. Not on the main thread.
using UrlReader =
    std::function<std::optional<QByteArray>(const QUrl& url, const StopRequest& stop)>;

/// Reads through `program`, the path of `tarvin-url-reader`; with an empty path every read fails.
/// The process is killed when a limit is exceeded or a stop is requested, even if it is blocked.
[[nodiscard]] UrlReader urlReaderFor(QString program, ReadBounds bounds = {});

}  // namespace tarvin
