#include "controller/urls.h"

#include "controller/paths_of_build.h"
#include "controller/update_lists.h"
#include "support/file_content.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

namespace tarvin {
namespace {

Urls urlsIn(const std::string& list) {
    const TemporaryFolder folder;
    return readUrls(QString::fromStdString(folder.writeFile("Urls.plist", list)));
}

void expectNone(const Urls& urls, const std::string& list) {
    EXPECT_TRUE(urls.support.isEmpty()) << list;
    EXPECT_TRUE(urls.folderLocation.isEmpty()) << list;
    EXPECT_TRUE(urls.folderName.isEmpty()) << list;
}

TEST(UrlList, HoldsThreeTexts) {
    const Urls urls = urlsIn(listOfTexts({{"Support", "mailto:help@example.org"},
                                          {"FolderLocation", "https://example.org/our files"},
                                          {"FolderName", "updates"},
                                          {"Other", "text"}}));
    EXPECT_EQ(urls.support, QStringLiteral("mailto:help@example.org"));
    EXPECT_EQ(urls.folderLocation, QStringLiteral("https://example.org/our files"));
    EXPECT_EQ(urls.folderName, QStringLiteral("updates"));
}

TEST(UrlList, MayLackSome) {
    const Urls urls = urlsIn(listOfTexts({{"FolderName", "updates"}}));
    EXPECT_TRUE(urls.support.isEmpty());
    EXPECT_TRUE(urls.folderLocation.isEmpty());
    EXPECT_EQ(urls.folderName, QStringLiteral("updates"));
}

TEST(UrlList, HoldsNothingIfItIsDamaged) {
    const std::string begin = "<?xml version=\"1.0\"?><plist version=\"1.0\">";
    const std::string good = listOfTexts({{"Support", "mailto:help@example.org"}});
    for (const std::string& list :
         {std::string(), std::string("damaged"), begin, good.substr(0, good.size() - 20),
          begin + "<array><string>Support</string></array></plist>",
          begin + "<dict><key>Support</key><integer>1</integer><key>FolderName</key><true/>"
                  "<key>FolderLocation</key><data>AAAA</data></dict></plist>"}) {
        expectNone(urlsIn(list), list);
    }
}

TEST(UrlList, HoldsNothingIfItIsHuge) {
    const std::string good = listOfTexts({{"Support", "mailto:help@example.org"}});
    EXPECT_FALSE(urlsIn(good + std::string((1U << 20U) - good.size(), '\n')).support.isEmpty());
    expectNone(urlsIn(good + std::string((1U << 20U) - good.size() + 1, '\n')), "huge");
}

/// The installed list has no URLs, so no requests are made; with a packager's URLs it can be read.
TEST(UrlList, IsInstalledWithoutUrls) {
    std::string list = contentOf(installedUrlsPath());
    expectNone(urlsIn(list), list);
    const std::string empty = "<string></string>";
    for (const char* text : {"mailto:help@example.org", "https://example.org", "updates"}) {
        const std::size_t offset = list.find(empty);
        ASSERT_NE(offset, std::string::npos);
        list.replace(offset, empty.size(), std::string("<string>") + text + "</string>");
    }
    EXPECT_EQ(list.find(empty), std::string::npos);
    const Urls urls = urlsIn(list);
    EXPECT_EQ(urls.support, QStringLiteral("mailto:help@example.org"));
    EXPECT_EQ(urls.folderLocation, QStringLiteral("https://example.org"));
    EXPECT_EQ(urls.folderName, QStringLiteral("updates"));
}

TEST(UrlList, HoldsNothingIfItIsNotAFile) {
    const TemporaryFolder folder;
    const std::string pipe = folder.pathOf("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path :
         {std::string(), folder.pathOf("missing"), folder.path(), pipe, std::string("/dev/zero")}) {
        expectNone(readUrls(QString::fromStdString(path)), path);
    }
}

}  // namespace
}  // namespace tarvin
