#include "network/loopback_server.h"

#include "network/loopback_certificate.h"

#include <gtest/gtest.h>

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslKey>
#include <QSslServer>
#include <utility>

namespace tarvin {

namespace {

std::unique_ptr<QTcpServer> makeServer(LoopbackServer::Scheme scheme) {
    if (scheme == LoopbackServer::Scheme::http) {
        return std::make_unique<QTcpServer>();
    }
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(QSslCertificate(QByteArray(loopbackCertificate)));
    configuration.setPrivateKey(QSslKey(QByteArray(loopbackKey), QSsl::Ec));
    auto server = std::make_unique<QSslServer>();
    server->setSslConfiguration(configuration);
    return server;
}

}  // namespace

LoopbackServer::LoopbackServer(Answer answer, Scheme scheme)
    : answer(std::move(answer)), server_(makeServer(scheme)), scheme_(scheme) {
    connect(server_.get(), &QTcpServer::pendingConnectionAvailable, this, &LoopbackServer::welcome);
    EXPECT_TRUE(server_->listen(QHostAddress::LocalHost));
}

LoopbackServer::Answer LoopbackServer::with(const QByteArray& body) {
    return withRaw("HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) +
                   "\r\nConnection: close\r\n\r\n" + body);
}

LoopbackServer::Answer LoopbackServer::withRaw(const QByteArray& bytes) {
    return [bytes](QTcpSocket& connection) {
        connection.write(bytes);
        connection.disconnectFromHost();
    };
}

LoopbackServer::Answer LoopbackServer::to(const QString& url) {
    return withRaw("HTTP/1.1 302 Found\r\nLocation: " + url.toUtf8() +
                   "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
}

QString LoopbackServer::url() const {
    return QStringLiteral("%1://127.0.0.1:%2")
        .arg(scheme_ == Scheme::http ? QStringLiteral("http") : QStringLiteral("https"))
        .arg(server_->serverPort());
}

void LoopbackServer::welcome() {
    while (QTcpSocket* connection = server_->nextPendingConnection()) {
        connect(connection, &QTcpSocket::disconnected, this, [this, connection] {
            ++closed;
            connection->deleteLater();
        });
        connect(connection, &QTcpSocket::readyRead, this,
                [this, connection] { take(*connection); });
        take(*connection);
    }
}

void LoopbackServer::take(QTcpSocket& connection) {
    if (connection.peek(1 << 16).contains("\r\n\r\n")) {
        requests << connection.readAll();
        answer(connection);
    }
}

}  // namespace tarvin
