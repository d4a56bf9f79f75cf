#include "controller/image_preview.h"

#include "controller/image_preview_fixture.h"
#include "controller/preview_program.h"
#include "support/file_content.h"
#include "support/image_bytes.h"
#include "support/sample_images.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QPoint>
#include <array>
#include <chrono>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

class ImagePreviewOf : public ImagePreviewFixture {};
class ImagePreviewRequests : public ImagePreviewFixture {};

TEST_F(ImagePreviewOf, HasTheProportionsOfTheImage) {
    EXPECT_EQ(previewOf(writeImage("wide.png", {4000, 3000}, "png")).size(), QSize(640, 480));
    EXPECT_EQ(measured(), QSize(4000, 3000));
    EXPECT_EQ(previewOf(writeImage("high.jpg", {300, 1280}, "jpg")).size(), QSize(150, 640));
    EXPECT_EQ(measured(), QSize(300, 1280));
    EXPECT_EQ(previewOf(writeImage("line.png", {4000, 1}, "png")).size(), QSize(640, 1));
}

TEST_F(ImagePreviewOf, DoesNotEnlargeImages) {
    EXPECT_EQ(previewOf(writeImage("small.png", {8, 4}, "png")).size(), QSize(8, 4));
    EXPECT_EQ(previewOf(writeImage("fits.png", {640, 480}, "png")).size(), QSize(640, 480));
}

TEST_F(ImagePreviewOf, ShowsAllCommonFormats) {
    for (const char* const format : {"png", "jpg", "webp", "tiff", "bmp", "ppm", "ico"}) {
        const QImage image = previewOf(writeImage("image", {100, 50}, format));
        EXPECT_EQ(image.size(), QSize(100, 50)) << format;
        EXPECT_TRUE(isNear(image.pixelColor(10, 25), Qt::red)) << format;
        EXPECT_TRUE(isNear(image.pixelColor(90, 25), Qt::blue)) << format;
        EXPECT_EQ(measured(), QSize(100, 50)) << format;
    }
}

/// Formats without a Qt plug-in on some systems.
TEST_F(ImagePreviewOf, ShowsWhatTheLibrariesOfTheSystemDecode) {
    for (const char* const name : {"wide.heic", "deep.heic", "wide.avif", "wide.jp2", "wide.j2k"}) {
        const QImage image = previewOf(sampleImage(name));
        EXPECT_EQ(image.size(), QSize(96, 48)) << name;
        EXPECT_TRUE(isNear(image.pixelColor(10, 25), Qt::red)) << name;
        EXPECT_TRUE(isNear(image.pixelColor(85, 25), Qt::blue)) << name;
        EXPECT_EQ(measured(), QSize(96, 48)) << name;
    }
}

TEST_F(ImagePreviewOf, FindsABrandAtTheEndOfTheFirstBox) {
    std::string bytes = imagebytes::contentOf(sampleImage("wide.heic"));
    const std::size_t end = static_cast<unsigned char>(bytes.at(3));
    ASSERT_EQ(bytes.substr(4, 8), "ftypheic");
    for (std::size_t brand = 8; brand < end; brand += 4) {
        bytes.replace(brand, 4, brand + 4 < end ? "none" : "heic");
    }
    EXPECT_EQ(previewOf(tree_.writeFile("last.heic", bytes)).size(), QSize(96, 48));
}

/// A comment at the place of the first box of a HEIF image.
TEST_F(ImagePreviewOf, ShowsAnotherFormatThatBeginsLikeAHeic) {
    const std::string path = tree_.writeFile("a.pbm", "P1\n#ftypheic\n2 1\n1 0\n");
    const QImage image = previewOf(path);
    ASSERT_EQ(image.size(), QSize(2, 1));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::black));
    EXPECT_EQ(image.pixelColor(1, 0), QColor(Qt::white));
}

