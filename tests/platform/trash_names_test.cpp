#include "platform/linux/trash_names.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

TEST(TrashName, OfTheFirstTryIsTheFileName) {
    for (const std::string name : {"a.txt", ".bashrc", "....", "a", "a.", "x y.tar.gz"}) {
        EXPECT_EQ(nameInTrash(name, 1, 245), name);
    }
}

TEST(TrashName, OfLaterTriesHasTheNumberBeforeTheExtension) {
    EXPECT_EQ(nameInTrash("a.txt", 2, 245), "a.2.txt");
    EXPECT_EQ(nameInTrash("x y.tar.gz", 17, 245), "x y.tar.17.gz");
}

TEST(TrashName, WithoutExtensionEndsWithTheNumber) {
    EXPECT_EQ(nameInTrash("a", 2, 245), "a.2");
    EXPECT_EQ(nameInTrash("a.", 2, 245), "a..2");
    EXPECT_EQ(nameInTrash(".bashrc", 2, 245), ".bashrc.2");
    EXPECT_EQ(nameInTrash("....", 2, 245), ".....2");
    EXPECT_EQ(nameInTrash("..x", 2, 245), "..x.2");
}

TEST(TrashName, IsShortenedBeforeTheExtension) {
    EXPECT_EQ(nameInTrash(std::string(251, 'a') + ".txt", 1, 245), std::string(241, 'a') + ".txt");
    EXPECT_EQ(nameInTrash(std::string(251, 'a') + ".txt", 12, 245),
              std::string(238, 'a') + ".12.txt");
    EXPECT_EQ(nameInTrash(std::string(255, 'a'), 1, 245), std::string(245, 'a'));
    EXPECT_EQ(nameInTrash(std::string(241, 'a') + ".txt", 1, 245), std::string(241, 'a') + ".txt");
}

TEST(TrashName, TreatsALongExtensionAsPartOfTheName) {
    EXPECT_EQ(nameInTrash("a." + std::string(253, 'b'), 1, 245), "a." + std::string(243, 'b'));
    EXPECT_EQ(nameInTrash("." + std::string(254, 'b'), 3, 245), '.' + std::string(242, 'b') + ".3");
}

TEST(TrashName, IsShortenedAtACharacterBoundary) {
    // Characters of two, three and four bytes; the limit is inside the last one.
    EXPECT_EQ(nameInTrash(std::string(244, 'a') + "\xC3\xA4zzz", 1, 245), std::string(244, 'a'));
    EXPECT_EQ(nameInTrash(std::string(243, 'a') + "\xE2\x82\xACzzz", 1, 245),
              std::string(243, 'a'));
    EXPECT_EQ(nameInTrash(std::string(242, 'a') + "\xF0\x9F\x98\x80zzz", 1, 245),
              std::string(242, 'a'));
    EXPECT_EQ(nameInTrash(std::string(243, 'a') + "\xC3\xA4zzz", 1, 245),
              std::string(243, 'a') + "\xC3\xA4");
}

TEST(TrashName, ThatIsNotUtf8IsShortenedAtAByte) {
    EXPECT_EQ(nameInTrash(std::string(255, '\xFF'), 1, 245), std::string(245, '\xFF'));
    EXPECT_EQ(nameInTrash(std::string(255, '\x80'), 1, 245), std::string(245, '\x80'));
    // A lead byte without continuation bytes.
    EXPECT_EQ(nameInTrash(std::string(244, 'a') + "\xE9zzzz", 1, 245),
              std::string(244, 'a') + '\xE9');
}

TEST(TrashName, IsRecognised) {
    const std::string longName = std::string(300, 'n') + ".jpg";
    for (const std::string& name : {std::string("a.jpg"), std::string("a.2.jpg"),
                                    std::string("1.2"), std::string("..."), longName}) {
        for (const std::uint64_t number : {1U, 2U, 10U, 1'000'000U}) {
            EXPECT_TRUE(isNameInTrashOf(name, nameInTrash(name, number, 245), 245)) << name;
        }
        for (const char* other : {"", "a", "b.jpg", "a.x.jpg", "a.2", "a.2x.jpg", "x.a.2.jpg",
                                  "a.99999999999999999999999.jpg"}) {
            EXPECT_FALSE(isNameInTrashOf(name, other, 245)) << name << ' ' << other;
        }
    }
}

TEST(TrashInfo, PercentEncodesThePath) {
    EXPECT_EQ(percentEncoded("/azAZ09-_.!~*'()"), "/azAZ09-_.!~*'()");
    EXPECT_EQ(percentEncoded("a b%\n\xFF\"#;[]"), "a%20b%25%0A%FF%22%23%3B%5B%5D");
    EXPECT_EQ(percentEncoded("$&+,:=?@\x7F"), "%24%26%2B%2C%3A%3D%3F%40%7F");
    EXPECT_EQ(percentEncoded("caf\u00E9"), "caf%C3%A9");
}

TEST(TrashInfo, HasPathAndDate) {
    EXPECT_EQ(trashInfoText("/a b", "2024-02-29T23:59:59"),
              "[Trash Info]\nPath=/a%20b\nDeletionDate=2024-02-29T23:59:59\n");
}

TEST(TrashInfo, ReturnsItsPathIfComplete) {
    EXPECT_EQ(trashInfoPath(trashInfoText("/a b", "2024-02-29T23:59:59")), "/a%20b");
    EXPECT_EQ(trashInfoPath("[Trash Info]\nPath=\n"), "");
    for (const char* text : {"", "Path=/a\n", "[Trash Info]\n", "[Trash Info]\nPath=/a",
                             "[Trash Info]\nPath=/a\nDeletionDate=", "x[Trash Info]\nPath=/a\n"}) {
        EXPECT_FALSE(trashInfoPath(text)) << text;
    }
}

TEST(TrashNumbers, ContinueAfterTheLastOne) {
    TrashNumbers numbers;
    EXPECT_EQ(numbers.firstFor("a"), 1U);
    numbers.take("a", 2);
    EXPECT_EQ(numbers.firstFor("a"), 3U);
    EXPECT_EQ(numbers.firstFor("b"), 1U);
}

TEST(TrashNumbers, AreBoundedInMemory) {
    TrashNumbers numbers;
    for (int each = 0; each < 10'001; ++each) {
        numbers.take(std::to_string(each), 2);
    }
    EXPECT_EQ(numbers.firstFor("0"), 1U);
    EXPECT_EQ(numbers.firstFor("10000"), 3U);
}

}  // namespace
}  // namespace tarvin
