#include "network/loopback_server.h"
#include "network/network_access.h"

#include <gtest/gtest.h>

#include <QNetworkProxyFactory>
#include <QPluginLoader>
#include <QTest>
#include <atomic>
#include <thread>

namespace tarvin {
namespace {

TEST(NetworkPlugin, ReadsAddressesOverTheSystemsProxies) {
    QPluginLoader loader(QStringLiteral(TARVIN_NETWORK));
    auto* network = qobject_cast<NetworkAccess*>(loader.instance());
    ASSERT_NE(network, nullptr) << loader.errorString().toStdString();
    EXPECT_TRUE(QNetworkProxyFactory::usesSystemConfiguration());

    const LoopbackServer server(LoopbackServer::with("all of it"));
    std::optional<QByteArray> bytes;
    std::atomic<bool> done{false};
    {
        const std::jthread reader([&](const std::stop_token& stop) {
            bytes = network->readAddress(QUrl(server.address()), {}, stop);
            done = true;
        });
        EXPECT_TRUE(QTest::qWaitFor([&] { return done.load(); }, 20'000));
    }
    EXPECT_EQ(bytes, QByteArray("all of it"));
}

}  // namespace
}  // namespace tarvin
