#include "network/url_reader.h"

#include "network/loopback_certificate.h"
#include "network/loopback_server.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

namespace tarvin {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds soon{300};
constexpr int longWait = 20'000;

/// Reads on another thread while this one runs the server.
std::optional<QByteArray> readThere(const QString& url, const ReadBounds& bounds = {}) {
    std::atomic<bool> done{false};
    std::optional<QByteArray> bytes;
    {
        const std::jthread reader([&] {
            bytes = readUrl(QUrl(url), bounds);
            done = true;
        });
        EXPECT_TRUE(QTest::qWaitFor([&] { return done.load(); }, longWait));
    }
    return bytes;
}

std::optional<QByteArray> readFrom(const LoopbackServer& server, const ReadBounds& bounds = {}) {
    return readThere(server.url() + QStringLiteral("/Update.plist"), bounds);
}

/// Trusts the test server's certificate until destruction.
class Trust final {
 public:
    Trust() : before_(QSslConfiguration::defaultConfiguration()) {
        QSslConfiguration trusting = before_;
        trusting.addCaCertificate(QSslCertificate(QByteArray(loopbackCertificate)));
        QSslConfiguration::setDefaultConfiguration(trusting);
    }
    Trust(const Trust&) = delete;
    Trust& operator=(const Trust&) = delete;
    ~Trust() { QSslConfiguration::setDefaultConfiguration(before_); }

 private:
    QSslConfiguration before_;
};

TEST(ReadBounds, AreTenSecondsAndAMebibyte) {
    EXPECT_EQ(ReadBounds{}.time, std::chrono::seconds(10));
    EXPECT_EQ(ReadBounds{}.bytes, 1'048'576);
}

TEST(UrlReader, ReadsAResponse) {
    const LoopbackServer server(LoopbackServer::with("all of it"));
    EXPECT_EQ(readFrom(server), QByteArray("all of it"));
    ASSERT_EQ(server.requests.size(), 1);
    EXPECT_TRUE(server.requests[0].startsWith("GET /Update.plist HTTP/1.1\r\n"))
        << server.requests[0].toStdString();
    // Later versions of Qt write header names in lower case.
    EXPECT_TRUE(server.requests[0].toLower().contains("accept-encoding: identity\r\n"));
}

TEST(UrlReader, ReadsAResponseOfUnknownLength) {
    const LoopbackServer server(
        LoopbackServer::withRaw("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\nup to the end"));
    EXPECT_EQ(readFrom(server), QByteArray("up to the end"));
}

TEST(UrlReader, RefusesOtherStatusCodes) {
    for (const char* status : {"204 No Content", "206 Partial Content", "304 Not Modified",
                               "401 Unauthorized", "403 Forbidden", "404 Not Found",
                               "500 Internal Server Error", "503 Service Unavailable"}) {
        const LoopbackServer server(LoopbackServer::withRaw(
            "HTTP/1.1 " + QByteArray(status) +
            "\r\nContent-Length: 0\r\nWWW-Authenticate: Basic\r\nConnection: close\r\n\r\n"));
        EXPECT_EQ(readFrom(server), std::nullopt) << status;
        EXPECT_GE(server.requests.size(), 1) << status;
    }
}

TEST(UrlReader, ReadsUpToTheLimit) {
    const QByteArray body(1000, 'a');
    const LoopbackServer server(LoopbackServer::with(body));
    EXPECT_EQ(readFrom(server, {.bytes = 1000}), body);
    EXPECT_EQ(readFrom(server, {.bytes = 999}), std::nullopt);
}

TEST(UrlReader, AbortsAnEndlessResponseAtTheLimit) {
    QTimer more;
    LoopbackServer server([&](QTcpSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\n\r\n");
        QObject::connect(&more, &QTimer::timeout, &connection,
                         [&] { connection.write(QByteArray(1 << 16, 'a')); });
        more.start(0);
    });
    // The time limit must not end it: readFrom() waits less.
    EXPECT_EQ(readFrom(server, {.time = 2 * milliseconds(longWait)}), std::nullopt);
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.closed == 1; }, longWait));
}

TEST(UrlReader, TimesOutDuringASlowResponse) {
    QTimer drops;
    int dropped = 0;
    LoopbackServer server([&](QTcpSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n");
        QObject::connect(&drops, &QTimer::timeout, &connection, [&] {
            connection.write("a");
            ++dropped;
        });
        drops.start(20);
    });
    EXPECT_EQ(readFrom(server, {.time = soon}), std::nullopt);
    EXPECT_GT(dropped, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.closed == 1; }, longWait));
}

