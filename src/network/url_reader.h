#pragma once

#include "network/read_bounds.h"

#include <QByteArray>
#include <QUrl>
#include <optional>

namespace tarvin {

/// Whether a response from one URL may redirect to another: within http, within https, and from
/// http to https. Never from https to http, nor to another scheme. Pure.
[[nodiscard]] bool mayRedirect(const QUrl& from, const QUrl& to);

/// The content of a file, http or https URL. Returns nullopt on any failure: no response, a status
/// other than 200, a body beyond the limits, an untrusted certificate, a refused redirect.
///
/// Blocks its thread. Qt limits neither the header of a response nor the search for a proxy, so
/// call this only in a process that its parent can kill.
[[nodiscard]] std::optional<QByteArray> readUrl(const QUrl& url, const ReadBounds& bounds);

}  // namespace tarvin
