#include "controller/update_check.h"

#include "controller/paths_of_build.h"
#include "controller/product_fixture.h"
#include "controller/update_lists.h"
#include "interface/home_screen.h"
#include "interface/main_window.h"
#include "interface/picture_view.h"
#include "network/loopback_server.h"
#include "support/file_content.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace tarvin {
namespace {

const std::string current = "1.2.3";  // the fixture's

QByteArray descriptionOf(const std::string& version) {
    return QByteArray::fromStdString(listOfTexts({{current, version}, {"0.1", "9.9"}}));
}

/// Calls a function at the first paint event of a widget.
class FirstPaint final : public QObject {
 public:
    FirstPaint(QWidget* widget, std::function<void()> painted)
        : QObject(widget), painted_(std::move(painted)) {
        widget->installEventFilter(this);
        widget->update();
    }

    bool eventFilter(QObject* /*widget*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            if (const auto painted = std::exchange(painted_, {})) {
                painted();
            }
        }
        return false;
    }

 private:
    std::function<void()> painted_;
};

/// The product with a Urls.plist that leads to the test's server.
class Updates : public ProductFixture {
 protected:
    void SetUp() override {
        lead(server.url());
        readUrl = urlReaderFor(QString::fromStdString(urlReaderPath()));
    }

    void lead(const QString& location) {
        urls = QString::fromStdString(
            folder.writeFile("Urls.plist", listOfTexts({{"FolderLocation", location.toStdString()},
                                                        {"FolderName", "our updates"}})));
    }

    /// The command of the help menu.
    void askForUpdates() {
        click("buttonHelpManual");
        choose(window().helpMenu, window().updateMenuItem);
    }

    /// Starts the product and waits for its first check.
    void launchAndCheck() {
        launch();
        ASSERT_TRUE(comesTrue([this] { return server.closed >= 1; }));
    }

    void expectOffer(const Alert& alert, const std::string& version) {
        EXPECT_EQ(alert.messageText.toStdString(),
                  "New update available (Tarvin Duplicate File Remover " + version + ")");
        EXPECT_EQ(alert.informativeText, QStringLiteral("Would you like to update this version?"));
        EXPECT_EQ(alert.buttons,
                  (QStringList{QStringLiteral("Update"), QStringLiteral("Remind Me Later")}));
        EXPECT_EQ(alert.escapeButton, 1);
    }

    static void expectUpToDate(const Alert& alert) {
        EXPECT_EQ(alert.messageText, QStringLiteral("Your application is up to date"));
        EXPECT_EQ(alert.informativeText, QStringLiteral("No update required."));
        EXPECT_EQ(alert.buttons, QStringList{QStringLiteral("Ok")});
    }

    LoopbackServer server{LoopbackServer::with(descriptionOf("2.0"))};
};

TEST_F(Updates, AreOfferedWhenTheProductStarts) {
    launch();
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    expectOffer(alerts.shown[0], "2.0");
    ASSERT_EQ(server.requests.size(), 1);
    EXPECT_TRUE(server.requests[0].startsWith("GET /our%20updates/Update.plist HTTP/1.1\r\n"))
        << server.requests[0].toStdString();
}

TEST_F(Updates, AreOfferedEvenIfTheyAreOlder) {
    server.answer = LoopbackServer::with(descriptionOf("1.0"));
    launch();
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    expectOffer(alerts.shown[0], "1.0");
}

TEST_F(Updates, AreOfferedEvenWithoutAName) {
    server.answer = LoopbackServer::with(descriptionOf(""));
    launch();
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    expectOffer(alerts.shown[0], "");
    alerts.shown.clear();
    askForUpdates();
    ASSERT_EQ(alerts.shown.size(), 1U);
    expectOffer(alerts.shown[0], "");
}

TEST_F(Updates, AreOfferedWhenTheyAreAskedFor) {
    server.answer = LoopbackServer::with(descriptionOf(current));
    launchAndCheck();
    server.answer = LoopbackServer::with(descriptionOf("2.0"));
    askForUpdates();
    ASSERT_EQ(alerts.shown.size(), 1U);
    expectOffer(alerts.shown[0], "2.0");
}

TEST_F(Updates, ShowNoNoticeAtTheStartIfThereAreNone) {
    server.answer = LoopbackServer::with(descriptionOf(current));
    launchAndCheck();
    // This check finishes after the one at the start.
    askForUpdates();
    ASSERT_EQ(alerts.shown.size(), 1U);
    expectUpToDate(alerts.shown[0]);
}

TEST_F(Updates, AreNoneForAVersionThatIsNotKnown) {
    server.answer = LoopbackServer::with(QByteArray::fromStdString(listOfTexts({{"0.1", "2.0"}})));
    launchAndCheck();
    askForUpdates();
    ASSERT_EQ(alerts.shown.size(), 1U);
    expectUpToDate(alerts.shown[0]);
}

TEST_F(Updates, AreNoneIfTheDescriptionIsDamaged) {
    const QByteArray begin = "<plist version=\"1.0\">";
    const QByteArray good = descriptionOf("2.0");
    const std::string file = folder.writeFile("Update.plist", good.toStdString());
    for (const LoopbackServer::Answer& answer :
         {LoopbackServer::with({}), LoopbackServer::with("<!DOCTYPE html><html>1.2.3</html>"),
          LoopbackServer::with(begin + "<array><string>1.2.3</string></array></plist>"),
          LoopbackServer::with(begin + "<dict><key>1.2.3</key><integer>2</integer></dict></plist>"),
          LoopbackServer::with(good + QByteArray(1 << 20, '\n')),
          LoopbackServer::withRaw("HTTP/1.1 200 OK\r\nContent-Length: 9999\r\n\r\n" + good),
          LoopbackServer::withRaw("HTTP/1.1 500 Error\r\n\r\n" + good),
          LoopbackServer::to(QStringLiteral("file://") + QString::fromStdString(file)),
          LoopbackServer::Answer([](QTcpSocket& connection) { connection.abort(); })}) {
        server.answer = answer;
        launchAndCheck();
        askForUpdates();
        ASSERT_EQ(alerts.shown.size(), 1U);
        expectUpToDate(alerts.shown[0]);
        delegate.reset();
        alerts.shown.clear();
        server.closed = 0;
    }
}

TEST_F(Updates, AreNoneIfTheReadFails) {
    server.answer = LoopbackServer::withRaw("HTTP/1.1 404 Not Found\r\n\r\n" + descriptionOf("2"));
    launchAndCheck();
    askForUpdates();
    ASSERT_EQ(alerts.shown.size(), 1U);
    expectUpToDate(alerts.shown[0]);
}

TEST_F(Updates, MakeNoRequestsWithoutUrls) {
    for (const std::string& list : {std::string("damaged"), listOfTexts({}),
                                    listOfTexts({{"FolderLocation", server.url().toStdString()}}),
                                    listOfTexts({{"FolderName", "our updates"}}),
                                    listOfTexts({{"FolderLocation", ""}, {"FolderName", ""}})}) {
        urls = QString::fromStdString(folder.writeFile("Urls.plist", list));
        alerts.shown.clear();
        launch();
        askForUpdates();
        ASSERT_EQ(alerts.shown.size(), 1U) << list;
        expectUpToDate(alerts.shown[0]);
        EXPECT_TRUE(server.requests.isEmpty());
        delegate.reset();
    }
}

TEST_F(Updates, MakeNoRequestsWithoutAUrlList) {
    urls.clear();
    launch();
    askForUpdates();
    ASSERT_EQ(alerts.shown.size(), 1U);
    expectUpToDate(alerts.shown[0]);
}

TEST_F(Updates, AreNoneWithoutANetwork) {
    readUrl = [](const QUrl& /*url*/, const StopRequest& /*stop*/) {
        return std::optional<QByteArray>();
    };
    launch();
    askForUpdates();
    ASSERT_EQ(alerts.shown.size(), 1U);
    expectUpToDate(alerts.shown[0]);
    EXPECT_TRUE(server.requests.isEmpty());
}

TEST_F(Updates, MakeNoRequestsWithoutTheReader) {
    readUrl = {};
    launch();
    askForUpdates();
    ASSERT_EQ(alerts.shown.size(), 1U);
    expectUpToDate(alerts.shown[0]);
}

TEST_F(Updates, AreReadFromAFileToo) {
    folder.makeFolder("our updates");
    folder.writeFile("our updates/Update.plist", descriptionOf("2.0").toStdString());
    lead(QUrl::fromLocalFile(QString::fromStdString(folder.path())).toString());
    launch();
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    expectOffer(alerts.shown[0], "2.0");
}

/// The server responds only after the window was painted.
TEST_F(Updates, LetTheWindowBeDrawnWhileItWaits) {
    server.answer = LoopbackServer::with(descriptionOf(current));
    launchAndCheck();
    std::unique_ptr<FirstPaint> paint;
    server.answer = [&](QTcpSocket& connection) {
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        paint = std::make_unique<FirstPaint>(window().home->homePage, [&connection] {
            LoopbackServer::with(descriptionOf("2.0"))(connection);
        });
    };
    askForUpdates();
    ASSERT_EQ(alerts.shown.size(), 1U);
    expectOffer(alerts.shown[0], "2.0");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(Updates, AreAskedForOnceAtATime) {
    server.answer = LoopbackServer::with(descriptionOf(current));
    launchAndCheck();
    server.answer = [this](QTcpSocket& connection) {
        delegate->updates().updateMenuClicked();
        EXPECT_TRUE(alerts.shown.empty());
        LoopbackServer::with(descriptionOf("2.0"))(connection);
    };
    askForUpdates();
    EXPECT_EQ(server.requests.size(), 2);
    EXPECT_EQ(alerts.shown.size(), 1U);
}

TEST_F(Updates, CanBeRequestedDuringTheFirstCheck) {
    QTcpSocket* held = nullptr;
    server.answer = [&held](QTcpSocket& connection) { held = &connection; };
    launch();
    ASSERT_TRUE(comesTrue([&held] { return held != nullptr; }));
    server.answer = LoopbackServer::with(descriptionOf(current));
    askForUpdates();
    ASSERT_EQ(alerts.shown.size(), 1U);
    expectUpToDate(alerts.shown[0]);
    LoopbackServer::with(descriptionOf("2.0"))(*held);
    ASSERT_TRUE(comesTrue([this] { return alerts.shown.size() == 2; }));
    expectOffer(alerts.shown[1], "2.0");
}

TEST_F(Updates, DoNotDelayTheEndOfTheProduct) {
    server.answer = [](QTcpSocket& /*connection*/) {};
    launch();
    ASSERT_TRUE(comesTrue([this] { return server.requests.size() == 1; }));
    delegate.reset();
    EXPECT_TRUE(comesTrue([this] { return server.closed == 1; }));
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(Updates, DoNotDelayTheEndOfAWaitingProduct) {
    server.answer = LoopbackServer::with(descriptionOf(current));
    launchAndCheck();
    server.answer = [](QTcpSocket& /*connection*/) {
        QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
    };
    QTimer::singleShot(0, qApp, [this] { delegate->updates().updateMenuClicked(); });
    QCoreApplication::exec();
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

/// With a program in place of the updater.
class Updater : public Updates {
 protected:
    void SetUp() override {
        Updates::SetUp();
        updater = QString::fromStdString(folder.pathOf("Tarvin Duplicate File Remover Updater"));
        usedDesktop = &systemDesktop();
    }

    void accept() {
        launch();
        ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
        alerts.press(0);
    }
};

TEST_F(Updater, IsStartedWithOneWord) {
    std::filesystem::copy_file(updaterProgramPath(), updater.toStdString());
    accept();
    ASSERT_TRUE(waitUntil([this] { return std::filesystem::exists(folder.pathOf("told")); }));
    EXPECT_EQ(contentOf(folder.pathOf("told")), "nothing\n");
    EXPECT_EQ(terminations, 0);
    EXPECT_TRUE(window().isVisible());
}

TEST_F(Updater, ThatStartsIsAnsweredByTrue) {
    std::filesystem::copy_file(updaterProgramPath(), updater.toStdString());
    make();
    EXPECT_TRUE(delegate->updates().launchApp(updater, {QStringLiteral("word")}));
    ASSERT_TRUE(waitUntil([this] { return std::filesystem::exists(folder.pathOf("told")); }));
}

TEST_F(Updater, IsNotStartedLater) {
    usedDesktop = &desktop;
    launch();
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    alerts.press(1);
    EXPECT_TRUE(desktop.programs.isEmpty());
    // Nothing is stored.
    delegate.reset();
    alerts.shown.clear();
    launch();
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    expectOffer(alerts.shown[0], "2.0");
}

TEST_F(Updater, IsGivenItsWordByTheDesktop) {
    usedDesktop = &desktop;
    accept();
    EXPECT_EQ(desktop.programs, QStringList{updater});
    EXPECT_EQ(desktop.arguments, QStringList{QStringLiteral("nothing")});
}

TEST_F(Updater, IsNotMissedIfItIsNotThere) {
    accept();
    EXPECT_EQ(alerts.shown.size(), 1U);
    EXPECT_FALSE(delegate->updates().launchApp(updater, {QStringLiteral("nothing")}));
    EXPECT_FALSE(delegate->updates().launchApp({}, {}));
    EXPECT_TRUE(window().isVisible());
}

TEST_F(Updater, MayBeNoProgram) {
    folder.writeFile("Tarvin Duplicate File Remover Updater", "text");
    accept();
    EXPECT_EQ(alerts.shown.size(), 1U);
    EXPECT_FALSE(delegate->updates().launchApp(updater, {QStringLiteral("nothing")}));
    EXPECT_TRUE(window().isVisible());
}

TEST_F(Updater, MayCrash) {
    const std::string crash = folder.writeFile("Tarvin Duplicate File Remover Updater",
                                               "#!/bin/sh\n: >\"$(dirname \"$0\")/told\"\n"
                                               "kill -SEGV $$\n");
    std::filesystem::permissions(crash, std::filesystem::perms::owner_all);
    accept();
    ASSERT_TRUE(waitUntil([this] { return std::filesystem::exists(folder.pathOf("told")); }));
    EXPECT_EQ(alerts.shown.size(), 1U);
    EXPECT_TRUE(window().isVisible());
}

}  // namespace
}  // namespace tarvin
