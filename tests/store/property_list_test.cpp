#include "store/property_list.h"

#include "store/property_list_check.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

std::string xml(const std::string& root) {
    return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0">)" + root + "</plist>";
}

std::string repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t time = 0; time < times; ++time) {
        all += text;
    }
    return all;
}

/// A binary list of these objects, the first of which is the root; references are one byte.
std::string binary(const std::vector<std::string>& objects) {
    std::string list = "bplist00";
    std::string offsets;
    for (const std::string& object : objects) {
        offsets += static_cast<char>(list.size() >> 8U);
        offsets += static_cast<char>(list.size() & 0xFFU);
        list += object;
    }
    const std::size_t table = list.size();
    list += offsets;
    list += std::string(6, '\0') + '\x02' + '\x01';
    list += std::string(7, '\0') + static_cast<char>(objects.size());
    list += std::string(8, '\0');
    list +=
        std::string(6, '\0') + static_cast<char>(table >> 8U) + static_cast<char>(table & 0xFFU);
    return list;
}

Paths throughXml(const Paths& paths) {
    const auto list = PropertyList::parse(PropertyList::arrayOfPaths(paths).xml());
    return list ? list->paths() : Paths{"not parsed"};
}

TEST(PropertyList, KeepsPathsExactly) {
    const Paths paths{"/plain/a.jpg",
                      "/gr\u00FCn/\u5199\u771F \U0001F600.jpg",
                      "/a & b/<c>/\"d\"/'e'.jpg",
                      "/line\nend.jpg",
                      "/tab\there",
                      "/carriage\rreturn",
                      "/control\x01\x1F\x7F",
                      "/latin\xE4\xFF.jpg",
                      "/cut off \xE2\x82",
                      "/overlong \xC0\xAF",
                      "/surrogate \xED\xA0\x80",
                      "/no character \xEF\xBF\xBE",
                      "/beyond \xF4\x90\x80\x80",
                      "/ends with a blank ",
                      " begins with one",
                      "/ends with a line\n",
                      "/]]>/&amp;/<!-- -->"};
    EXPECT_EQ(throughXml(paths), paths);
    EXPECT_EQ(throughXml({"/a", "", "/b"}), (Paths{"/a", "/b"}));
}

TEST(PropertyList, KeepsEveryByteOfAPath) {
    Paths paths;
    for (int byte = 1; byte < 256; ++byte) {
        paths.push_back("/a" + std::string(1, static_cast<char>(byte)) + "b");
    }
    EXPECT_EQ(throughXml(paths), paths);
}

TEST(PropertyList, WritesPlainPathsAsStringsAndOthersAsData) {
    const std::string text = PropertyList::arrayOfPaths({"/a.jpg", "/\xFF"}).xml();
    EXPECT_NE(text.find("<string>/a.jpg</string>"), std::string::npos) << text;
    EXPECT_NE(text.find("<data>"), std::string::npos) << text;
    EXPECT_TRUE(text.starts_with("<?xml")) << text;
}

TEST(PropertyList, ReadsNumbers) {
    const auto list = PropertyList::parse(
        xml("<dict><key>a</key><integer>5</integer><key>b</key><string>5</string>"
            "<key>c</key><integer>18446744073709551615</integer><key>d</key><real>1.5</real>"
            "</dict>"));
    ASSERT_TRUE(list);
    EXPECT_TRUE(list->isDictionary());
    EXPECT_FALSE(list->isArray());
    EXPECT_EQ(list->number("a"), 5U);
    EXPECT_EQ(list->number("b"), std::nullopt);
    EXPECT_EQ(list->number("c"), 18'446'744'073'709'551'615U);
    EXPECT_EQ(list->number("d"), std::nullopt);
    EXPECT_EQ(list->number("missing"), std::nullopt);
}

TEST(PropertyList, KeepsWhatItDoesNotKnow) {
    auto list = PropertyList::parse(
        xml("<dict><key>mine</key><array><string>kept</string></array></dict>"));
    ASSERT_TRUE(list);
    list->setNumber("a", 7);
    const auto again = PropertyList::parse(list->xml());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->number("a"), 7U);
    EXPECT_NE(list->xml().find("<string>kept</string>"), std::string::npos);
}