TEST(UrlReader, TimesOutWithoutAResponse) {
    LoopbackServer server([](QTcpSocket& /*connection*/) {});
    EXPECT_EQ(readFrom(server, {.time = soon}), std::nullopt);
    EXPECT_EQ(server.requests.size(), 1);
}

TEST(UrlReader, RefusesATruncatedResponse) {
    const LoopbackServer server(
        LoopbackServer::withRaw("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nonly this"));
    EXPECT_EQ(readFrom(server), std::nullopt);
}

TEST(UrlReader, RefusesAResponseThatIsNotHttp) {
    const LoopbackServer server(LoopbackServer::withRaw("220 mail.example.org ESMTP\r\n"));
    EXPECT_EQ(readFrom(server, {.time = soon}), std::nullopt);
}

TEST(UrlReader, FailsWithoutAListener) {
    QString url;
    {
        const LoopbackServer server(LoopbackServer::with("gone"));
        url = server.url();
    }
    EXPECT_EQ(readThere(url), std::nullopt);
}

TEST(UrlReader, FailsWhenTheConnectionIsReset) {
    const LoopbackServer server([](QTcpSocket& connection) { connection.abort(); });
    EXPECT_EQ(readFrom(server), std::nullopt);
    EXPECT_GE(server.requests.size(), 1);
}

TEST(UrlReader, FollowsWithinAScheme) {
    const LoopbackServer there(LoopbackServer::with("moved"));
    const LoopbackServer server(LoopbackServer::to(there.url() + QStringLiteral("/new")));
    EXPECT_EQ(readFrom(server), QByteArray("moved"));
    ASSERT_EQ(there.requests.size(), 1);
    EXPECT_TRUE(there.requests[0].startsWith("GET /new "));
}

TEST(UrlReader, FollowsFiveRedirects) {
    LoopbackServer server({});
    server.answer = [&server](QTcpSocket& connection) {
        LoopbackServer::to(QStringLiteral("/%1").arg(server.requests.size()))(connection);
    };
    EXPECT_EQ(readFrom(server), std::nullopt);
    EXPECT_EQ(server.requests.size(), 6);
}

TEST(UrlReader, DoesNotFollowToTheSameUrl) {
    LoopbackServer server(LoopbackServer::to(QStringLiteral("/Update.plist")));
    EXPECT_EQ(readFrom(server), std::nullopt);
    EXPECT_EQ(server.requests.size(), 1);
}

TEST(UrlReader, RefusesASelfSignedCertificate) {
    const LoopbackServer server(LoopbackServer::with("forged"), LoopbackServer::Scheme::https);
    EXPECT_EQ(readFrom(server), std::nullopt);
    EXPECT_TRUE(server.requests.isEmpty());
}

TEST(UrlReader, ReadsFromATrustedServer) {
    const Trust trust;
    const LoopbackServer server(LoopbackServer::with("honest"), LoopbackServer::Scheme::https);
    EXPECT_EQ(readFrom(server), QByteArray("honest"));
}

TEST(UrlReader, FollowsFromHttpToHttps) {
    const Trust trust;
    const LoopbackServer secure(LoopbackServer::with("moved"), LoopbackServer::Scheme::https);
    const LoopbackServer server(LoopbackServer::to(secure.url() + QStringLiteral("/new")));
    EXPECT_EQ(readFrom(server), QByteArray("moved"));
    ASSERT_EQ(secure.requests.size(), 1);
    EXPECT_TRUE(secure.requests[0].startsWith("GET /new "));
}

TEST(UrlReader, DoesNotFollowToAnUntrustedServer) {
    const LoopbackServer secure(LoopbackServer::with("forged"), LoopbackServer::Scheme::https);
    const LoopbackServer server(LoopbackServer::to(secure.url()));
    EXPECT_EQ(readFrom(server), std::nullopt);
    EXPECT_TRUE(secure.requests.isEmpty());
}

