#include "controller/image_preview.h"
#include "controller/image_preview_fixture.h"
#include "controller/preview_memory.h"
#include "controller/preview_program.h"
#include "support/image_bytes.h"
#include "support/sample_images.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QProcess>
#include <QSignalSpy>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

class ImagePreviewOfHarm : public ImagePreviewFixture {};

TEST_F(ImagePreviewOfHarm, ShowsWhatIsLeftOfATruncatedJpegOrNothing) {
    const std::string whole = imagebytes::contentOf(writeImage("whole.jpg", {800, 600}, "jpg"));
    for (const std::size_t part : {std::size_t{1}, whole.size() / 2, whole.size() - 2}) {
        const QImage image = previewOf(tree_.writeFile("part.jpg", whole.substr(0, part)));
        EXPECT_TRUE(image.isNull() || image.size() == QSize(640, 480)) << part;
    }
    // The header holds the full size.
    EXPECT_EQ(measured(), QSize(800, 600));
}

TEST_F(ImagePreviewOfHarm, IsMeasuredThoughItCannotBeDecoded) {
    EXPECT_TRUE(
        previewOf(tree_.writeFile("head.png", imagebytes::pngHeader(4000, 3000) +
                                                  imagebytes::pngChunk("IDAT", "no pixels")))
            .isNull());
    EXPECT_EQ(measured(), QSize(4000, 3000));
}

/// Files with an impossibly large size in one field of their header.
TEST_F(ImagePreviewOfHarm, IsNoneOfWhatClaimsTwoToThe31stPixels) {
    constexpr std::uint32_t largest = 0x7FFFFFFF;
    const auto claiming = [](const std::string& name, const std::string& before) {
        std::string bytes = imagebytes::contentOf(sampleImage(name));
        const std::size_t at = bytes.find(before);
        EXPECT_NE(at, std::string::npos) << name;
        return bytes.replace(at, before.size(),
                             imagebytes::bigEndian(largest) + imagebytes::bigEndian(largest));
    };
    const std::string size = imagebytes::bigEndian(96) + imagebytes::bigEndian(48);
    const std::string turned = imagebytes::bigEndian(48) + imagebytes::bigEndian(96);
    const std::vector<std::string> paths{
        tree_.writeFile("png", imagebytes::pngHeader(largest, largest) +
                                   imagebytes::pngChunk("IDAT", "no pixels")),
        tree_.writeFile(
            "row", imagebytes::pngHeader(largest, 1) + imagebytes::pngChunk("IDAT", "no pixels")),
        tree_.writeFile("bmp", imagebytes::bmpHeader(largest, largest)),
        tree_.writeFile("bmp46341", imagebytes::bmpHeader(46'341, 46'341)),
        tree_.writeFile("tiff", imagebytes::flatTiff(3, 3, imagebytes::TiffColors::light, 3, "abc")
                                    .replace(18, 4, imagebytes::littleEndian(largest))
                                    .replace(30, 4, imagebytes::littleEndian(largest))),
        tree_.writeFile("jpeg",
                        imagebytes::progressiveJpeg(8, 8).replace(76, 4, "\xff\xff\xff\xff")),
        tree_.writeFile("ppm", "P6 2147483647 2147483647 255\nno pixels"),
        tree_.writeFile("heic", claiming("wide.heic", size)),
        tree_.writeFile("avif", claiming("wide.avif", size)),
        tree_.writeFile("jp2", claiming("wide.jp2", turned)),
        tree_.writeFile("j2k", claiming("wide.j2k", size)),
    };
    for (const std::string& path : paths) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_TRUE(previewOf(path).isNull()) << path;
        EXPECT_LT(std::chrono::steady_clock::now() - start, 10s) << path;
        EXPECT_EQ(childCount(), 0) << path;
    }
}

TEST_F(ImagePreviewOfHarm, IsNoneOfTruncatedFiles) {
    for (const char* const name :
         {"wide.heic", "turned.heic", "wide.avif", "wide.jp2", "wide.j2k"}) {
        const std::string whole = imagebytes::contentOf(sampleImage(name));
        for (std::size_t length = 0; length < whole.size(); length += 23) {
            const QImage image = previewOf(tree_.writeFile("part", whole.substr(0, length)));
            EXPECT_TRUE(image.isNull() || image.width() <= 96) << name << ' ' << length;
        }
        EXPECT_EQ(childCount(), 0) << name;
    }
}

