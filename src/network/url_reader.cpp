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

constexpr int maxRedirects = 5;

std::optional<QByteArray> readFile(const QString& path, qint64 maxBytes) {
    QFile file(path);
    // A pipe could block.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    QByteArray bytes = file.read(maxBytes + 1);
    if (file.error() != QFileDevice::NoError || bytes.size() > maxBytes) {
        return std::nullopt;
    }
    return bytes;
}

QNetworkRequest requestFor(const QUrl& url) {
    QNetworkRequest request(url);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      QString(QCoreApplication::applicationName() + u'/' +
                              QCoreApplication::applicationVersion()));
    // A compressed body could expand to any size.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    return request;
}

/// One read over the network. One thread, which runs a local event loop.
class Download final {
 public:
    explicit Download(const ReadBounds& bounds) : bytesAllowed_(bounds.bytes), end_(bounds.time) {}

    std::optional<QByteArray> read(QUrl url) {
        for (int redirects = 0; redirects <= maxRedirects; ++redirects) {
            const auto reply = fetch(url);
            if (reply->error() != QNetworkReply::NoError) {
                break;
            }
            const QUrl target =
                url.resolved(reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl());
            if (target == url) {
                return bodyOf(*reply);
            }
            if (!mayRedirect(url, target)) {
                break;
            }
            url = target;
        }
        return std::nullopt;
    }

 private:
    /// Returns the finished reply, with an error if it was aborted.
    std::unique_ptr<QNetworkReply> fetch(const QUrl& url) {
        std::unique_ptr<QNetworkReply> reply(manager_.get(requestFor(url)));
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

std::optional<QByteArray> readUrl(const QUrl& url, const ReadBounds& bounds) {
    return url.isLocalFile() ? readFile(url.toLocalFile(), bounds.bytes)
                             : Download(bounds).read(url);
}

}  // namespace tarvin
