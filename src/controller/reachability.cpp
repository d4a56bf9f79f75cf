#include "controller/reachability.h"

#include <QNetworkInformation>

namespace tarvin {

bool isInternetReachable() {
    return !QNetworkInformation::loadBackendByFeatures(
               QNetworkInformation::Feature::Reachability) ||
           QNetworkInformation::instance()->reachability() !=
               QNetworkInformation::Reachability::Disconnected;
}

}  // namespace tarvin
