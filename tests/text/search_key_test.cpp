#include "text/search_key.h"

#include <gtest/gtest.h>

#include <string_view>

namespace tarvin {
namespace {

TEST(SearchKey, DisregardsCase) {
    EXPECT_EQ(searchKey("IMG_1987.JPG /[Z]@`{"), "img_1987.jpg /[z]@`{");
    EXPECT_EQ(searchKey("ЖЯ"), "жя");
    EXPECT_EQ(searchKey("Straße"), "strasse");
}

TEST(SearchKey, DisregardsAccents) {
    EXPECT_EQ(searchKey("Übergrößen Ångström café"), "ubergrossen angstrom cafe");
    EXPECT_EQ(searchKey("cafe\u0301"), "cafe");
    EXPECT_EQ(searchKey("ή"), "η");
}

TEST(SearchKey, ReplacesCompatibleCharacters) {
    EXPECT_EQ(searchKey("ﬁle ＡＢ"), "file ab");
}

TEST(SearchKey, KeepsOtherScripts) {
    EXPECT_EQ(searchKey("写真 日本"), "写真 日本");
    EXPECT_EQ(searchKey(""), "");
}

TEST(SearchKey, ReplacesBytesThatAreNotUtf8) {
    EXPECT_EQ(searchKey("A\xff\xc3"), "a\ufffd\ufffd");
}

}  // namespace
}  // namespace tarvin