TEST(PropertyList, ReadsTheBinaryForm) {
    const auto list = PropertyList::parse(binary({"\xA2\x01\x02", "\x52/a", "\x52/b"}));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->paths(), (Paths{"/a", "/b"}));
}

TEST(PropertyList, IsNotWhatIsNone) {
    for (const std::string& bytes :
         {std::string(), std::string("no list"), std::string("bplist00"),
          std::string("bplist00") + std::string(40, '\xFF'), std::string(1000, '\0'),
          std::string("<plist>"), std::string("<<<<>>>>")}) {
        EXPECT_FALSE(PropertyList::parse(bytes)) << bytes;
    }
}

TEST(PropertyList, ReadsInvalidUtf8WithoutHarm) {
    const auto list = PropertyList::parse(xml("<array><string>/\xFF\xC0.jpg</string></array>"));
    EXPECT_TRUE(!list || list->paths().size() == 1);
}

TEST(HarmlessPropertyList, IsOneOfAFewLevels) {
    EXPECT_TRUE(isHarmlessPropertyList(xml(repeated("<array>", 63) + repeated("</array>", 63))));
    EXPECT_FALSE(isHarmlessPropertyList(xml(repeated("<array>", 64) + repeated("</array>", 64))));
}

TEST(HarmlessPropertyList, IsNotOneOfAHundredThousandLevels) {
    const std::string deep = xml(repeated("<array>", 100'000) + repeated("</array>", 100'000));
    EXPECT_FALSE(isHarmlessPropertyList(deep));
    EXPECT_FALSE(PropertyList::parse(deep));
    EXPECT_FALSE(PropertyList::parse(xml(repeated("<dict><key>k</key>", 100'000))));
}

TEST(HarmlessPropertyList, DoesNotTakeAnAttributeForTheEndOfATag) {
    EXPECT_FALSE(isHarmlessPropertyList(xml(repeated("<array a=\"/>\">", 10))));
    EXPECT_FALSE(isHarmlessPropertyList(xml("<array a='b'>")));
}

TEST(HarmlessPropertyList, CountsNothingInCommentsAndText) {
    EXPECT_TRUE(
        isHarmlessPropertyList(xml("<!-- " + repeated("<array>", 100) + " --><string><![CDATA[" +
                                   repeated("<array>", 100) + "]]></string>")));
}

TEST(HarmlessPropertyList, DoesNotExpandEntities) {
    const std::string bomb =
        "<?xml version=\"1.0\"?><!DOCTYPE plist [<!ENTITY a \"aaaaaaaaaa\">"
        "<!ENTITY b \"&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;\">"
        "<!ENTITY c \"&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;\">]>"
        "<plist version=\"1.0\"><array><string>&c;</string></array></plist>";
    const auto list = PropertyList::parse(bomb);
    EXPECT_TRUE(!list || list->paths().empty() || list->paths()[0].size() < 100);
}

TEST(HarmlessPropertyList, IsNoBinaryListThatHoldsItself) {
    EXPECT_FALSE(isHarmlessPropertyList(binary({std::string("\xA1\x00", 2)})));
    EXPECT_FALSE(isHarmlessPropertyList(binary({"\xA1\x01", std::string("\xA1\x00", 2)})));
}

TEST(HarmlessPropertyList, IsNoBinaryListThatUnfoldsBeyondMeasure) {
    // Each of forty arrays holds the next one four times.
    std::vector<std::string> objects;
    for (int number = 1; number <= 40; ++number) {
        objects.push_back("\xA4" + std::string(4, static_cast<char>(number)));
    }
    objects.emplace_back(
        "\x51"
        "a");
    EXPECT_FALSE(isHarmlessPropertyList(binary(objects)));
    EXPECT_FALSE(PropertyList::parse(binary(objects)));
}

TEST(HarmlessPropertyList, IsNoBinaryListThatPointsOutsideItself) {
    EXPECT_FALSE(isHarmlessPropertyList(binary({"\xA1\x07"})));
    std::string list = binary({"\xA1\x01",
                               "\x51"
                               "a"});
    for (std::size_t at = 8; at < list.size(); ++at) {
        std::string damaged = list;
        damaged[at] = '\xFF';
        // Whatever it says, asking and reading it ends.
        static_cast<void>(PropertyList::parse(damaged));
    }
    EXPECT_FALSE(isHarmlessPropertyList(list.substr(0, 30)));
}

}  // namespace
}  // namespace tarvin
