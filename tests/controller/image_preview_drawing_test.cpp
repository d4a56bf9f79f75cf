#include "controller/image_preview.h"
#include "controller/image_preview_fixture.h"
#include "controller/preview_program.h"
#include "preview/preview_format.h"
#include "support/image_bytes.h"

#include <gtest/gtest.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <QBuffer>
#include <QColor>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QSignalSpy>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

using namespace std::chrono_literals;

class ImagePreviewOfADrawing : public ImagePreviewFixture {
 protected:
    // 100 by 50, of which the left half is red.
    static constexpr const char* begin =
        "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
        "width='100' height='50'><rect width='50' height='50' fill='#f00'/>";

    std::string writeDrawing(const std::string& content, const std::string& before = {}) {
        return tree_.writeFile("drawing.svg", before + begin + content + "</svg>");
    }

    /// Part of an SVG that shows the image at a URL in its right half.
    static std::string reference(const std::string& url) {
        return "<image xlink:href='" + url + "' x='50' width='50' height='50'/>";
    }

    /// Nothing is drawn beside the red half.
    QImage plain() { return previewOf(writeDrawing("")); }

    /// A blue image and a symbolic link to it.
    std::string writeBlue(const std::string& name) {
        QImage image(50, 50, QImage::Format_RGB888);
        image.fill(Qt::blue);
        std::string path = tree_.pathOf(name);
        EXPECT_TRUE(image.save(QString::fromStdString(path)));
        return path;
    }
};

TEST_F(ImagePreviewOfADrawing, IsAsLargeAsAPreviewIs) {
    const QImage image = previewOf(writeDrawing("<text x='60' y='40' font-size='20'>A</text>"));
    ASSERT_EQ(image.size(), QSize(640, 320));
    EXPECT_EQ(measured(), QSize(100, 50));
    EXPECT_EQ(image.pixelColor(300, 10), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(630, 10).alpha(), 0);
}

