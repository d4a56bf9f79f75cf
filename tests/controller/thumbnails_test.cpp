#include "controller/thumbnails.h"

#include "controller/preview_program.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QSignalSpy>
#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace tarvin {
namespace {

class ThumbnailsTest : public testing::Test {
 protected:
    [[nodiscard]] std::string writeImage(const std::string& name, QSize size,
                                         const char* format = "png") {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        std::string path = folder.pathOf(name);
        EXPECT_TRUE(image.save(QString::fromStdString(path), format));
        return path;
    }
    /// Waits for the thumbnail; empty if there is none.
    [[nodiscard]] QSize sizeOf(const std::string& path) {
        EXPECT_TRUE(thumbnails.of(path).isNull());
        EXPECT_TRUE(ready.wait(20000));
        return thumbnails.of(path).size();
    }
    [[nodiscard]] std::vector<std::string> arrived() const {
        std::vector<std::string> paths;
        for (const QList<QVariant>& signal : ready) {
            paths.push_back(signal[0].toByteArray().toStdString());
        }
        return paths;
    }
    void waitFor(std::size_t count) {
        while (arrived().size() < count) {
            ASSERT_TRUE(ready.wait(20000));
        }
    }

    TemporaryFolder folder;
    Thumbnails thumbnails{{80, 80}, previewProgram()};
    QSignalSpy ready{&thumbnails, &Thumbnails::ready};
};

TEST_F(ThumbnailsTest, FitIntoTheirSizeInTheirProportions) {
    EXPECT_EQ(sizeOf(writeImage("wide.png", {400, 100})), QSize(80, 20));
    EXPECT_EQ(sizeOf(writeImage("high.jpg", {100, 400}, "jpg")), QSize(20, 80));
    EXPECT_EQ(sizeOf(writeImage("line.png", {20'000, 1})), QSize(80, 1));
}

TEST_F(ThumbnailsTest, AreNotEnlarged) {
    const std::string path = writeImage("small.png", {8, 4});
    EXPECT_EQ(sizeOf(path), QSize(8, 4));
    EXPECT_EQ(thumbnails.of(path).deviceIndependentSize(), QSizeF(8, 4));
}

TEST_F(ThumbnailsTest, AreNoneOfOtherFiles) {
    EXPECT_TRUE(sizeOf(folder.writeFile("text.jpg", "no image")).isEmpty());
    EXPECT_TRUE(sizeOf(folder.writeFile("empty.png", "")).isEmpty());
    EXPECT_TRUE(sizeOf(folder.pathOf("gone.png")).isEmpty());
    EXPECT_TRUE(sizeOf(folder.makeFolder("folder.png")).isEmpty());
}

TEST_F(ThumbnailsTest, AreNoneOfAnImageThatBreaksOffInItsHeader) {
    const std::string whole = writeImage("whole.png", {400, 400});
    const std::string damaged = folder.writeFile("damaged.png", "\x89PNG\r\n\x1a\n\0\0\0\rIHDR");
    EXPECT_TRUE(sizeOf(damaged).isEmpty());
    EXPECT_FALSE(sizeOf(whole).isEmpty());
}

TEST_F(ThumbnailsTest, KeepNamesThatAreNotText) {
    const std::string path = writeImage("a.png", {4, 4});
    const std::string odd = folder.pathOf("M\xFC.png");
    std::filesystem::rename(path, odd);
    EXPECT_EQ(sizeOf(odd), QSize(4, 4));
}

TEST_F(ThumbnailsTest, ArriveLaterAndAreKept) {
    const std::string path = writeImage("a.png", {400, 400});
    EXPECT_TRUE(thumbnails.of(path).isNull());
    EXPECT_TRUE(thumbnails.of(path).isNull());
    waitFor(1);
    EXPECT_EQ(arrived(), std::vector<std::string>{path});
    std::filesystem::remove(path);
    EXPECT_EQ(thumbnails.of(path).size(), QSize(80, 80));
}

TEST_F(ThumbnailsTest, AreNotRetried) {
    const std::string path = folder.writeFile("a.png", "no image");
    EXPECT_TRUE(sizeOf(path).isEmpty());
    // Later requests are ready later.
    EXPECT_FALSE(sizeOf(writeImage("b.png", {4, 4})).isEmpty());
    EXPECT_EQ(arrived().size(), 2U);
}

TEST_F(ThumbnailsTest, OfTheFileAskedForLastIsMadeFirst) {
    const std::vector<std::string> paths{writeImage("a.png", {4, 4}), writeImage("b.png", {4, 4}),
                                         writeImage("c.png", {4, 4})};
    for (const std::string& path : paths) {
        EXPECT_TRUE(thumbnails.of(path).isNull());
    }
    waitFor(3);
    // The first was in progress when the others were requested.
    EXPECT_EQ(arrived(), (std::vector<std::string>{paths[0], paths[2], paths[1]}));
}

TEST_F(ThumbnailsTest, DropTheOldestOfTooManyRequests) {
    const std::string inHand = writeImage("first.png", {4, 4});
    EXPECT_TRUE(thumbnails.of(inHand).isNull());
    std::vector<std::string> paths;
    for (int number = 0; number <= Thumbnails::maxWaiting; ++number) {
        paths.push_back(folder.pathOf(std::to_string(number)));
        EXPECT_TRUE(thumbnails.of(paths.back()).isNull());
    }
    waitFor(1 + Thumbnails::maxWaiting);
    const std::vector<std::string> all = arrived();
    EXPECT_EQ(all.front(), inHand);
    EXPECT_EQ(all.back(), paths[1]);
    EXPECT_EQ(std::count(all.begin(), all.end(), paths[0]), 0);
}

}  // namespace
}  // namespace tarvin
