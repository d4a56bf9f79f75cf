#pragma once

#include "network/network_access.h"

#include <QObject>

namespace tarvin {

/// What the program finds in the plug-in.
class NetworkPlugin final : public QObject, public NetworkAccess {
    Q_OBJECT
    Q_INTERFACES(tarvin::NetworkAccess)
    Q_PLUGIN_METADATA(IID "tarvinsoftware.NetworkAccess/1")

 public:
    /// Reads go by the proxies of the system from now on.
    NetworkPlugin();

    bool isInternetReachable() override;
    std::optional<QByteArray> readAddress(const QUrl& address, const ReadBounds& bounds,
                                          const std::stop_token& stop) override;
};

}  // namespace tarvin