/// Drawn by this process, which may open fonts at any time.
QImage drawnHere(const std::string& path) {
    QImageReader reader(QString::fromStdString(path));
    reader.setScaledSize({640, 320});
    return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

TEST_F(ImagePreviewOfADrawing, HasItsTextsInTheirFonts) {
    std::vector<QImage> seen;
    for (const std::string font :
         {"font-family='Liberation Serif'", "style='font-family:Liberation Mono'",
          "style='font-weight:bold; font-family: \"DejaVu Serif\", sans-serif'",
          "font-family='Liberation Sans' font-style='italic' font-weight='bold'",
          "class='styled'"}) {
        // The last character is missing in the first fonts.
        const std::string path = writeDrawing(
            "<style>.styled { font-family: 'DejaVu Sans Mono' }</style><text x='2' y='30' " + font +
            " font-size='20' fill='#00f'>Grog 12 \xE2\x86\xAF</text>");
        const QImage image = previewOf(path);
        EXPECT_EQ(image, drawnHere(path)) << font;
        for (const QImage& other : seen) {
            EXPECT_NE(image, other) << font;
        }
        seen.push_back(image);
    }
}

TEST_F(ImagePreviewOfADrawing, ShowsTheImagesThatItHolds) {
    for (const char* const format : {"png", "jpg", "webp", "tiff"}) {
        QImage image(50, 50, QImage::Format_RGB888);
        image.fill(Qt::blue);
        QBuffer bytes;
        bytes.open(QIODevice::WriteOnly);
        ASSERT_TRUE(image.save(&bytes, format));
        const QImage shown =
            previewOf(writeDrawing(reference("data:image/" + std::string(format) + ";base64," +
                                             bytes.data().toBase64().toStdString())));
        ASSERT_EQ(shown.size(), QSize(640, 320)) << format;
        EXPECT_TRUE(isNear(shown.pixelColor(480, 160), Qt::blue)) << format;
    }
}

TEST_F(ImagePreviewOfADrawing, ShowsNothingOfOtherFiles) {
    const QImage without = plain();
    ASSERT_EQ(without.size(), QSize(640, 320));
    const std::string blue = writeBlue("blue.png");
    const std::string link = tree_.makeLink("link.png", blue);
    const std::string inside =
        tree_.writeFile("blue.svg",
                        "<svg xmlns='http://www.w3.org/2000/svg' width='50' height='50'>"
                        "<rect width='50' height='50' fill='#00f'/></svg>");
    // The program inherits this working directory.
    const std::string relative =
        std::filesystem::relative(blue, std::filesystem::current_path()).string();
    for (const std::string& elsewhere :
         {blue, "file://" + blue, relative, std::string("blue.png"), std::string("./blue.png"),
          link, std::string("link.png"), inside, "file://" + inside, blue + "#a",
          std::string("/etc/passwd"), std::string("http://127.0.0.1:9/a.png"),
          std::string("https://example.invalid/a.png")}) {
        EXPECT_EQ(previewOf(writeDrawing(reference(elsewhere))), without) << elsewhere;
    }
}

TEST_F(ImagePreviewOfADrawing, TakesNoColorsFromOtherFiles) {
    const std::string uncolored = "<rect x='50' width='50' height='50'/>";
    const QImage without = previewOf(writeDrawing(uncolored));
    ASSERT_EQ(without.pixelColor(480, 160), QColor(Qt::black));
    const std::string style = tree_.writeFile("style.css", "rect { fill: #00f }");
    const std::string relative =
        std::filesystem::relative(style, std::filesystem::current_path()).string();
    for (const std::string& elsewhere :
         {style, relative, std::string("style.css"), tree_.makeLink("link.css", style)}) {
        EXPECT_EQ(previewOf(writeDrawing(uncolored, "<?xml-stylesheet type=\"text/css\" href=\"" +
                                                        elsewhere + "\"?>")),
                  without)
            << elsewhere;
    }
}

/// In less than the time limit.
TEST_F(ImagePreviewOfADrawing, NeverBlocksOnAnotherFile) {
    const QImage without = plain();
    ASSERT_FALSE(without.isNull());
    const std::string pipe = tree_.makePipe("pipe");
    for (const std::string& endless : {pipe, tree_.makeLink("link", pipe), "file://" + pipe,
                                       std::string("/dev/zero"), std::string("/dev/tty")}) {
        for (const bool isStyle : {false, true}) {
            const std::string path =
                isStyle ? writeDrawing(
                              "", "<?xml-stylesheet type=\"text/css\" href=\"" + endless + "\"?>")
                        : writeDrawing(reference(endless));
            const auto start = std::chrono::steady_clock::now();
            EXPECT_EQ(previewOf(path), without) << endless << ' ' << isStyle;
            EXPECT_LT(std::chrono::steady_clock::now() - start, 5s) << endless << ' ' << isStyle;
            EXPECT_EQ(childCount(), 0) << endless << ' ' << isStyle;
        }
    }
}

TEST_F(ImagePreviewOfADrawing, IsNoneIfItRefersToItself) {
    const QImage image = previewOf(
        writeDrawing("<g id='a'><use xlink:href='#a'/><rect width='9' height='9'/></g>"
                     "<g id='b'><use xlink:href='#c'/></g><g id='c'><use xlink:href='#b'/></g>"));
    EXPECT_TRUE(image.isNull() || image.size() == QSize(640, 320));
    EXPECT_EQ(previewOf(writeDrawing(reference(tree_.pathOf("drawing.svg")))), plain());
    EXPECT_EQ(childCount(), 0);
}

TEST_F(ImagePreviewOfADrawing, IsNoneIfItGrowsWithoutEnd) {
    std::string entities = "<!DOCTYPE svg [<!ENTITY a0 'lol'>";
    for (int level = 1; level < 12; ++level) {
        const std::string inner = "&a" + std::to_string(level - 1) + ";";
        entities += "<!ENTITY a" + std::to_string(level) + " '";
        for (int time = 0; time < 10; ++time) {
            entities += inner;
        }
        entities += "'>";
    }
    const QImage image = previewOf(
        writeDrawing("<text y='20'>&a11;</text>", "<?xml version='1.0'?>" + entities + "]>"));
    EXPECT_TRUE(image.isNull() || image.size() == QSize(640, 320));
}

/// Makes seccomp unavailable for this process and its children.
void forgetFilters() {
    std::array steps{
        sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_seccomp, 0, 1),
        sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
        sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog filter{steps.size(), steps.data()};
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter);
}

TEST_F(ImagePreviewOfADrawing, IsNoneWithoutConfinement) {
    for (const auto& [path, isShown] : {std::pair{writeDrawing(""), false},
                                        std::pair{writeImage("a.png", {4, 4}, "png"), true}}) {
        QProcess process;
        process.setChildProcessModifier(forgetFilters);
        process.start(previewProgram(), QStringList());
        process.write(QByteArray::fromStdString(path));
        process.closeWriteChannel();
        ASSERT_TRUE(process.waitForFinished(20'000)) << path;
        PreviewReader reader;
        EXPECT_TRUE(reader.take(process.readAllStandardOutput()));
        EXPECT_EQ(!reader.picture().isNull(), isShown) << path;
    }
}

}  // namespace
}  // namespace tarvin
