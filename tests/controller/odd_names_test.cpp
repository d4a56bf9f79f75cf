#include "controller/deletion_fixture.h"

#include <array>

namespace tarvin {
namespace {

struct OddName {
    const char* kind;
    const char* name;  ///< of the files, in bytes, without number and ending
    const char* text;  ///< as it is shown
};

void PrintTo(const OddName& name, std::ostream* out) {
    *out << name.kind;
}

/// Two files of such a name, through the whole window.
class OddNames : public DeletionFixture, public testing::WithParamInterface<OddName> {
 protected:
    void SetUp() override {
        for (const char* number : {"1", "2"}) {
            write(nameOf(number), "equal");
        }
        scanAndReview();
        select(0, 0);
    }

    [[nodiscard]] static std::string nameOf(const char* number) {
        return std::string(GetParam().name) + number + ".txt";
    }
};

TEST_P(OddNames, AreListedAndMarked) {
    EXPECT_EQ(fileText(0, ResultTable::nameText), std::string(GetParam().text) + "1.txt");
    clickFileBox(1);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 1");
    EXPECT_EQ(setOf(0, 0).files()[1]->filePath(), found(nameOf("2")));
    clickFileBox(0);
    EXPECT_EQ(information()[1], "All the files of same set cannot be selected");
}

TEST_P(OddNames, AreMovedToTheTrash) {
    clickFileBox(1);
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 1");
    EXPECT_TRUE(isThere(nameOf("1")));
    EXPECT_FALSE(isThere(nameOf("2")));
    EXPECT_EQ(platform.trash().moves(), (Lines{found(nameOf("2"))}));
}

TEST_P(OddNames, AreExcludedFromLaterScans) {
    clickFileBox(1);
    click("addEceptionBtn");
    click("excOKBtn");
    EXPECT_EQ(storedExceptions(), (Lines{found(nameOf("2"))}));
    click("scanInforOKBtn");
    scanAgain();
    EXPECT_EQ(modal().extensionCount(), 0U);
    // Also after reading the stored list.
    delegate.reset();
    scan();
    EXPECT_EQ(modal().extensionCount(), 0U);
    EXPECT_TRUE(isThere(nameOf("2")));
}

// A right-to-left name, a newline, a bidirectional override, and bytes that are not UTF-8.
constexpr std::array<OddName, 4> oddNames{{
    {"RightToLeft", "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d", "\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d"},
    {"LineBreak", "one\ntwo", "one\xef\xbf\xbdtwo"},
    {"Override", "x\xe2\x80\xaey", "x\xef\xbf\xbdy"},
    {"NotUtf8", "caf\xe9\xff", "caf\xef\xbf\xbd\xef\xbf\xbd"},
}};

INSTANTIATE_TEST_SUITE_P(Kinds, OddNames, testing::ValuesIn(oddNames),
                         [](const auto& name) { return std::string(name.param.kind); });

}  // namespace
}  // namespace tarvin
