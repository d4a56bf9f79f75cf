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

TEST(ScanScreenTexts, ShowTheBytesCompared) {
    EXPECT_EQ(ScanScreenTexts::compared(12'400'000'000, 80'100'000'000),
              QStringLiteral("12.4 GB of 80.1 GB compared"));
}

TEST(ScanScreenTexts, ShowTheTimeLeftWithoutSeconds) {
    const auto text = [](int seconds) {
        return ScanScreenTexts::timeLeft(std::chrono::seconds(seconds)).toStdString();
    };
    EXPECT_EQ(text(0), "less than a minute left");
    EXPECT_EQ(text(59), "less than a minute left");
    EXPECT_EQ(text(60), "about 1 minute left");
    EXPECT_EQ(text(89), "about 1 minute left");
    EXPECT_EQ(text(90), "about 2 minutes left");
    EXPECT_EQ(text(149), "about 2 minutes left");
    EXPECT_EQ(text(151), "about 3 minutes left");
    EXPECT_EQ(text(89 * 60), "about 89 minutes left");
    EXPECT_EQ(text(90 * 60), "about 2 hours left");
    EXPECT_EQ(text(149 * 60), "about 2 hours left");
    EXPECT_EQ(text(150 * 60), "about 3 hours left");
    EXPECT_EQ(text(99 * 3600), "about 99 hours left");
}

TEST(ScanScreenTexts, NameTheStates) {
    EXPECT_EQ(ScanScreenTexts::paused(), QStringLiteral("Paused"));
    EXPECT_EQ(ScanScreenTexts::stopping(), QStringLiteral("Stopping…"));
    EXPECT_EQ(ScanScreenTexts::waitingForCurrentFile(),
              QStringLiteral("Waiting for the file in hand."));
}

}  // namespace
}  // namespace tarvin
