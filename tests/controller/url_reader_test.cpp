#include "controller/url_reader.h"

#include "controller/paths_of_build.h"
#include "network/loopback_server.h"
#include "support/file_content.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

namespace tarvin {
namespace {

constexpr std::chrono::milliseconds soonEnough{500};
constexpr int patience = 20'000;

/// Reads by the product's program, or by one of the test, on a background thread.
class UrlReaderTest : public ::testing::Test {
 protected:
    static UrlReader byTheProgram(ReadBounds bounds = {}) {
        return urlReaderFor(QString::fromStdString(urlReaderPath()), bounds);
    }
    UrlReader byScript(const std::string& script, ReadBounds bounds = {}) const {
        const std::string path = folder_.writeFile("script", "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return urlReaderFor(QString::fromStdString(path), bounds);
    }

    /// Starts reading on a background thread; join() returns the result.
    void begin(const UrlReader& reading, const QString& url) {
        done_ = false;
        bytes_ = "nothing yet";
        stop_ = std::make_unique<StopRequest>();
        reader_ = std::jthread([this, reading, url] {
            bytes_ = reading(QUrl(url), *stop_);
            done_ = true;
        });
    }
    std::optional<QByteArray> join() {
        EXPECT_TRUE(QTest::qWaitFor([this] { return done_.load(); }, patience));
        reader_.join();
        return bytes_;
    }
    std::optional<QByteArray> read(const UrlReader& reading,
                                   const QString& url = QStringLiteral("http://127.0.0.1/")) {
        begin(reading, url);
        return join();
    }

    const TemporaryFolder folder_;
    std::atomic<bool> done_{false};
    std::optional<QByteArray> bytes_;
    std::unique_ptr<StopRequest> stop_;
    std::jthread reader_;
};

TEST_F(UrlReaderTest, BringsWhatIsThere) {
    const QByteArray body("zero \0 and \xFF", 12);
    const LoopbackServer server(LoopbackServer::with(body));
    EXPECT_EQ(read(byTheProgram(), server.url() + QStringLiteral("/a%20b")), body);
    ASSERT_EQ(server.requests.size(), 1);
    EXPECT_TRUE(server.requests[0].startsWith("GET /a%20b HTTP/1.1\r\n"));
}

TEST_F(UrlReaderTest, BringsNothingIfThereIsNothing) {
    const LoopbackServer server(LoopbackServer::withRaw("HTTP/1.1 404 Not Found\r\n\r\n"));
    EXPECT_EQ(read(byTheProgram(), server.url()), std::nullopt);
    EXPECT_EQ(read(byTheProgram(), QString()), std::nullopt);
    EXPECT_EQ(read(byTheProgram(), QStringLiteral("nonsense")), std::nullopt);
}

TEST_F(UrlReaderTest, HasAnEmptyAnswerToo) {
    const LoopbackServer server(LoopbackServer::with({}));
    EXPECT_EQ(read(byTheProgram(), server.url()), QByteArray());
}

/// The limit of the body does not apply to the header.
TEST_F(UrlReaderTest, EndsInTimeWhileTheHeadOfTheAnswerGoesOn) {
    QTimer lines;
    LoopbackServer server([&](QTcpSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\n");
        QObject::connect(&lines, &QTimer::timeout, &connection,
                         [&] { connection.write("X-More: and more\r\n"); });
        lines.start(5);
    });
    EXPECT_EQ(read(byTheProgram({.time = soonEnough}), server.url()), std::nullopt);
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.closed == 1; }, patience));
}

TEST_F(UrlReaderTest, EndsInTimeWhateverTheProgramWaitsFor) {
    EXPECT_EQ(read(byScript("exec sleep 3600", {.time = soonEnough})), std::nullopt);
}

TEST_F(UrlReaderTest, EndsWhenItIsStopped) {
    LoopbackServer server([](QTcpSocket& /*connection*/) {});
    begin(byTheProgram({.time = std::chrono::hours(1)}), server.url());
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.requests.size() == 1; }, patience));
    stop_->request();
    EXPECT_EQ(join(), std::nullopt);
    EXPECT_TRUE(QTest::qWaitFor([&] { return server.closed == 1; }, patience));
}

TEST_F(UrlReaderTest, DoesNotBeginWhenItWasStoppedBefore) {
    const std::string trace = folder_.pathOf("trace");
    StopRequest stop;
    stop.request();
    EXPECT_EQ(byScript(": >'" + trace + "'")(QUrl(), stop), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(trace));
}

TEST_F(UrlReaderTest, TakesUpToItsBound) {
    EXPECT_EQ(read(byScript("printf 12345", {.bytes = 5})), QByteArray("12345"));
    EXPECT_EQ(read(byScript("printf 123456", {.bytes = 5})), std::nullopt);
    EXPECT_EQ(read(byScript("exec yes")), std::nullopt);
}

TEST_F(UrlReaderTest, EndsTheProgramAtTheFirstByteBeyondItsBound) {
    // join() fails if it takes longer than its patience.
    EXPECT_EQ(read(byScript("printf 123456; exec sleep 3600",
                            {.time = std::chrono::minutes(1), .bytes = 5})),
              std::nullopt);
}

TEST_F(UrlReaderTest, PassesTheUrlToTheProgram) {
    EXPECT_EQ(read(byScript("cat"), QStringLiteral("https://example.org/a b")),
              QByteArray("https://example.org/a%20b"));
}

TEST_F(UrlReaderTest, TrustsNoProgramThatFails) {
    EXPECT_EQ(read(byScript("printf 12345; exit 1")), std::nullopt);
    EXPECT_EQ(read(byScript("printf 12345; kill -SEGV $$")), std::nullopt);
}

TEST_F(UrlReaderTest, BringsNothingWithoutAProgram) {
    EXPECT_EQ(read(urlReaderFor({})), std::nullopt);
    EXPECT_EQ(read(urlReaderFor(QString::fromStdString(folder_.pathOf("missing")))), std::nullopt);
    EXPECT_EQ(read(urlReaderFor(QString::fromStdString(folder_.writeFile("text", "no program")))),
              std::nullopt);
}

// The sanitizers reserve more than any limit.
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
TEST(UrlReaderProgram, LimitsItsMemoryToOneGibibyte) {
    const LoopbackServer server([](QTcpSocket& /*connection*/) {});
    QProcess program;
    program.start(QString::fromStdString(urlReaderPath()));
    program.write(server.url().toUtf8());
    program.closeWriteChannel();
    ASSERT_TRUE(QTest::qWaitFor([&server] { return server.requests.size() == 1; }, patience));
    const std::string limits =
        contentOf("/proc/" + std::to_string(program.processId()) + "/limits");
    EXPECT_NE(limits.find("Max address space         1073741824           1073741824 "),
              std::string::npos)
        << limits;
    program.kill();
    EXPECT_TRUE(program.waitForFinished(patience));
}
#endif

}  // namespace
}  // namespace tarvin
