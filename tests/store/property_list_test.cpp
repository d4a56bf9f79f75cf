#include "store/property_list.h"

#include "store/plist_text.h"
#include "store/property_list_check.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using Paths = std::vector<std::string>;

std::string repeated(const std::string& text, std::size_t times) {
    std::string all;
    for (std::size_t time = 0; time < times; ++time) {
        all += text;
    }
    return all;
}

/// A binary list of these objects; the first is the root. References have one byte.
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

/// An array that refers `times` times to `object`, and that object.
std::string repeatedReference(std::size_t times, const std::string& object) {
    return binary({"\xAF\x11" + std::string(1, static_cast<char>(times >> 8U)) +
                       static_cast<char>(times & 0xFFU) + std::string(times, '\x01'),
                   object});
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
        plistText("<dict><key>a</key><integer>5</integer><key>b</key><string>5</string>"
                  "<key>c</key><integer>18446744073709551615</integer><key>d</key><real>1.5</real>"
                  "<key>e</key><true/><key>f</key><string>5 files</string></dict>"));
    ASSERT_TRUE(list);
    EXPECT_TRUE(list->isDictionary());
    EXPECT_FALSE(list->isArray());
    EXPECT_EQ(list->number("a"), 5U);
    EXPECT_EQ(list->number("b"), 5U);
    EXPECT_EQ(list->number("c"), 18'446'744'073'709'551'615U);
    EXPECT_EQ(list->number("d"), 1U);
    EXPECT_EQ(list->number("e"), std::nullopt);
    EXPECT_EQ(list->number("f"), std::nullopt);
    EXPECT_EQ(list->number("missing"), std::nullopt);
}

TEST(PropertyList, ReadsOnlyStringsAsTexts) {
    const auto list = PropertyList::parse(
        plistText("<dict><key>a</key><string>5</string><key>b</key><integer>5</integer>"
                  "<key>c</key><data>YQ==</data><key>d</key><true/></dict>"));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->text("a"), "5");
    EXPECT_EQ(list->text("b"), std::nullopt);
    EXPECT_EQ(list->text("c"), std::nullopt);
    EXPECT_EQ(list->text("d"), std::nullopt);
    EXPECT_EQ(list->text("missing"), std::nullopt);
}

// 2^64 and 2^63 are the first numbers that the types cannot represent, and -2^63 is the last.
TEST(PropertyList, ReadsRealsUpToTheLimitsOfTheirTypes) {
    const auto list = PropertyList::parse(
        plistText("<dict><key>a</key><real>18446744073709549568</real><key>b</key>"
                  "<real>18446744073709551616</real><key>c</key><real>9223372036854774784</real>"
                  "<key>d</key><real>9223372036854775808</real><key>e</key>"
                  "<real>-9223372036854775808</real><key>f</key><real>-1</real></dict>"));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->number("a"), 18'446'744'073'709'549'568U);
    EXPECT_EQ(list->number("b"), std::nullopt);
    EXPECT_EQ(list->signedNumber("c"), 9'223'372'036'854'774'784);
    EXPECT_EQ(list->signedNumber("d"), std::nullopt);
    EXPECT_EQ(list->signedNumber("e"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(list->number("f"), std::nullopt);
    EXPECT_EQ(list->signedNumber("f"), -1);
}

TEST(PropertyList, ReadsAndWritesNumbersWithTheirSign) {
    PropertyList list = PropertyList::dictionary();
    list.setSignedNumber("least", std::numeric_limits<std::int64_t>::min());
    list.setSignedNumber("below", -5);
    list.setNumber("half", 9'223'372'036'854'775'808U);
    list.setNumber("most", std::numeric_limits<std::uint64_t>::max());
    const auto again = PropertyList::parse(list.xml());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->signedNumber("least"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(again->signedNumber("below"), -5);
    EXPECT_EQ(again->number("below"), 0U);
    EXPECT_EQ(again->number("half"), 9'223'372'036'854'775'808U);
    EXPECT_EQ(again->signedNumber("half"), 0);
    EXPECT_EQ(again->number("most"), 18'446'744'073'709'551'615U);
    EXPECT_EQ(again->signedNumber("missing"), std::nullopt);
}

// -5 in 8 bytes, and 2^64 - 5 in 16 bytes: the low 8 bytes are equal.
TEST(PropertyList, ReadsSignsOfBinaryIntegers) {
    const std::string low = std::string(7, '\xFF') + '\xFB';
    const auto list =
        PropertyList::parse(binary({"\xD2\x01\x02\x03\x04", "\x52/a", "\x52/b", "\x13" + low,
                                    "\x14" + std::string(8, '\0') + low}));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->signedNumber("/a"), -5);
    EXPECT_EQ(list->number("/a"), 0U);
    EXPECT_EQ(list->number("/b"), 18'446'744'073'709'551'611U);
    EXPECT_EQ(list->signedNumber("/b"), 0);
}

TEST(PropertyList, KeepsUnknownKeys) {
    auto list = PropertyList::parse(
        plistText("<dict><key>mine</key><array><string>kept</string></array></dict>"));
    ASSERT_TRUE(list);
    list->setNumber("a", 7);
    const auto again = PropertyList::parse(list->xml());
    ASSERT_TRUE(again);
    EXPECT_EQ(again->number("a"), 7U);
    EXPECT_NE(list->xml().find("<string>kept</string>"), std::string::npos);
}

TEST(PropertyList, ReadsBinaryLists) {
    const auto list = PropertyList::parse(binary({"\xA2\x01\x02", "\x52/a", "\x52/b"}));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->paths(), (Paths{"/a", "/b"}));
}

