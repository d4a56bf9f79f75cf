#pragma once

#include "network/read_bounds.h"

#include <QByteArray>
#include <QUrl>
#include <optional>

namespace tarvin {

/// Whether an answer from one address may redirect to another: within http, within https, and from
/// http to https. Never back to what anybody can read and change on the way, nor to another scheme.
[[nodiscard]] bool mayRedirect(const QUrl& from, const QUrl& to);

/// What is at a file, http or https address. None if it cannot be had, for any reason: nobody
/// answers, the answer is no success, its body is longer or takes longer than allowed, the
/// certificate is not trusted, or it redirects to where it may not.
///
/// Blocks its thread. Qt bounds neither the head of an answer nor the search for a proxy; so only a
/// process that can be ended from outside may call this.
[[nodiscard]] std::optional<QByteArray> readUrl(const QUrl& address, const ReadBounds& bounds);

}  // namespace tarvin