TEST_F(ImagePreviewOfHarm, IsWithinItsMemory) {
    const std::vector<std::string> paths{
        // 300 MB once decoded as bits, and 7.5 GB as bytes, which are read in bands.
        tree_.writeFile("bits.png", imagebytes::blackPng(50'000, 50'000, 1)),
        tree_.writeFile("bytes.png", imagebytes::blackPng(50'000, 50'000, 24)),
        tree_.writeFile("huge.bmp", imagebytes::bmpHeader(30'000, 30'000)),
        // For each format one image just within the limit, and others beyond it.
        tree_.writeFile("passes-67.jpg", imagebytes::progressiveJpeg(9'000, 7'500)),
        tree_.writeFile("passes-100.jpg", imagebytes::progressiveJpeg(10'000, 10'000)),
        tree_.writeFile("passes-400.jpg", imagebytes::progressiveJpeg(20'000, 20'000)),
        tree_.writeFile(
            "deep-50.tiff",
            imagebytes::flatTiff(7'090, 7'090, imagebytes::TiffColors::light, 3, "abcdef")),
        tree_.writeFile(
            "deep-144.tiff",
            imagebytes::flatTiff(12'000, 12'000, imagebytes::TiffColors::light, 3, "abcdef")),
        writeImage("large.webp", {6'000, 6'000}, "webp"),
        tree_.writeFile("self.svg",
                        "<svg xmlns='http://www.w3.org/2000/svg' "
                        "xmlns:xlink='http://www.w3.org/1999/xlink' width='9' height='9'>"
                        "<g id='a'><use xlink:href='#a'/></g></svg>"),
    };
    for (const std::string& path : paths) {
        const PreviewCost cost = costOfPreview(path);
        RecordProperty(path.substr(path.rfind('/') + 1), static_cast<int>(cost.megabytes));
        EXPECT_GT(cost.megabytes, 10) << path;
#ifndef TARVIN_SANITIZED
        EXPECT_LE(cost.megabytes, 512) << path;
#endif
    }
}

TEST_F(ImagePreviewOfHarm, IsNoneOfAnImageThatTakesTooLong) {
    ImagePreview preview(previewProgram(), 3s);
    QSignalSpy nothing(&preview, &ImagePreview::nothing);
    QSignalSpy measured(&preview, &ImagePreview::measured);
    const std::string path = tree_.writeFile("endless.jpg", imagebytes::endlessJpeg(3'000));
    const auto begin = std::chrono::steady_clock::now();
    preview.resizeImageAtPath(path, 252, 189);
    EXPECT_TRUE(nothing.wait(20'000));
    // The time limit ended it, not damage. The timer may be 5 % too early.
    EXPECT_GE(std::chrono::steady_clock::now() - begin, 2800ms);
    ASSERT_EQ(measured.size(), 1);
    EXPECT_EQ(measured[0][0].toSize(), QSize(3'000, 3'000));
}

TEST_F(ImagePreviewOfHarm, EndsAnIdleProcessOfItself) {
    QProcess process;
    process.start(previewProgram(), QStringList());
    ASSERT_TRUE(process.waitForStarted());
    const auto start = std::chrono::steady_clock::now();
    // It never receives a path.
    EXPECT_TRUE(process.waitForFinished(25'000));
    EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 9s);
    process.kill();
    process.waitForFinished();
}

TEST_F(ImagePreviewOfHarm, EndsItselfAfterTheGivenSeconds) {
    QProcess process;
    process.start(previewProgram(), {QStringLiteral("1")});
    ASSERT_TRUE(process.waitForStarted());
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(process.waitForFinished(25'000));
    EXPECT_EQ(process.exitStatus(), QProcess::CrashExit);
    // Before the usual limit.
    EXPECT_LT(std::chrono::steady_clock::now() - start, 9s);
    process.kill();
    process.waitForFinished();
}

}  // namespace
}  // namespace tarvin
