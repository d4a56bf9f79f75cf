#include "network/network_plugin.h"

#include "network/address_reader.h"

#include <QNetworkInformation>
#include <QNetworkProxyFactory>

namespace tarvin {

NetworkPlugin::NetworkPlugin() {
    QNetworkProxyFactory::setUseSystemConfiguration(true);
}

bool NetworkPlugin::isInternetReachable() {
    return !QNetworkInformation::loadBackendByFeatures(
               QNetworkInformation::Feature::Reachability) ||
           QNetworkInformation::instance()->reachability() !=
               QNetworkInformation::Reachability::Disconnected;
}

std::optional<QByteArray> NetworkPlugin::readAddress(const QUrl& address, const ReadBounds& bounds,
                                                     const std::stop_token& stop) {
    return tarvin::readAddress(address, bounds, stop);
}

}  // namespace tarvin
