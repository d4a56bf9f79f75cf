#include "controller/location_buttons.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <vector>

namespace tarvin {

static std::ostream& operator<<(std::ostream& out, const LocationButtons& buttons) {
    return out << "mark " << buttons.markAllExactBtn << ", unmark " << buttons.unmarkAllExactBtn
               << ", remove " << buttons.removeFromListExactBtn << ", scan "
               << buttons.findDuplicateExact << " at " << buttons.findDuplicateExactAlpha
               << ", title " << buttons.givesScanTitle;
}

namespace {

struct Rows {
    std::size_t checkedFolders = 0;
    std::size_t checkedFiles = 0;
    std::size_t uncheckedFolders = 0;
    std::size_t uncheckedFiles = 0;
};

LocationButtons buttonsOf(const Rows& counts) {
    std::vector<LocationRow> rows;
    const auto add = [&rows](std::size_t count, bool state, bool folder) {
        LocationRow row;
        row.name = "/x";
        row.state = state;
        row.folder = folder;
        rows.insert(rows.end(), count, row);
    };
    add(counts.checkedFolders, true, true);
    add(counts.checkedFiles, true, false);
    add(counts.uncheckedFolders, false, true);
    add(counts.uncheckedFiles, false, false);
    return reflectMarkStatusForRemoveButton(rows);
}

LocationButtons canScan(bool mark, bool unmark) {
    return {mark, unmark, unmark, true, 1.0, false};
}

LocationButtons cannotScan(bool mark, bool unmark) {
    return {mark, unmark, unmark, false, 0.6, true};
}

TEST(LocationButtons, AreAllDisabledForAnEmptyList) {
    // The title of the Scan button is not set again.
    EXPECT_EQ(buttonsOf({}), (LocationButtons{false, false, false, false, 0.6, false}));
}

TEST(LocationButtons, OfferOnlyToMarkIfNothingIsChecked) {
    EXPECT_EQ(buttonsOf({.uncheckedFolders = 3}), cannotScan(true, false));
    EXPECT_EQ(buttonsOf({.uncheckedFolders = 1, .uncheckedFiles = 1}), cannotScan(true, false));
}

TEST(LocationButtons, OfferNothingMoreToMarkIfAllIsChecked) {
    EXPECT_EQ(buttonsOf({.checkedFolders = 2}), canScan(false, true));
    EXPECT_EQ(buttonsOf({.checkedFolders = 1, .checkedFiles = 1}), canScan(false, true));
}

TEST(LocationButtons, OfferBothIfSomeAreChecked) {
    EXPECT_EQ(buttonsOf({.checkedFolders = 1, .uncheckedFolders = 1}), canScan(true, true));
}

TEST(LocationButtons, OfferAScanOfOneFolder) {
    EXPECT_TRUE(buttonsOf({.checkedFolders = 1, .uncheckedFiles = 5}).findDuplicateExact);
}

TEST(LocationButtons, OfferNoScanOfASingleFile) {
    EXPECT_EQ(buttonsOf({.checkedFiles = 1}), cannotScan(false, true));
    EXPECT_EQ(buttonsOf({.checkedFiles = 1, .uncheckedFolders = 4}), cannotScan(true, true));
}

TEST(LocationButtons, OfferAScanOfTwoFiles) {
    EXPECT_EQ(buttonsOf({.checkedFiles = 2}), canScan(false, true));
}

TEST(LocationButtons, CountRightUpToTheLargestNumber) {
    EXPECT_EQ(buttonsOf({.checkedFolders = 32'767}), canScan(false, true));
    EXPECT_EQ(buttonsOf({.checkedFiles = 32'767}), canScan(false, true));
    EXPECT_EQ(buttonsOf({.uncheckedFiles = 32'767}), cannotScan(true, false));
}

TEST(LocationButtons, CountWrongBeyondTheLargestNumber) {
    // 32,768 wraps to a negative number.
    EXPECT_EQ(buttonsOf({.checkedFolders = 32'768}), cannotScan(false, true));
    EXPECT_EQ(buttonsOf({.checkedFiles = 32'768}), cannotScan(false, true));
    EXPECT_EQ(buttonsOf({.checkedFolders = 32'768, .checkedFiles = 2}), canScan(false, true));
}

TEST(LocationButtons, CountTwiceThatNumberAsZero) {
    EXPECT_EQ(buttonsOf({.checkedFolders = 65'536}), cannotScan(false, true));
    EXPECT_EQ(buttonsOf({.checkedFolders = 65'537}), canScan(false, true));
    EXPECT_EQ(buttonsOf({.checkedFiles = 65'538}), canScan(false, true));
    // 65,536 wraps to 0, so no row counts as all.
    EXPECT_EQ(buttonsOf({.uncheckedFolders = 65'536}), cannotScan(false, true));
    // The number of unchecked rows equals that of all rows, although one is checked.
    EXPECT_EQ(buttonsOf({.checkedFolders = 65'536, .uncheckedFolders = 1}),
              cannotScan(true, false));
}

}  // namespace
}  // namespace tarvin
