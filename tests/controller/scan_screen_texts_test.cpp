#include "controller/scan_screen_texts.h"

#include <gtest/gtest.h>

namespace tarvin {
namespace {

TEST(ScanScreenTexts, SayWhatIsCollectedAndCompared) {
    EXPECT_EQ(ScanScreenTexts::collecting(), QStringLiteral("Collecting Files..."));
    EXPECT_EQ(ScanScreenTexts::collecting("/a/b.jpg"),
              QStringLiteral("Collecting Files: /a/b.jpg"));
    EXPECT_EQ(ScanScreenTexts::processing("/a/b.jpg"), QStringLiteral("Processing File: /a/b.jpg"));
    EXPECT_EQ(ScanScreenTexts::searching(), QStringLiteral("Searching for duplicate files..."));
    EXPECT_EQ(ScanScreenTexts::searchingTitle(), QStringLiteral("Searching for duplicate files"));
    EXPECT_EQ(ScanScreenTexts::noDuplicates(), QStringLiteral("No duplicates File found"));
}

TEST(ScanScreenTexts, KeepSignsOfAPathThatLookLikePlaceholders) {
    EXPECT_EQ(ScanScreenTexts::processing("/%1/%2"), QStringLiteral("Processing File: /%1/%2"));
}

TEST(ScanScreenTexts, ShowTheElapsedTime) {
    EXPECT_EQ(ScanScreenTexts::elapsed("00:03:42"), QStringLiteral("Elapsed Time: 00:03:42"));
    EXPECT_EQ(ScanScreenTexts::pause(), QStringLiteral("Pause"));
    EXPECT_EQ(ScanScreenTexts::resume(), QStringLiteral("Resume"));
}

}  // namespace
}  // namespace tarvin
