#include "network/url_reader.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <chrono>
#include <memory>
#include <optional>
#include <utility>

namespace tarvin {

namespace {

constexpr int mostRedirects = 5;

std::optional<QByteArray> readFile(const QString& path, qint64 most) {
    QFile file(path);
    // A pipe, say, would be waited for.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    QByteArray bytes = file.read(most + 1);
    if (file.error() != QFileDevice::NoError || bytes.size() > most) {
        return std::nullopt;
    }
    return bytes;
}

QNetworkRequest requestFor(const QUrl& address) {
    QNetworkRequest request(address);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      QString(QCoreApplication::applicationName() + u'/' +
                              QCoreApplication::applicationVersion()));
    // What was compressed could be of any size.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    return request;
}

/// One read over the network. Used by one thread, which its event loop holds.
class Download final {
 public:
    explicit Download(const ReadBounds& bounds) : bytesAllowed_(bounds.bytes), end_(bounds.time) {}

    std::optional<QByteArray> read(QUrl address) {
        for (int redirects = 0; redirects <= mostRedirects; ++redirects) {
            const auto reply = ask(address);
            if (reply->error() != QNetworkReply::NoError) {
                break;
            }
            const QUrl target = address.resolved(
                reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl());
            if (target == address) {
                return bodyOf(*reply);
            }
            if (!mayRedirect(address, target)) {
                break;
            }
            address = target;
        }
        return std::nullopt;
    }

 private:
    /// The finished reply, with an error if it was ended before.
    std::unique_ptr<QNetworkReply> ask(const QUrl& address) {
        std::unique_ptr<QNetworkReply> reply(manager_.get(requestFor(address)));
        reply->setReadBufferSize(bytesAllowed_ + 1);
        QEventLoop loop;
        QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, [&] {
            if (reply->bytesAvailable() > bytesAllowed_) {
                reply->abort();
            }
        });
        QObject::connect(reply.get(), &QNetworkReply::finished, &loop, &QEventLoop::quit);
        QTimer limit;
        QObject::connect(&limit, &QTimer::timeout, reply.get(), &QNetworkReply::abort);
        limit.start(std::chrono::milliseconds(end_.remainingTime()));
        if (!reply->isFinished()) {
            loop.exec();
        }
        return reply;
    }

    [[nodiscard]] std::optional<QByteArray> bodyOf(QNetworkReply& reply) const {
        constexpr int success = 200;
        if (reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() != success) {
            return std::nullopt;
        }
        QByteArray bytes = reply.readAll();
        return bytes.size() > bytesAllowed_ ? std::nullopt : std::optional(std::move(bytes));
    }

    QNetworkAccessManager manager_;
    qint64 bytesAllowed_;
    QDeadlineTimer end_;
};

}  // namespace

bool mayRedirect(const QUrl& from, const QUrl& to) {
    const QString http = QStringLiteral("http");
    const QString https = QStringLiteral("https");
    return to.isValid() && (to.scheme() == https || to.scheme() == http) &&
           (from.scheme() == to.scheme() || (from.scheme() == http && to.scheme() == https));
}

std::optional<QByteArray> readUrl(const QUrl& address, const ReadBounds& bounds) {
    return address.isLocalFile() ? readFile(address.toLocalFile(), bounds.bytes)
                                 : Download(bounds).read(address);
}

}  // namespace tarvin
