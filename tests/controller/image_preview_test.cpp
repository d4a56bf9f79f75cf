#include "controller/image_preview.h"

#include "controller/preview_program.h"
#include "support/file_tree.h"
#include "support/image_bytes.h"
#include "support/shell_command.h"
#include "support/waiting.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <QByteArray>
#include <QColor>
#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QPainter>
#include <QSignalSpy>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

const QString program = previewProgram();
constexpr const char* svgBegin =
    "<svg xmlns='http://www.w3.org/2000/svg' "
    "xmlns:xlink='http://www.w3.org/1999/xlink' "
    "width='100' height='50'>";

/// The processes that this one has started and that have not ended, or have not been waited for.
int childCount() {
    std::ifstream file("/proc/self/task/" + std::to_string(::getpid()) + "/children");
    int count = 0;
    for (std::string number; file >> number;) {
        ++count;
    }
    return count;
}

class ImagePreviewTest : public ::testing::Test {
 protected:
    /// Waits for an answer to the last request: the image, null for nothing.
    QImage answer() {
        EXPECT_TRUE(waitUntil([this] {
            QCoreApplication::processEvents();
            return ready_.size() + nothing_.size() > 0;
        }));
        return ready_.isEmpty() ? QImage() : ready_.takeFirst()[0].value<QImage>();
    }

    QImage previewOf(const std::string& path) {
        ready_.clear();
        nothing_.clear();
        measured_.clear();
        preview_.resizeImageAtPath(path, 252, 189);
        return answer();
    }

    [[nodiscard]] QSize measured() const {
        return measured_.size() == 1 ? measured_[0][0].toSize() : QSize();
    }

    /// An image of two halves, left red and right blue.
    std::string writeImage(const std::string& name, QSize size, const char* format) {
        // What most formats hold, so that large ones need no threads of Qt's to convert them.
        QImage image(size, QImage::Format_RGB888);
        image.fill(Qt::red);
        QPainter(&image).fillRect(size.width() / 2, 0, size.width(), size.height(), Qt::blue);
        std::string path = tree_.pathOf(name);
        QFile file(QString::fromStdString(path));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_TRUE(QImageWriter(&file, format).write(image));
        return path;
    }

    /// A part of a drawing that shows the image at an address.
    static std::string reference(const std::string& address) {
        return "<image xlink:href='" + address + "' width='100' height='50'/>";
    }

    std::string writeSvg(const std::string& name, const std::string& content) {
        return tree_.writeFile(name, svgBegin + content + "</svg>");
    }

    FileTree tree_;
    ImagePreview preview_{program};
    QSignalSpy ready_{&preview_, &ImagePreview::ready};
    QSignalSpy nothing_{&preview_, &ImagePreview::nothing};
    QSignalSpy measured_{&preview_, &ImagePreview::measured};
};

class ImagePreviewOf : public ImagePreviewTest {};
class ImagePreviewOfHarm : public ImagePreviewTest {};
class ImagePreviewRequests : public ImagePreviewTest {};

/// Red or blue, where nothing but a lossy format stands between.
bool isNear(QColor color, QColor expected) {
    return std::abs(color.red() - expected.red()) < 40 &&
           std::abs(color.green() - expected.green()) < 40 &&
           std::abs(color.blue() - expected.blue()) < 40;
}

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

TEST_F(ImagePreviewOf, ShowsEveryFormatThatIsCommon) {
    for (const char* const format : {"png", "jpg", "webp", "tiff", "bmp", "ppm", "ico"}) {
        const QImage image = previewOf(writeImage("image", {100, 50}, format));
        EXPECT_EQ(image.size(), QSize(100, 50)) << format;
        EXPECT_TRUE(isNear(image.pixelColor(10, 25), Qt::red)) << format;
        EXPECT_TRUE(isNear(image.pixelColor(90, 25), Qt::blue)) << format;
        EXPECT_EQ(measured(), QSize(100, 50)) << format;
    }
}

TEST_F(ImagePreviewOf, ShowsTheFirstImageOfAGif) {
    const std::string path = tree_.writeFile("a.gif", imagebytes::twoPixelGif());
    const QImage image = previewOf(path);
    ASSERT_EQ(image.size(), QSize(2, 1));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(1, 0), QColor(Qt::blue));
}

TEST_F(ImagePreviewOf, KeepsWhatIsTransparent) {
    QImage image(4, 4, QImage::Format_ARGB32);
    image.fill(QColor(200, 100, 50, 128));
    const std::string path = tree_.pathOf("clear.png");
    ASSERT_TRUE(image.save(QString::fromStdString(path)));
    const QColor color = previewOf(path).pixelColor(1, 1);
    EXPECT_EQ(color.alpha(), 128);
    EXPECT_NEAR(color.red(), 200, 2);
}