TEST(PropertyList, ReadsALongBinaryArrayInLinearTime) {
    const auto begin = std::chrono::steady_clock::now();
    const auto list = PropertyList::parse(repeatedReference(60'000, "\x52/a"));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->paths(), Paths(60'000, "/a"));
    // Access by index took half a minute; iterating takes less than 0.1 s.
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST(PropertyList, RefusesOtherContent) {
    for (const std::string& bytes :
         {std::string(), std::string("no list"), std::string("bplist00"),
          std::string("bplist00") + std::string(40, '\xFF'), std::string(1000, '\0'),
          std::string("<plist>"), std::string("<<<<>>>>")}) {
        EXPECT_FALSE(PropertyList::parse(bytes)) << bytes;
    }
}

TEST(PropertyList, KeepsInvalidUtf8) {
    const auto list =
        PropertyList::parse(plistText("<array><string>/\xFF\xC0.jpg</string></array>"));
    ASSERT_TRUE(list);
    EXPECT_EQ(list->paths(), (Paths{"/\xFF\xC0.jpg"}));
}

TEST(SafePropertyList, HasAtMost64Levels) {
    EXPECT_TRUE(isSafePropertyList(plistText(repeated("<array>", 63) + repeated("</array>", 63))));
    EXPECT_FALSE(isSafePropertyList(plistText(repeated("<array>", 64) + repeated("</array>", 64))));
}

TEST(SafePropertyList, RefusesAHundredThousandLevels) {
    const std::string deep =
        plistText(repeated("<array>", 100'000) + repeated("</array>", 100'000));
    EXPECT_FALSE(isSafePropertyList(deep));
    EXPECT_FALSE(PropertyList::parse(deep));
    EXPECT_FALSE(PropertyList::parse(plistText(repeated("<dict><key>k</key>", 100'000))));
}

TEST(SafePropertyList, RefusesAttributes) {
    EXPECT_FALSE(isSafePropertyList(plistText(repeated("<array a=\"/>\">", 10))));
    EXPECT_FALSE(isSafePropertyList(plistText("<array a='b'>")));
}

TEST(SafePropertyList, IgnoresTagsInCommentsAndCdata) {
    EXPECT_TRUE(
        isSafePropertyList(plistText("<!-- " + repeated("<array>", 100) + " --><string><![CDATA[" +
                                     repeated("<array>", 100) + "]]></string>")));
}

TEST(SafePropertyList, RefusesAmbiguousDepth) {
    // Beginnings after which libplist may see levels that a simple scan does not.
    for (const std::string before :
         {"<!--><![CDATA[-->", "<!---><![CDATA[-->", "<!DOCTYPE plist [ > <!-- ]>", "<?x > <!-- ?>",
          "<?x \"?><!-- \" ?>", "<!DOCTYPE \"><!-- \">", "<plist a=\"><!-- \">",
          "<array></array \"><!-- \">", "<plist><array><array></array \"><!-- \">",
          "<plist><array a=\"><!-- \">", "<!DOCTYPE plist [<!ENTITY x '>'> \"<!--\" ]>"}) {
        const std::string levels = repeated("<array>", 100) + repeated("</array>", 100);
        EXPECT_FALSE(isSafePropertyList(before + levels)) << before;
        EXPECT_FALSE(isSafePropertyList(before + levels + "<!-- -->")) << before;
        EXPECT_FALSE(isSafePropertyList(before + levels + "<![CDATA[-->]]>")) << before;
    }
}

// libplist 2.2 adds the following elements to such a root.
TEST(SafePropertyList, SelfClosingRootIsRefusedOrHarmless) {
    for (const std::size_t levels : {std::size_t{64}, std::size_t{65}, std::size_t{100'000}}) {
        const auto list = PropertyList::parse("<array/>" + repeated("<array>", levels) +
                                              repeated("</array>", levels));
        EXPECT_TRUE(!list || list->xml().size() < 10'000) << levels;
        EXPECT_TRUE(!list || levels == 64) << levels;
    }
}

TEST(SafePropertyList, AcceptsWhiteSpaceBehindNames) {
    EXPECT_TRUE(isSafePropertyList("<array \t\r\n></array \t\r\n>"));
    EXPECT_TRUE(isSafePropertyList("<array><true\r\n/></array>"));
    EXPECT_FALSE(isSafePropertyList("<array><true a/></array>"));
}

TEST(SafePropertyList, RefusesUnclosedMarkup) {
    for (const std::string open : {"<!-- >", "<![CDATA[ >", "<?x >", "<!DOCTYPE plist", "<array"}) {
        EXPECT_FALSE(isSafePropertyList(plistText("<array/>") + open)) << open;
    }
}

// libplist 2.6 parses JSON, recursively.
TEST(SafePropertyList, RefusesJsonWithTagsInStrings) {
    EXPECT_FALSE(
        isSafePropertyList("[\"<a></a>\"," + repeated("[", 100'000) + repeated("]", 100'001)));
}

TEST(SafePropertyList, RefusesTextBeforeTheFirstTag) {
    EXPECT_FALSE(isSafePropertyList(""));
    EXPECT_FALSE(isSafePropertyList(" \n"));
    EXPECT_FALSE(isSafePropertyList("[[1]]"));
    EXPECT_FALSE(isSafePropertyList("text" + plistText("<array/>")));
    EXPECT_TRUE(isSafePropertyList(" \n" + plistText("<array/>")));
}

TEST(SafePropertyList, RefusesDefinitionsInTheDoctype) {
    const std::string begin = R"(<?xml version="1.0" encoding="UTF-8"?>)"
                              R"(<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" )"
                              R"("http://www.apple.com/DTDs/PropertyList-1.0.dtd")";
    const std::string end = R"(><plist version="1.0"><array><string>/a</string></array></plist>)";
    const auto list = PropertyList::parse(begin + end);
    ASSERT_TRUE(list);
    EXPECT_EQ(list->paths(), (Paths{"/a"}));
    EXPECT_FALSE(isSafePropertyList(begin + "[<!ENTITY a \"aa\">]" + end));
    EXPECT_FALSE(isSafePropertyList("<!ELEMENT plist ANY" + end));
}

TEST(SafePropertyList, RefusesABinaryListThatContainsItself) {
    EXPECT_FALSE(isSafePropertyList(binary({std::string("\xA1\x00", 2)})));
    EXPECT_FALSE(isSafePropertyList(binary({"\xA1\x01", std::string("\xA1\x00", 2)})));
}

TEST(SafePropertyList, RefusesExponentialExpansion) {
    // Each of forty arrays refers four times to the next one.
    std::vector<std::string> objects;
    for (int number = 1; number <= 40; ++number) {
        objects.push_back("\xA4" + std::string(4, static_cast<char>(number)));
    }
    objects.emplace_back(
        "\x51"
        "a");
    EXPECT_FALSE(isSafePropertyList(binary(objects)));
    EXPECT_FALSE(PropertyList::parse(binary(objects)));
}

/// A text or data object of `units`; `kind` is its marker.
std::string held(char kind, std::size_t units, std::size_t bytes) {
    return std::string(1, kind) + '\x11' + static_cast<char>(units >> 8U) +
           static_cast<char>(units & 0xFFU) + std::string(bytes, '\0');
}

TEST(SafePropertyList, BoundsRepeatedBytes) {
    // 2,000 times 1,000 bytes; 1,000 times is within the limit.
    for (const std::string& object :
         {held('\x4F', 1000, 1000), held('\x5F', 1000, 1000), held('\x6F', 500, 1000)}) {
        EXPECT_FALSE(isSafePropertyList(repeatedReference(2'000, object)));
        EXPECT_FALSE(PropertyList::parse(repeatedReference(2'000, object)));
        EXPECT_TRUE(isSafePropertyList(repeatedReference(1'000, object)));
    }
}

TEST(SafePropertyList, HasNoMoreValuesThanBytes) {
    // Containers that refer twenty times to the next one: 8,421 values, then 61.
    const std::string twenty = "\xAF\x10\x14";
    const std::string number = std::string("\x10\x01", 2);
    EXPECT_FALSE(isSafePropertyList(
        binary({twenty + std::string(20, '\x01'), twenty + std::string(20, '\x02'),
                twenty + std::string(20, '\x03'), number})));
    EXPECT_TRUE(isSafePropertyList(
        binary({twenty + std::string(20, '\x01'), "\xA2" + std::string(2, '\x02'), number})));
}

TEST(SafePropertyList, RefusesATextThatEndsOutside) {
    EXPECT_FALSE(isSafePropertyList(binary({"\xA1\x01", held('\x5F', 60'000, 10)})));
}

TEST(PropertyList, RefusesReferencesOutsideTheList) {
    EXPECT_FALSE(PropertyList::parse(binary({"\xA1\x07"})));
    EXPECT_FALSE(PropertyList::parse(binary({"\xD1\x01\x07", "\x51/"})));
    EXPECT_FALSE(PropertyList::parse(binary({"\xA2\x01\x02", "\xA1\x09", "\x51/"})));
    std::string manyObjects = binary({"\xA1\x01", "\x51/"});
    manyObjects[manyObjects.size() - 24] = '\x7F';
    EXPECT_FALSE(PropertyList::parse(manyObjects));
    std::string list = binary({"\xA1\x01",
                               "\x51"
                               "a"});
    for (std::size_t at = 8; at < list.size(); ++at) {
        std::string damaged = list;
        damaged[at] = '\xFF';
        // Must return.
        static_cast<void>(PropertyList::parse(damaged));
    }
    EXPECT_FALSE(isSafePropertyList(list.substr(0, 30)));
}

}  // namespace
}  // namespace tarvin
