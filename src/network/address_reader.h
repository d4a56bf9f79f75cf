#pragma once

#include "network/network_access.h"

namespace tarvin {

/// What NetworkAccess::readAddress() promises.
[[nodiscard]] std::optional<QByteArray> readAddress(const QUrl& address, const ReadBounds& bounds,
                                                    const std::stop_token& stop);

}  // namespace tarvin