/// Both servers would respond with status 200.
TEST(UrlReader, DoesNotFollowFromHttpsToHttp) {
    const Trust trust;
    const LoopbackServer plain(LoopbackServer::with("in the clear"));
    const LoopbackServer secure(LoopbackServer::to(plain.url()), LoopbackServer::Scheme::https);
    EXPECT_EQ(readFrom(secure), std::nullopt);
    EXPECT_EQ(secure.requests.size(), 1);
    EXPECT_TRUE(plain.requests.isEmpty());
    const LoopbackServer first(LoopbackServer::to(secure.url()));
    EXPECT_EQ(readFrom(first), std::nullopt);
    EXPECT_EQ(secure.requests.size(), 2);
    EXPECT_TRUE(plain.requests.isEmpty());
}

/// Counts how often a file is opened.
class OpenCounter final {
 public:
    explicit OpenCounter(const std::string& path) {
        EXPECT_GE(::inotify_add_watch(events_, path.c_str(), IN_OPEN), 0);
    }
    OpenCounter(const OpenCounter&) = delete;
    OpenCounter& operator=(const OpenCounter&) = delete;
    ~OpenCounter() { ::close(events_); }

    [[nodiscard]] std::size_t count() const {
        alignas(inotify_event) char bytes[4096];
        const ssize_t got = ::read(events_, bytes, sizeof(bytes));
        return got > 0 ? static_cast<std::size_t>(got) / sizeof(inotify_event) : 0;
    }

 private:
    const int events_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
};

TEST(UrlReader, DoesNotFollowToOtherSchemes) {
    for (const QString& url : {QStringLiteral("data:,text"), QStringLiteral("http://[bad")}) {
        const LoopbackServer server(LoopbackServer::to(url));
        EXPECT_EQ(readFrom(server), std::nullopt) << url.toStdString();
    }
}

// The file is readable when its URL is given, so only the refusal keeps it closed.
TEST(UrlReader, ARedirectOpensNoFile) {
    const TemporaryFolder folder;
    const std::string path = folder.writeFile("Update.plist", "a file");
    const OpenCounter opened(path);
    const QString url = QUrl::fromLocalFile(QString::fromStdString(path)).toString();
    const LoopbackServer server(LoopbackServer::to(url));
    EXPECT_EQ(readFrom(server), std::nullopt);
    EXPECT_EQ(server.requests.size(), 1);
    EXPECT_EQ(opened.count(), 0U);
    EXPECT_EQ(readThere(url), QByteArray("a file"));
    EXPECT_EQ(opened.count(), 1U);
}

TEST(Redirect, IsAllowedWithinASchemeAndFromHttpToHttps) {
    const QString schemes[] = {QStringLiteral("http"), QStringLiteral("https"),
                               QStringLiteral("ftp"), QStringLiteral("file"),
                               QStringLiteral("data")};
    for (const QString& from : schemes) {
        for (const QString& to : schemes) {
            const std::string road = from.toStdString() + " to " + to.toStdString();
            const bool isAllowed =
                road == "http to http" || road == "https to https" || road == "http to https";
            EXPECT_EQ(mayRedirect(QUrl(from + QStringLiteral("://host/a")),
                                  QUrl(to + QStringLiteral("://host/b"))),
                      isAllowed)
                << road;
        }
    }
    EXPECT_TRUE(mayRedirect(QUrl("HTTP://host/"), QUrl("HTTPS://host/")));
    EXPECT_FALSE(mayRedirect(QUrl("http://host/"), QUrl()));
    EXPECT_FALSE(mayRedirect(QUrl("http://host/"), QUrl("http://[bad")));
}

TEST(UrlReader, ReadsFiles) {
    const TemporaryFolder folder;
    const QString path = QString::fromStdString(folder.writeFile("a file", "bytes"));
    const QString url = QUrl::fromLocalFile(path).toString();
    EXPECT_EQ(readThere(url), QByteArray("bytes"));
    EXPECT_EQ(readThere(url, {.bytes = 5}), QByteArray("bytes"));
    EXPECT_EQ(readThere(url, {.bytes = 4}), std::nullopt);
}

TEST(UrlReader, RefusesFoldersPipesAndDevices) {
    const TemporaryFolder folder;
    const std::string pipe = folder.pathOf("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path :
         {folder.path(), folder.pathOf("missing"), pipe, std::string("/dev/zero")}) {
        EXPECT_EQ(readThere(QUrl::fromLocalFile(QString::fromStdString(path)).toString()),
                  std::nullopt)
            << path;
    }
}

}  // namespace
}  // namespace tarvin
