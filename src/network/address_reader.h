#pragma once

#include "network/read_bounds.h"

#include <QByteArray>
#include <QUrl>
#include <optional>

namespace tarvin {

/// What is at a file, http or https address. None if it cannot be had, for any reason: nobody
/// answers, the answer is no success, its body is longer or takes longer than allowed, the
/// certificate is not trusted, or it leads to an address of another scheme.
///
/// Blocks its thread. Qt bounds neither the head of an answer nor the search for a proxy; so only a
/// process that can be ended from outside may call this.
[[nodiscard]] std::optional<QByteArray> readAddress(const QUrl& address, const ReadBounds& bounds);

}  // namespace tarvin
