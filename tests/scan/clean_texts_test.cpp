#include "scan/texts.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

TEST(CleanTexts, OfMarks) {
    EXPECT_EQ(markedFilesText(0), "Marked Duplicate Files: 0");
    EXPECT_EQ(markedFilesText(18'446'744'073'709'551'615U),
              "Marked Duplicate Files: 18446744073709551615");
    EXPECT_EQ(markedSizeText(0), "Marked File Size: 0.00 KB");
    EXPECT_EQ(markedSizeText(1'050'000), "Marked File Size: 1.05 MB");
}

TEST(CleanTexts, OfTheLifetime) {
    EXPECT_EQ(cleanedSoFarText(0, 0), "Files cleaned so far: 0 (0.00 KB)");
    EXPECT_EQ(cleanedSoFarText(12, 1'050'000), "Files cleaned so far: 12 (1.05 MB)");
}

TEST(CleanTexts, OfTheDeletion) {
    EXPECT_EQ(duplicatesCleanedText(2), "Duplicates Cleaned: 2");
    EXPECT_EQ(spaceRegainedText(1'050'000), "Space Regained: 1.05 MB ");
}

TEST(CleanTexts, OfExceptions) {
    EXPECT_EQ(exceptionsAddedText(3), "\nSuccessfully added 3 files to exceptions.");
    EXPECT_EQ(exceptionsRemovedText(), "\nAll exceptions has been removed.");
}

}  // namespace
}  // namespace tarvin