TEST_F(ImagePreviewOf, AppliesTheOrientationOfAHeic) {
    const QImage image = previewOf(sampleImage("turned.heic"));
    ASSERT_EQ(image.size(), QSize(48, 96));
    EXPECT_EQ(measured(), QSize(48, 96));
    EXPECT_TRUE(isNear(image.pixelColor(24, 10), Qt::red));
    EXPECT_TRUE(isNear(image.pixelColor(24, 85), Qt::blue));
}

TEST_F(ImagePreviewOf, ShowsTheFirstImageOfAGif) {
    const std::string path = tree_.writeFile("a.gif", imagebytes::twoPixelGif());
    const QImage image = previewOf(path);
    ASSERT_EQ(image.size(), QSize(2, 1));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(1, 0), QColor(Qt::blue));
}

TEST_F(ImagePreviewOf, KeepsTransparency) {
    QImage image(4, 4, QImage::Format_ARGB32);
    image.fill(QColor(200, 100, 50, 128));
    const std::string path = tree_.pathOf("clear.png");
    ASSERT_TRUE(image.save(QString::fromStdString(path)));
    const QColor color = previewOf(path).pixelColor(1, 1);
    EXPECT_EQ(color.alpha(), 128);
    EXPECT_NEAR(color.red(), 200, 2);
}

TEST_F(ImagePreviewOf, AppliesTheOrientation) {
    // The camera was rotated: the left side in the file is the top.
    const std::string sideways = writeImage("plain.jpg", {400, 200}, "jpg");
    const std::string upright = tree_.writeFile(
        "turned.jpg",
        imagebytes::withOrientation(imagebytes::contentOf(sideways), imagebytes::turnedToTheRight));
    const QImage image = previewOf(upright);
    ASSERT_EQ(image.size(), QSize(200, 400));
    EXPECT_EQ(measured(), QSize(200, 400));
    EXPECT_TRUE(isNear(image.pixelColor(100, 50), Qt::red));
    EXPECT_TRUE(isNear(image.pixelColor(100, 350), Qt::blue));
}

TEST_F(ImagePreviewOf, AppliesTheOrientationOfAScaledImage) {
    const std::string sideways = writeImage("plain.jpg", {4000, 3000}, "jpg");
    const QImage image = previewOf(
        tree_.writeFile("turned.jpg", imagebytes::withOrientation(imagebytes::contentOf(sideways),
                                                                  imagebytes::turnedToTheRight)));
    EXPECT_EQ(image.size(), QSize(480, 640));
    EXPECT_EQ(measured(), QSize(3000, 4000));
}

/// The eight EXIF orientations of an image whose left half is red.
TEST_F(ImagePreviewOf, AppliesAllEightOrientations) {
    const std::string plain = imagebytes::contentOf(writeImage("plain.jpg", {80, 40}, "jpg"));
    constexpr std::array<QPoint, 8> red{QPoint{5, 20},  QPoint{75, 20}, QPoint{75, 20},
                                        QPoint{5, 20},  QPoint{20, 5},  QPoint{20, 5},
                                        QPoint{20, 75}, QPoint{20, 75}};
    for (int mark = 1; mark <= 8; ++mark) {
        const QImage image = previewOf(tree_.writeFile(
            "turned.jpg", imagebytes::withOrientation(plain, static_cast<char>(mark))));
        ASSERT_EQ(image.size(), mark < 5 ? QSize(80, 40) : QSize(40, 80)) << mark;
        const QPoint position = red.at(static_cast<std::size_t>(mark) - 1);
        const QPoint opposite(image.width() - 1 - position.x(), image.height() - 1 - position.y());
        EXPECT_TRUE(isNear(image.pixelColor(position), Qt::red)) << mark;
        EXPECT_TRUE(isNear(image.pixelColor(opposite), Qt::blue)) << mark;
    }
}

