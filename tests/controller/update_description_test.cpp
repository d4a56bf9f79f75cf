#include "controller/update_description.h"

#include "controller/update_lists.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

std::string updateUrlOf(const char* location, const char* name) {
    return updateUrl({.folderLocation = QString::fromUtf8(location),
                      .folderName = QString::fromUtf8(name)})
        .toEncoded()
        .toStdString();
}

const std::string none = "no update";

std::string updateOf(const char* version, const std::string& description) {
    return updateFor(QString::fromUtf8(version), QByteArray::fromStdString(description))
        .value_or(QString::fromStdString(none))
        .toStdString();
}

TEST(UpdateUrl, JoinsTheFolderItsNameAndTheList) {
    EXPECT_EQ(updateUrlOf("https://example.org/files", "updates"),
              "https://example.org/files/updates/Update.plist");
    EXPECT_EQ(updateUrlOf("http://127.0.0.1:80", "updates"),
              "http://127.0.0.1:80/updates/Update.plist");
    EXPECT_EQ(updateUrlOf("file:///srv/files", "updates"),
              "file:///srv/files/updates/Update.plist");
}

TEST(UpdateUrl, PutsOneSlashBetweenTwoParts) {
    EXPECT_EQ(updateUrlOf("https://example.org/files/", "/updates/"),
              "https://example.org/files/updates/Update.plist");
    EXPECT_EQ(updateUrlOf("https://example.org//files//", "updates"),
              "https://example.org//files/updates/Update.plist");
}

TEST(UpdateUrl, EncodesSpaces) {
    EXPECT_EQ(updateUrlOf("https://example.org/our files", "new versions"),
              "https://example.org/our%20files/new%20versions/Update.plist");
}

TEST(UpdateUrl, IsNoneIfAPartIsMissing) {
    EXPECT_EQ(updateUrlOf("", "updates"), "");
    EXPECT_EQ(updateUrlOf("https://example.org", ""), "");
    EXPECT_EQ(updateUrlOf("", ""), "");
}

TEST(UpdateUrl, IsNoneIfItCannotBeReadFrom) {
    for (const char* location :
         {"ftp://example.org", "/srv/files", "srv/files", "example.org", "javascript:alert(1)",
          "data:,text", "qrc:", "https://[bad", "smb://nas/share", "://"}) {
        EXPECT_EQ(updateUrlOf(location, "updates"), "") << location;
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
    EXPECT_EQ(updateOf("1.0", listOfTexts({{"1.0", "1.0"}})), none);
}

TEST(UpdateDescription, OffersNothingToAVersionItDoesNotKnow) {
    const std::string description = listOfTexts({{"1.0", "2.0"}});
    for (const char* version : {"1.0.0", "1", "1.", " 1.0", "2.0", ""}) {
        EXPECT_EQ(updateOf(version, description), none) << version;
    }
}

TEST(UpdateDescription, OffersNothingIfItIsDamaged) {
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
          std::string(1 << 20, '\0'), std::string("bplist00")}) {
        EXPECT_EQ(updateOf("1.0", description), none) << description.substr(0, 100);
    }
}

TEST(UpdateDescription, OffersAnyOtherText) {
    for (const char* other : {"", " 1.0", "1.0.0", "01.0", "newest", "1,0"}) {
        EXPECT_EQ(updateOf("1.0", listOfTexts({{"1.0", other}})), other);
    }
}

TEST(UpdateDescription, ShowsTheBeginningOfAVeryLongVersion) {
    const std::string longest(64, '1');
    EXPECT_EQ(updateOf("1.0", listOfTexts({{"1.0", longest}})), longest);
    EXPECT_EQ(updateOf("1.0", listOfTexts({{"1.0", longest + "1"}})),
              std::string(63, '1') + "\xE2\x80\xA6");
    // A surrogate pair is not split.
    EXPECT_EQ(updateOf("1.0", listOfTexts({{"1.0", std::string(62, '1') + "\xF0\x9F\x98\x80"
                                                                          "22"}})),
              std::string(62, '1') + "\xE2\x80\xA6");
}

TEST(UpdateDescription, ShowsAVersionInOneLine) {
    EXPECT_EQ(updateOf("1.0", listOfTexts({{"1.0", "2\n0\xE2\x80\xAE"}})),
              "2\xEF\xBF\xBD"
              "0\xEF\xBF\xBD");
}

}  // namespace
}  // namespace tarvin
