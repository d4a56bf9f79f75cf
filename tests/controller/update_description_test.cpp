#include "controller/update_description.h"

#include "controller/update_lists.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

std::string addressOf(const char* location, const char* name) {
    return updateAddress({.folderLocation = QString::fromUtf8(location),
                          .folderName = QString::fromUtf8(name)})
        .toEncoded()
        .toStdString();
}

std::string updateOf(const char* version, const std::string& description) {
    return updateFor(QString::fromUtf8(version), QByteArray::fromStdString(description))
        .toStdString();
}

TEST(UpdateAddress, JoinsTheFolderItsNameAndTheList) {
    EXPECT_EQ(addressOf("https://example.org/files", "updates"),
              "https://example.org/files/updates/Update.plist");
    EXPECT_EQ(addressOf("http://127.0.0.1:80", "updates"),
              "http://127.0.0.1:80/updates/Update.plist");
    EXPECT_EQ(addressOf("file:///srv/files", "updates"), "file:///srv/files/updates/Update.plist");
}

TEST(UpdateAddress, PutsOneSlashBetweenTwoParts) {
    EXPECT_EQ(addressOf("https://example.org/files/", "/updates/"),
              "https://example.org/files/updates/Update.plist");
    EXPECT_EQ(addressOf("https://example.org//files//", "updates"),
              "https://example.org//files/updates/Update.plist");
}

TEST(UpdateAddress, SpellsBlanksOut) {
    EXPECT_EQ(addressOf("https://example.org/our files", "new versions"),
              "https://example.org/our%20files/new%20versions/Update.plist");
}

TEST(UpdateAddress, IsNoneIfAPartIsMissing) {
    EXPECT_EQ(addressOf("", "updates"), "");
    EXPECT_EQ(addressOf("https://example.org", ""), "");
    EXPECT_EQ(addressOf("", ""), "");
}

TEST(UpdateAddress, IsNoneIfItCannotBeReadFrom) {
    for (const char* location :
         {"ftp://example.org", "/srv/files", "srv/files", "example.org", "javascript:alert(1)",
          "data:,text", "qrc:", "https://[bad", "smb://nas/share", "://"}) {
        EXPECT_EQ(addressOf(location, "updates"), "") << location;
    }
}

TEST(UpdateDescription, NamesTheVersionToMoveTo) {
    const std::string description = listOfTexts({{"1.0", "2.0"}, {"1.1", "3.0"}});
    EXPECT_EQ(updateOf("1.0", description), "2.0");
    EXPECT_EQ(updateOf("1.1", description), "3.0");
}

TEST(UpdateDescription, OffersALowerVersionToo) {
    EXPECT_EQ(updateOf("2.0", listOfTexts({{"2.0", "1.0"}})), "1.0");
}

TEST(UpdateDescription, OffersNothingToTheVersionItself) {
    EXPECT_EQ(updateOf("1.0", listOfTexts({{"1.0", "1.0"}})), "");
}

TEST(UpdateDescription, OffersNothingToAVersionItDoesNotKnow) {
    const std::string description = listOfTexts({{"1.0", "2.0"}});
    for (const char* version : {"1.0.0", "1", "1.", " 1.0", "2.0", ""}) {
        EXPECT_EQ(updateOf(version, description), "") << version;
    }
}

TEST(UpdateDescription, OffersNothingByAListThatIsDamaged) {
    const std::string good = listOfTexts({{"1.0", "2.0"}});
    ASSERT_EQ(updateOf("1.0", good), "2.0");
    const std::string begin = "<?xml version=\"1.0\"?><plist version=\"1.0\">";
    for (const std::string& description :
         {std::string(), std::string(" "), std::string("text"), good.substr(0, good.size() / 2),
          std::string("<!DOCTYPE html><html><head><title>1.0</title></head></html>"),
          begin + "<array><string>1.0</string><string>2.0</string></array></plist>",
          begin + "<string>2.0</string></plist>",
          begin + "<dict><key>1.0</key><integer>2</integer></dict></plist>",
          begin + "<dict><key>1.0</key><dict/></dict></plist>",
          begin + "<dict><key>1.0</key><true/></dict></plist>", std::string(1 << 20, '<'),
          std::string(1 << 20, '\0'), std::string("bplist00"), listOfTexts({{"1.0", ""}})}) {
        EXPECT_EQ(updateOf("1.0", description), "") << description.substr(0, 100);
    }
}

TEST(UpdateDescription, OffersNothingThatCouldBeNoVersion) {
    const std::string longest(longestVersion, '1');
    EXPECT_EQ(updateOf("1.0", listOfTexts({{"1.0", longest}})), longest);
    EXPECT_EQ(updateOf("1.0", listOfTexts({{"1.0", longest + "1"}})), "");
}

TEST(UpdateDescription, ShowsAVersionInOneLine) {
    EXPECT_EQ(updateOf("1.0", listOfTexts({{"1.0", "2\n0\xE2\x80\xAE"}})),
              "2\xEF\xBF\xBD"
              "0\xEF\xBF\xBD");
}

}  // namespace
}  // namespace tarvin