TEST_F(ImagePreviewOf, DrawsAsLargeAsAPreviewIs) {
    const QImage image = previewOf(writeSvg("a.svg",
                                            "<rect width='50' height='50' fill='#f00'/>"
                                            "<text x='60' y='40' font-size='20'>A</text>"));
    ASSERT_EQ(image.size(), QSize(640, 320));
    EXPECT_EQ(measured(), QSize(100, 50));
    EXPECT_EQ(image.pixelColor(300, 10), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(630, 10).alpha(), 0);
}

TEST_F(ImagePreviewOf, IsTurnedAsTheCameraWasHeld) {
    // The camera was held so that what is left in the file is at the top.
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

TEST_F(ImagePreviewOf, IsTurnedAndMadeSmaller) {
    const std::string sideways = writeImage("plain.jpg", {4000, 3000}, "jpg");
    const QImage image = previewOf(
        tree_.writeFile("turned.jpg", imagebytes::withOrientation(imagebytes::contentOf(sideways),
                                                                  imagebytes::turnedToTheRight)));
    EXPECT_EQ(image.size(), QSize(480, 640));
    EXPECT_EQ(measured(), QSize(3000, 4000));
}

TEST_F(ImagePreviewOf, FitsIntoItsFieldInItsProportions) {
    // Wider than the field, higher, and smaller: in points each fills it in one direction.
    EXPECT_EQ(previewOf(writeImage("wide.png", {2000, 1000}, "png")).deviceIndependentSize(),
              QSizeF(252, 126));
    EXPECT_EQ(previewOf(writeImage("high.png", {1000, 2000}, "png")).deviceIndependentSize(),
              QSizeF(94.5, 189));
    EXPECT_EQ(previewOf(writeImage("small.png", {8, 6}, "png")).deviceIndependentSize(),
              QSizeF(252, 189));
}

TEST_F(ImagePreviewOf, HasOnePixelAPointForAFieldWithoutRoom) {
    preview_.resizeImageAtPath(writeImage("a.png", {80, 60}, "png"), -2, -2);
    EXPECT_EQ(answer().deviceIndependentSize(), QSizeF(80, 60));
}

TEST_F(ImagePreviewOf, TakesNamesThatAreNotText) {
    const std::string path = writeImage("a.png", {4, 4}, "png");
    for (const char* const name : {"M\xFC\xFF.png", "two\nlines.png", "-h", "%s %1"}) {
        const std::string odd = tree_.pathOf(name);
        std::filesystem::rename(path, odd);
        EXPECT_EQ(previewOf(odd).size(), QSize(4, 4)) << name;
        std::filesystem::rename(odd, path);
    }
}

TEST_F(ImagePreviewOf, IsNoneOfWhatIsNoImage) {
    EXPECT_TRUE(previewOf(tree_.writeFile("text.png", "no image")).isNull());
    EXPECT_TRUE(previewOf(tree_.writeFile("empty.png")).isNull());
    EXPECT_TRUE(previewOf(tree_.pathOf("gone.png")).isNull());
    EXPECT_TRUE(previewOf(tree_.makeFolder("folder.png")).isNull());
    EXPECT_TRUE(previewOf("").isNull());
    EXPECT_EQ(measured_.size(), 0);
}

TEST_F(ImagePreviewOf, WaitsForNoPipeAndNoSocket) {
    EXPECT_TRUE(previewOf(tree_.makePipe("pipe.png")).isNull());
    EXPECT_TRUE(previewOf(tree_.makeSocket("socket.png")).isNull());
    EXPECT_TRUE(previewOf("/dev/zero").isNull());
}

TEST_F(ImagePreviewOfHarm, ShowsWhatIsLeftOfATruncatedJpegOrNothing) {
    const std::string whole = imagebytes::contentOf(writeImage("whole.jpg", {800, 600}, "jpg"));
    for (const std::size_t part : {std::size_t{1}, whole.size() / 2, whole.size() - 2}) {
        const QImage image = previewOf(tree_.writeFile("part.jpg", whole.substr(0, part)));
        EXPECT_TRUE(image.isNull() || image.size() == QSize(640, 480)) << part;
    }
    // The beginning says how large it was meant to be.
    EXPECT_EQ(measured(), QSize(800, 600));
}

TEST_F(ImagePreviewOfHarm, IsMeasuredThoughItCannotBeDecoded) {
    EXPECT_TRUE(
        previewOf(tree_.writeFile("head.png", imagebytes::pngHeader(4000, 3000) +
                                                  imagebytes::pngChunk("IDAT", "no pixels")))
            .isNull());
    EXPECT_EQ(measured(), QSize(4000, 3000));
}

TEST_F(ImagePreviewOfHarm, IsNoneOfADrawingThatRefersToItself) {
    const QImage image = previewOf(
        writeSvg("self.svg",
                 "<g id='a'><use xlink:href='#a'/><rect width='9' height='9'/></g>"
                 "<g id='b'><use xlink:href='#c'/></g><g id='c'><use xlink:href='#b'/></g>"));
    EXPECT_TRUE(image.isNull() || image.size() == QSize(640, 320));
    EXPECT_EQ(childCount(), 0);
}

TEST_F(ImagePreviewOfHarm, TakesNothingFromElsewhereIntoADrawing) {
    const std::string half = "<rect width='50' height='50' fill='#f00'/>";
    const QImage plain = previewOf(writeSvg("plain.svg", half));
    ASSERT_FALSE(plain.isNull());
    for (const char* const elsewhere :
         {"file:///etc/passwd", "/etc/passwd", "http://127.0.0.1:9/a.png",
          "https://example.invalid/a.png"}) {
        EXPECT_EQ(previewOf(writeSvg("a.svg", half + reference(elsewhere))), plain) << elsewhere;
    }
}

TEST_F(ImagePreviewOfHarm, EndsThoughADrawingRefersToWhatHasNoEnd) {
    for (const std::string& endless :
         {std::string("/dev/zero"), tree_.makePipe("pipe"), tree_.pathOf("self.svg")}) {
        ImagePreview preview(program, 2s);
        QSignalSpy ready(&preview, &ImagePreview::ready);
        QSignalSpy nothing(&preview, &ImagePreview::nothing);
        preview.resizeImageAtPath(writeSvg("self.svg", reference(endless)), 252, 189);
        EXPECT_TRUE(waitUntil([&] {
            QCoreApplication::processEvents();
            return ready.size() + nothing.size() == 1;
        })) << endless;
        EXPECT_EQ(childCount(), 0) << endless;
    }
}

TEST_F(ImagePreviewOfHarm, IsNoneOfADrawingThatGrowsWithoutEnd) {
    std::string entities = "<!DOCTYPE svg [<!ENTITY a0 'lol'>";
    for (int level = 1; level < 12; ++level) {
        const std::string inner = "&a" + std::to_string(level - 1) + ";";
        entities += "<!ENTITY a" + std::to_string(level) + " '";
        for (int time = 0; time < 10; ++time) {
            entities += inner;
        }
        entities += "'>";
    }
    const QImage image =
        previewOf(tree_.writeFile("lol.svg", "<?xml version='1.0'?>" + entities + "]>" + svgBegin +
                                                 "<text y='20'>&a11;</text></svg>"));
    EXPECT_TRUE(image.isNull() || image.size() == QSize(640, 320));
}

/// The most memory that the program has had for one file, in MB, in no more than two seconds.
/// Another process starts it and asks: the system counts a process's memory for what it starts.
long memoryFor(const std::string& path) {
    const std::string script =
        "import resource, subprocess, sys\n"
        "try:\n"
        "    subprocess.run([sys.argv[1]], input=sys.argv[2].encode(), timeout=2,\n"
        "                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)\n"
        "except subprocess.TimeoutExpired:\n"
        "    pass\n"
        "print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss // 1000)\n";
    const CommandResult result =
        runCommand("python3 -c '" + script + "' " + program.toStdString() + ' ' + path);
    EXPECT_EQ(result.status, 0) << result.output;
    return std::atol(result.output.c_str());
}

TEST_F(ImagePreviewOfHarm, CostsLittleMemory) {
    const std::vector<std::string> paths{
        // Of one bit: 300 MB once decoded. Of three bytes: 7.5 GB, which are read through.
        tree_.writeFile("bits.png", imagebytes::blackPng(50'000, 50'000, 1)),
        tree_.writeFile("bytes.png", imagebytes::blackPng(50'000, 50'000, 24)),
        // What is decoded as a whole before it is made smaller.
        writeImage("large.webp", {6000, 6000}, "webp"),
        writeImage("large.tiff", {7000, 5000}, "tiff"),
        tree_.writeFile("huge.bmp", imagebytes::bmpHeader(30'000, 30'000)),
        writeSvg("self.svg", "<g id='a'><use xlink:href='#a'/></g>" +
                                 reference(tree_.pathOf("self.svg")) + reference("/dev/zero")),
    };
    for (const std::string& path : paths) {
        const long megabytes = memoryFor(path);
        RecordProperty(path.substr(path.rfind('/') + 1), static_cast<int>(megabytes));
        EXPECT_GT(megabytes, 10) << path;
#ifndef TARVIN_SANITIZED
        EXPECT_LE(megabytes, 256) << path;
#endif
    }
}

TEST_F(ImagePreviewOfHarm, IsNoneOfAnImageThatTakesTooLong) {
    ImagePreview preview(program, 3s);
    QSignalSpy nothing(&preview, &ImagePreview::nothing);
    QSignalSpy measured(&preview, &ImagePreview::measured);
    const std::string path = tree_.writeFile("huge.png", imagebytes::blackPng(50'000, 50'000, 24));
    const auto begin = std::chrono::steady_clock::now();
    preview.resizeImageAtPath(path, 252, 189);
    EXPECT_TRUE(nothing.wait(20'000));
    // It was not damage that ended it. The timer may be a twentieth too early.
    EXPECT_GE(std::chrono::steady_clock::now() - begin, 2800ms);
    ASSERT_EQ(measured.size(), 1);
    EXPECT_EQ(measured[0][0].toSize(), QSize(50'000, 50'000));
}

TEST_F(ImagePreviewRequests, ReadTheFileAnewEachTime) {
    QImage image(4, 4, QImage::Format_RGB888);
    image.fill(Qt::red);
    const std::string path = tree_.pathOf("a.bmp");
    ASSERT_TRUE(image.save(QString::fromStdString(path)));
    EXPECT_EQ(previewOf(path).pixelColor(1, 1), QColor(Qt::red));
    // As long as before, and of the same date: nothing but the content tells.
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

TEST_F(ImagePreviewRequests, AreAnsweredTheLastAlone) {
    std::vector<std::string> paths;
    for (int number = 1; number <= 100; ++number) {
        paths.push_back(writeImage("image" + std::to_string(number) + ".png", {number, 1}, "png"));
    }
    for (const std::string& path : paths) {
        preview_.resizeImageAtPath(path, 252, 189);
        EXPECT_LE(childCount(), 1);
    }
    EXPECT_EQ(answer().size(), QSize(100, 1));
    EXPECT_EQ(measured(), QSize(100, 1));
    EXPECT_EQ(nothing_.size(), 0);
    EXPECT_EQ(childCount(), 0);
}

TEST_F(ImagePreviewRequests, AreAnsweredAlsoWhenTheyComeBetweenEvents) {
    std::vector<std::string> paths;
    for (int number = 1; number <= 20; ++number) {
        paths.push_back(writeImage("image" + std::to_string(number) + ".png", {number, 1}, "png"));
    }
    for (const std::string& path : paths) {
        preview_.resizeImageAtPath(path, 252, 189);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    ASSERT_TRUE(waitUntil([this] {
        QCoreApplication::processEvents();
        return !ready_.isEmpty() && ready_.last()[0].value<QImage>().width() == 20;
    }));
    EXPECT_EQ(childCount(), 0);
}

TEST_F(ImagePreviewRequests, OvertakeOneThatTakesLong) {
    preview_.resizeImageAtPath(
        tree_.writeFile("huge.png", imagebytes::blackPng(50'000, 50'000, 24)), 252, 189);
    ASSERT_TRUE(measured_.wait(20'000));
    const auto begin = std::chrono::steady_clock::now();
    preview_.resizeImageAtPath(writeImage("small.png", {4, 4}, "png"), 252, 189);
    EXPECT_EQ(answer().size(), QSize(4, 4));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
    EXPECT_EQ(nothing_.size(), 0);
    EXPECT_EQ(childCount(), 0);
}

TEST_F(ImagePreviewRequests, CanBeTakenBack) {
    preview_.resizeImageAtPath(writeImage("small.png", {4, 4}, "png"), 252, 189);
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

TEST_F(ImagePreviewRequests, LeaveNothingRunningBehind) {
    const std::string huge = tree_.writeFile("huge.png", imagebytes::blackPng(50'000, 50'000, 24));
    {
        ImagePreview preview(program);
        QSignalSpy measured(&preview, &ImagePreview::measured);
        preview.resizeImageAtPath(huge, 252, 189);
        ASSERT_TRUE(measured.wait(20'000));
        EXPECT_EQ(childCount(), 1);
    }
    EXPECT_EQ(childCount(), 0);
    ImagePreview(program).resizeImageAtPath(huge, 252, 189);
    EXPECT_EQ(childCount(), 0);
}

TEST_F(ImagePreviewRequests, AreAnsweredWithNothingInTime) {
    ImagePreview preview(program, 300ms);
    QSignalSpy nothing(&preview, &ImagePreview::nothing);
    const std::string path = tree_.writeFile("huge.png", imagebytes::blackPng(50'000, 50'000, 24));
    const auto begin = std::chrono::steady_clock::now();
    preview.resizeImageAtPath(path, 252, 189);
    EXPECT_TRUE(nothing.wait(20'000));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
}

TEST_F(ImagePreviewRequests, AreAnsweredWithNothingWithoutAProgram) {
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

TEST_F(ImagePreviewRequests, AreAnsweredWithNothingByAnotherProgram) {
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
    answerOf("exec cat /dev/zero\n");  // which is no size, and has no end
    answerOf("echo 0\n");
}

}  // namespace
}  // namespace tarvin
