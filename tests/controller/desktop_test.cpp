#include "controller/desktop.h"

#include "support/temporary_folder.h"
#include "support/waiting.h"

#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QObject>
#include <QUrl>
#include <filesystem>
#include <string>
#include <vector>

namespace tarvin {

/// Records the URLs that would be passed to the desktop.
class OpenedUrls final : public QObject {
    Q_OBJECT

 public:
    OpenedUrls() {
        for (const QString& scheme : schemes()) {
            QDesktopServices::setUrlHandler(scheme, this, "take");
        }
    }
    OpenedUrls(const OpenedUrls&) = delete;
    OpenedUrls& operator=(const OpenedUrls&) = delete;
    ~OpenedUrls() override {
        for (const QString& scheme : schemes()) {
            QDesktopServices::unsetUrlHandler(scheme);
        }
    }

    Q_SLOT void take(const QUrl& url) { taken.push_back(url.toEncoded().toStdString()); }

    std::vector<std::string> taken;

 private:
    static QStringList schemes() {
        return {"file", "http", "https", "mailto", "ftp", "javascript", "tarvin", "smb"};
    }
};

namespace {

using Texts = std::vector<std::string>;

class SystemDesktop : public ::testing::Test {
 protected:
    OpenedUrls opened_;
    Desktop& desktop_ = systemDesktop();
};

TEST_F(SystemDesktop, OpensUrlsOfFourSchemes) {
    const Texts urls{"https://example.org/help?a=b#c", "http://example.org",
                     "mailto:help@example.org", "file:///usr/share/index.html"};
    for (const std::string& url : urls) {
        EXPECT_TRUE(desktop_.openUrl(QString::fromStdString(url))) << url;
    }
    EXPECT_EQ(opened_.taken, urls);
}

TEST_F(SystemDesktop, RefusesOtherUrls) {
    for (const char* url : {"", " ", "example.org", "/usr/bin/env", "javascript:alert(1)",
                            "ftp://example.org/a", "smb://nas/share", "tarvin:",
                            "http://exa mple.org/", "https://[bad", "http://a/%zz", "-h", "://"}) {
        EXPECT_FALSE(desktop_.openUrl(QString::fromUtf8(url))) << url;
    }
    EXPECT_EQ(opened_.taken, Texts{});
}

TEST_F(SystemDesktop, OpensPathsByteForByte) {
    EXPECT_TRUE(desktop_.openPath("/a b/100%#?\xff.png"));
    EXPECT_EQ(opened_.taken, Texts{"file:///a%20b/100%25%23%3F%FF.png"});
}

TEST_F(SystemDesktop, RefusesPathsThatAreNotAbsolute) {
    EXPECT_FALSE(desktop_.openPath(""));
    EXPECT_FALSE(desktop_.openPath("a.png"));
    EXPECT_FALSE(desktop_.openPath("http://example.org/"));
    EXPECT_EQ(opened_.taken, Texts{});
}

TEST_F(SystemDesktop, StartsProgramsWithTheirArguments) {
    const TemporaryFolder folder;
    const std::string done = folder.pathOf("it's done");
    EXPECT_TRUE(desktop_.startProgram("/bin/sh",
                                      {"-c", "touch \"$1\"", "sh", QString::fromStdString(done)}));
    EXPECT_TRUE(waitUntil([&] { return std::filesystem::exists(done); }));
}

TEST_F(SystemDesktop, SaysIfAProgramCannotBeStarted) {
    const TemporaryFolder folder;
    EXPECT_FALSE(desktop_.startProgram(QString::fromStdString(folder.pathOf("missing")), {}));
    const std::string text = folder.writeFile("text", "no program");
    EXPECT_FALSE(desktop_.startProgram(QString::fromStdString(text), {}));
    EXPECT_FALSE(desktop_.startProgram({}, {}));
}

TEST_F(SystemDesktop, OpensTheFolderOfAFileWithoutASessionBus) {
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    desktop_.showInFolder("/home/a b/\xff.jpg");
    desktop_.showInFolder("/top.jpg");
    desktop_.showInFolder("relative.jpg");
    EXPECT_EQ(opened_.taken, (Texts{"file:///home/a%20b", "file:///"}));
}

}  // namespace
}  // namespace tarvin

#include "desktop_test.moc"