TEST_F(ImagePreviewOf, IgnoresTheThumbnailInTheFile) {
    const std::string image = imagebytes::contentOf(writeImage("image.jpg", {400, 300}, "jpg"));
    QImage green(160, 120, QImage::Format_RGB888);
    green.fill(Qt::green);
    ASSERT_TRUE(green.save(QString::fromStdString(tree_.pathOf("small.jpg"))));
    const std::string small = imagebytes::contentOf(tree_.pathOf("small.jpg"));
    const QImage shown =
        previewOf(tree_.writeFile("both.jpg", imagebytes::withThumbnail(image, small)));
    ASSERT_EQ(shown.size(), QSize(400, 300));
    EXPECT_TRUE(isNear(shown.pixelColor(20, 150), Qt::red));
    // The file also holds a thumbnail 32 pixels wide.
    EXPECT_EQ(previewOf(sampleImage("wide.heic")).size(), QSize(96, 48));
}

TEST_F(ImagePreviewOf, IsALineOfWhatIsVeryLong) {
    for (const char* const format : {"png", "jpg", "bmp", "tiff"}) {
        const QImage wide = previewOf(writeImage("wide", {20'000, 1}, format));
        EXPECT_EQ(wide.size(), QSize(640, 1)) << format;
        EXPECT_EQ(measured(), QSize(20'000, 1)) << format;
        EXPECT_TRUE(isNear(wide.pixelColor(100, 0), Qt::red)) << format;
        EXPECT_EQ(previewOf(writeImage("high", {1, 20'000}, format)).size(), QSize(1, 640))
            << format;
    }
}

TEST_F(ImagePreviewOf, FitsIntoItsFieldInItsProportions) {
    // Wider than the field, higher, and smaller: each fills the field in one direction.
    EXPECT_EQ(previewOf(writeImage("wide.png", {2000, 1000}, "png")).deviceIndependentSize(),
              QSizeF(252, 126));
    EXPECT_EQ(previewOf(writeImage("high.png", {1000, 2000}, "png")).deviceIndependentSize(),
              QSizeF(94.5, 189));
    EXPECT_EQ(previewOf(writeImage("small.png", {8, 6}, "png")).deviceIndependentSize(),
              QSizeF(252, 189));
}

TEST_F(ImagePreviewOf, HasARatioOfOneForAnEmptyField) {
    preview_.resizeImageAtPath(writeImage("a.png", {80, 60}, "png"), -2, -2);
    EXPECT_EQ(answer().deviceIndependentSize(), QSizeF(80, 60));
}

TEST_F(ImagePreviewOf, AcceptsNamesThatAreNotUtf8) {
    const std::string path = writeImage("a.png", {4, 4}, "png");
    for (const char* const name : {"M\xFC\xFF.png", "two\nlines.png", "-h", "%s %1"}) {
        const std::string odd = tree_.pathOf(name);
        std::filesystem::rename(path, odd);
        EXPECT_EQ(previewOf(odd).size(), QSize(4, 4)) << name;
        std::filesystem::rename(odd, path);
    }
}

TEST_F(ImagePreviewOf, IsNoneOfOtherFiles) {
    EXPECT_TRUE(previewOf(tree_.writeFile("text.png", "no image")).isNull());
    EXPECT_TRUE(previewOf(tree_.writeFile("empty.png")).isNull());
    EXPECT_TRUE(previewOf(tree_.pathOf("gone.png")).isNull());
    EXPECT_TRUE(previewOf(tree_.makeFolder("folder.png")).isNull());
    EXPECT_TRUE(previewOf("").isNull());
    EXPECT_EQ(measured_.size(), 0);
}

TEST_F(ImagePreviewOf, NeverBlocksOnAPipeOrSocket) {
    EXPECT_TRUE(previewOf(tree_.makePipe("pipe.png")).isNull());
    EXPECT_TRUE(previewOf(tree_.makeSocket("socket.png")).isNull());
    EXPECT_TRUE(previewOf("/dev/zero").isNull());
}

TEST_F(ImagePreviewRequests, ReadTheFileAgainEachTime) {
    QImage image(4, 4, QImage::Format_RGB888);
    image.fill(Qt::red);
    const std::string path = tree_.pathOf("a.bmp");
    ASSERT_TRUE(image.save(QString::fromStdString(path)));
    EXPECT_EQ(previewOf(path).pixelColor(1, 1), QColor(Qt::red));
    // Same size and date: only the contents differ.
    const auto size = std::filesystem::file_size(path);
    const auto date = std::filesystem::last_write_time(path);
    image.fill(Qt::blue);
    ASSERT_TRUE(image.save(QString::fromStdString(path)));
    std::filesystem::last_write_time(path, date);
    ASSERT_EQ(std::filesystem::file_size(path), size);
    EXPECT_EQ(previewOf(path).pixelColor(1, 1), QColor(Qt::blue));
    std::filesystem::remove(path);
    EXPECT_TRUE(previewOf(path).isNull());
}

TEST_F(ImagePreviewRequests, AreSupersededByTheLast) {
    std::vector<std::string> paths;
    for (int number = 1; number <= 100; ++number) {
        paths.push_back(writeImage("image" + std::to_string(number) + ".png", {number, 1}, "png"));
    }
    for (const std::string& path : paths) {
        ask(path);
        EXPECT_LE(childCount(), 1);
    }
    EXPECT_EQ(answer().size(), QSize(100, 1));
    EXPECT_EQ(measured(), QSize(100, 1));
    EXPECT_EQ(nothing_.size(), 0);
    EXPECT_EQ(childCount(), 0);
}

TEST_F(ImagePreviewRequests, AreHandledBetweenEvents) {
    std::vector<std::string> paths;
    for (int number = 1; number <= 20; ++number) {
        paths.push_back(writeImage("image" + std::to_string(number) + ".png", {number, 1}, "png"));
    }
    for (const std::string& path : paths) {
        ask(path);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    ASSERT_TRUE(waitUntil([this] {
        QCoreApplication::processEvents();
        return !ready_.isEmpty() && ready_.last()[0].value<QImage>().width() == 20;
    }));
    EXPECT_EQ(childCount(), 0);
}

TEST_F(ImagePreviewRequests, SupersedeASlowOne) {
    ask(tree_.writeFile("huge.png", imagebytes::blackPng(50'000, 50'000, 24)));
    ASSERT_TRUE(measured_.wait(20'000));
    const auto begin = std::chrono::steady_clock::now();
    ask(writeImage("small.png", {4, 4}, "png"));
    EXPECT_EQ(answer().size(), QSize(4, 4));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
    EXPECT_EQ(nothing_.size(), 0);
    EXPECT_EQ(childCount(), 0);
}

TEST_F(ImagePreviewRequests, CanBeCancelled) {
    ask(writeImage("small.png", {4, 4}, "png"));
    preview_.cancel();
    ASSERT_TRUE(waitUntil([] {
        QCoreApplication::processEvents();
        return childCount() == 0;
    }));
    QCoreApplication::processEvents();
    EXPECT_EQ(ready_.size() + nothing_.size() + measured_.size(), 0);
    preview_.cancel();
    EXPECT_EQ(previewOf(tree_.pathOf("small.png")).size(), QSize(4, 4));
}

TEST_F(ImagePreviewRequests, LeaveNoProcessBehind) {
    const std::string huge = tree_.writeFile("huge.png", imagebytes::blackPng(50'000, 50'000, 24));
    {
        ImagePreview preview(previewProgram());
        QSignalSpy measured(&preview, &ImagePreview::measured);
        preview.resizeImageAtPath(huge, 252, 189);
        ASSERT_TRUE(measured.wait(20'000));
        EXPECT_EQ(childCount(), 1);
    }
    EXPECT_EQ(childCount(), 0);
    ImagePreview(previewProgram()).resizeImageAtPath(huge, 252, 189);
    EXPECT_EQ(childCount(), 0);
}

TEST_F(ImagePreviewRequests, TimeOut) {
    ImagePreview preview(previewProgram(), 300ms);
    QSignalSpy nothing(&preview, &ImagePreview::nothing);
    const std::string path = tree_.writeFile("huge.png", imagebytes::blackPng(50'000, 50'000, 24));
    const auto begin = std::chrono::steady_clock::now();
    preview.resizeImageAtPath(path, 252, 189);
    EXPECT_TRUE(nothing.wait(20'000));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
}

TEST_F(ImagePreviewRequests, FailWithoutAProgram) {
    for (const QString& missing :
         {QString(), QStringLiteral("/no/such/program"), QString::fromStdString(tree_.path())}) {
        ImagePreview preview(missing);
        QSignalSpy nothing(&preview, &ImagePreview::nothing);
        preview.resizeImageAtPath("/a.png", 252, 189);
        EXPECT_TRUE(nothing.isEmpty());
        EXPECT_TRUE(nothing.wait(20'000));
        preview.resizeImageAtPath("/a.png", 252, 189);
        preview.resizeImageAtPath("/b.png", 252, 189);
        EXPECT_TRUE(nothing.wait(20'000));
        EXPECT_EQ(nothing.size(), 2);
    }
}

TEST_F(ImagePreviewRequests, ReportNoSizeAfterACancel) {
    const auto exists = [this](const char* name) {
        return std::filesystem::exists(tree_.pathOf(name));
    };
    // Writes the size 2 by 1 once it may.
    const std::string path =
        tree_.writeFile("program", "#!/bin/sh\ncd '" + tree_.path() + "'\n: >started\n" +
                                       "while [ ! -e may-write ]; do sleep 0.01; done\n" +
                                       "printf '\\002\\000\\000\\000\\001\\000\\000\\000'\n" +
                                       ": >written\nexec sleep 3600\n");
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    ImagePreview preview(QString::fromStdString(path), timeLimit);
    QSignalSpy measured(&preview, &ImagePreview::measured);
    preview.resizeImageAtPath("/a.png", 252, 189);
    ASSERT_TRUE(QTest::qWaitFor([&exists] { return exists("started"); }, 20'000));
    tree_.writeFile("may-write", "");
    // No events are processed, so that the size is still unread.
    ASSERT_TRUE(waitUntil([&exists] { return exists("written"); }));
    preview.cancel();
    ASSERT_TRUE(QTest::qWaitFor([] { return childCount() == 0; }, 20'000));
    EXPECT_EQ(measured.size(), 0);
}

TEST_F(ImagePreviewRequests, FailWithAnotherProgram) {
    const auto answerOf = [this](const std::string& script) {
        const std::string path = tree_.writeFile("program", "#!/bin/sh\n" + script);
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        ImagePreview preview(QString::fromStdString(path));
        QSignalSpy nothing(&preview, &ImagePreview::nothing);
        QSignalSpy measured(&preview, &ImagePreview::measured);
        preview.resizeImageAtPath("/a.png", 252, 189);
        EXPECT_TRUE(nothing.wait(20'000)) << script;
        EXPECT_EQ(measured.size(), 0) << script;
    };
    answerOf("kill -SEGV $$\n");
    answerOf("exec cat /dev/zero\n");  // not a size, and endless
    answerOf("echo 0\n");
}

TEST_F(ImagePreviewRequests, GiveTheProgramASecondMoreThanTheirTimeLimit) {
    const std::string given = tree_.pathOf("given");
    const std::string path = tree_.writeFile("program", "#!/bin/sh\necho \"$@\" >" + given + '\n');
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    for (const auto& [limit, text] : {std::pair(10'000ms, "11\n"), std::pair(20'500ms, "22\n")}) {
        ImagePreview preview(QString::fromStdString(path), limit);
        QSignalSpy nothing(&preview, &ImagePreview::nothing);
        preview.resizeImageAtPath("/a.png", 252, 189);
        EXPECT_TRUE(nothing.wait(20'000));
        EXPECT_EQ(contentOf(given), text);
    }
}

}  // namespace
}  // namespace tarvin
