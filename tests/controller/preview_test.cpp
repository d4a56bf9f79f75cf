#include "controller/file_properties.h"
#include "controller/image_preview.h"
#include "controller/preview_placeholder.h"
#include "controller/result_fixture.h"
#include "interface/image_view.h"
#include "interface/property_text.h"
#include "support/image_bytes.h"
#include "support/on_screen.h"

#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <cerrno>
#include <filesystem>

namespace tarvin {
namespace {

constexpr QColor red{200, 30, 30};
constexpr QColor blue{30, 30, 200};

class PreviewFixture : public ResultFixture {
 protected:
    /// Two equal images of one colour.
    void writeImages(const std::string& first, const std::string& second, QSize size,
                     QColor color = red) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(color);
        const std::string path = folder.makeFolder("found") + "/" + first;
        ASSERT_TRUE(image.save(QString::fromStdString(path)));
        std::filesystem::copy(path, folder.pathOf("found/" + second));
    }

    void writeTexts() {
        write("z1.txt", "text");
        write("z2.txt", "text");
    }

    [[nodiscard]] const QImage& picture() { return window().results->imView->image(); }
    [[nodiscard]] bool isAll(QColor color) {
        return !picture().isNull() &&
               picture().pixelColor(picture().width() / 2, picture().height() / 2) == color;
    }
    [[nodiscard]] bool isPlaceholder() {
        return picture() == previewPlaceholder(window().results->imView->devicePixelRatioF());
    }
    [[nodiscard]] std::string properties() {
        return window().results->textField->text().toStdString();
    }
    [[nodiscard]] std::string pathOf(const std::string& name) {
        return folder.pathOf("found/" + name);
    }

    void clickFile(int row) { QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, at(row)); }
    void doubleClickFile(int row) {
        clickFile(row);
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, at(row));
    }

    /// The file is shown and its row is selected and highlighted.
    void expectShown(int row, const std::string& name) {
        EXPECT_EQ(textOf("selectedPath"), "Path: " + pathOf(name));
        EXPECT_EQ(properties().rfind(" " + name + "\n", 0), 0U) << properties();
        EXPECT_EQ(table().selectedRow(), row);
        EXPECT_EQ(table().currentIndex().row(), row);
        const QImage seen = onScreen(*table().viewport());
        for (int other = 0; other < list().rowCount(); ++other) {
            EXPECT_EQ(seen.pixelColor(3, at(other).y()) == QColor(217, 239, 243), other == row)
                << other;
        }
    }

    void showImages() {
        click("imageButton");
        click("scanInforOKBtn");
    }

    /// Returns when earlier requests must have finished: two later ones have.
    void outlastRequests(const std::string& path) {
        ImagePreview other(previewProgram());
        const QSignalSpy ready(&other, &ImagePreview::ready);
        const QSignalSpy nothing(&other, &ImagePreview::nothing);
        for (int request = 1; request <= 2; ++request) {
            other.resizeImageAtPath(path, 248, 186);
            ASSERT_TRUE(comesTrue([&] { return ready.size() + nothing.size() == request; }));
        }
    }

    [[nodiscard]] QPoint at(int row) {
        return table().visualRect(list().index(row, ResultTable::nameText)).center();
    }
};

class PreviewTest : public PreviewFixture {
 protected:
    void SetUp() override {
        writeImages("a1.png", "a2.png", {800, 600});
        writeTexts();
        scanAndReview();
    }
};

TEST_F(PreviewTest, OfAnImageIsItsPicture) {
    EXPECT_TRUE(comesTrue([this] { return isAll(red); }));
    EXPECT_EQ(picture().size(), QSize(640, 480));
}

TEST_F(PreviewTest, BeginsWithThePlaceholder) {
    ASSERT_TRUE(comesTrue([this] { return isAll(red); }));
    select(0, 0);
    EXPECT_TRUE(isPlaceholder());
    EXPECT_TRUE(comesTrue([this] { return isAll(red); }));
}

TEST_F(PreviewTest, OfATextIsThePlaceholder) {
    ASSERT_TRUE(comesTrue([this] { return isAll(red); }));
    select(1, 0);
    EXPECT_TRUE(isPlaceholder());
    EXPECT_EQ(textOf("selectedPath"), "Path: " + pathOf("z1.txt"));
    outlastRequests(pathOf("z1.txt"));
    EXPECT_TRUE(isPlaceholder());
}

TEST_F(PreviewTest, SaysDimensionsAmongImagesAlone) {
    EXPECT_EQ(properties().find("Image Dimensions"), std::string::npos);
    EXPECT_EQ(properties().rfind(" a1.png\nSize                       : ", 0), 0U) << properties();
    showImages();
    select(0, 0);
    EXPECT_TRUE(comesTrue([this] {
        return properties().find("\nImage Dimensions   : 800x600\n") != std::string::npos;
    })) << properties();
}

TEST_F(PreviewTest, SaysNoDimensionsUntilTheyAreKnown) {
    showImages();
    select(0, 0);
    EXPECT_NE(properties().find("\nImage Dimensions   : \n"), std::string::npos) << properties();
    EXPECT_TRUE(comesTrue([this] {
        EXPECT_EQ(properties().find("0x0"), std::string::npos);
        return properties().find("\nImage Dimensions   : 800x600\n") != std::string::npos;
    })) << properties();
}

TEST_F(PreviewTest, FollowsTheRowThatIsClicked) {
    ASSERT_TRUE(comesTrue([this] { return isAll(red); }));
    clickFile(1);
    expectShown(1, "a2.png");
    EXPECT_TRUE(isPlaceholder());
    EXPECT_TRUE(comesTrue([this] { return isAll(red); }));
    clickFile(0);
    expectShown(0, "a1.png");
}

TEST_F(PreviewTest, FollowsTheArrowKeys) {
    table().setFocus();
    QTest::keyClick(&table(), Qt::Key_Down);
    expectShown(1, "a2.png");
    QTest::keyClick(&table(), Qt::Key_Up);
    expectShown(0, "a1.png");
    QTest::keyClick(&table(), Qt::Key_End, Qt::ControlModifier);
    expectShown(1, "a2.png");
}

TEST_F(PreviewTest, FollowsTheRowAmongImages) {
    showImages();
    clickFile(1);
    expectShown(1, "a2.png");
    EXPECT_TRUE(comesTrue([this] {
        return properties().find("\nImage Dimensions   : 800x600\n") != std::string::npos;
    })) << properties();
}

TEST_F(PreviewTest, OfARowThatIsShownAlreadyIsNotMadeAgain) {
    ASSERT_TRUE(comesTrue([this] { return isAll(red); }));
    clickFile(0);
    EXPECT_TRUE(isAll(red));
    expectShown(0, "a1.png");
}

TEST_F(PreviewTest, OfASetIsItsFirstFileWithItsRow) {
    clickFile(1);
    select(1, 0);
    expectShown(0, "z1.txt");
    clickFile(1);
    expectShown(1, "z2.txt");
    // Also after selecting the same set again.
    select(1, 0);
    expectShown(0, "z1.txt");
}

TEST_F(PreviewTest, StaysWhenTheSelectedRowIsClickedWithAModifier) {
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::ControlModifier, at(0));
    expectShown(0, "a1.png");
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::ShiftModifier, at(1));
    expectShown(1, "a2.png");
}

TEST_F(PreviewTest, IsNotOfARowWhoseBoxIsClicked) {
    clickFileBox(1);
    expectShown(0, "a1.png");
}

TEST_F(PreviewTest, KeepsItsRowWhenOthersLeaveTheList) {
    write("b1.txt", "more");
    for (const char* name : {"b2.txt", "b3.txt", "b4.txt"}) {
        write(name, "more");
    }
    scanAgain();
    click("scanInforOKBtn");
    select(1, 0);
    ASSERT_EQ(names(), (Lines{"b1.txt", "b2.txt", "b3.txt", "b4.txt"}));
    clickFile(2);
    clickFileBox(1);
    click("addEceptionBtn");
    click("excOKBtn");
    click("scanInforOKBtn");
    EXPECT_EQ(names(), (Lines{"b1.txt", "b3.txt", "b4.txt"}));
    expectShown(1, "b3.txt");

    clickFileBox(1);
    click("addEceptionBtn");
    click("excOKBtn");
    click("scanInforOKBtn");
    // The file itself was taken out.
    EXPECT_EQ(names(), (Lines{"b1.txt", "b4.txt"}));
    expectShown(0, "b1.txt");
    clickFile(1);
    expectShown(1, "b4.txt");
}

TEST_F(PreviewTest, ADoubleClickOpensTheFileOfItsRow) {
    const QPoint beside(20, table().viewport()->height() - 4);
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, beside);
    doubleClickFile(1);
    ASSERT_TRUE(comesTrue([this] { return !desktop.paths.empty(); }));
    EXPECT_EQ(desktop.paths, std::vector<std::string>{pathOf("a2.png")});
    EXPECT_EQ(textOf("selectedPath"), "Path: " + pathOf("a2.png"));
}

TEST_F(PreviewTest, FailingToOpenAFileIsSilent) {
    desktop.opensPaths = false;
    doubleClickFile(0);
    ASSERT_TRUE(comesTrue([this] { return !desktop.paths.empty(); }));
    EXPECT_EQ(desktop.paths, std::vector<std::string>{pathOf("a1.png")});
    EXPECT_TRUE(alerts.shown.empty());
    EXPECT_EQ(information(), Lines());
    EXPECT_EQ(list().rowCount(), 2);
    EXPECT_EQ(screen(), QStringLiteral("4"));
}

TEST_F(PreviewTest, OfAFileThatVanishedHasAbsentValues) {
    std::filesystem::remove(pathOf("z1.txt"));
    select(1, 0);
    EXPECT_EQ(properties(),
              " z1.txt\nSize                       : \nCreated Date        : \nModified Date       "
              ": ");
    outlastRequests(pathOf("z2.txt"));
    EXPECT_TRUE(isPlaceholder());
}

TEST_F(PreviewTest, OfAnImageThatVanishedHasNoDimensions) {
    showImages();
    std::filesystem::remove(pathOf("a1.png"));
    select(0, 0);
    const std::string absent =
        " a1.png\nSize                          : \nImage Dimensions   : \nCreated Date           "
        ": \nModified Date         : ";
    EXPECT_EQ(properties(), absent);
    outlastRequests(pathOf("a2.png"));
    EXPECT_EQ(properties(), absent);
    EXPECT_TRUE(isPlaceholder());
}

TEST_F(PreviewTest, OfAttributesThatCannotBeReadLeavesThemOut) {
    files.failCall(FileCall::attributesAtPath, FaultyFileSystem::each, EACCES, "found/");
    select(1, 0);
    EXPECT_EQ(properties(),
              " z1.txt\nSize                       : \nCreated Date        : \nModified Date       "
              ": ");
    showImages();
    select(0, 0);
    const std::string withDimensions =
        " a1.png\nSize                          : \nImage Dimensions   : 800x600\nCreated Date     "
        "      : \nModified Date         : ";
    EXPECT_TRUE(comesTrue([&] { return properties() == withDimensions; })) << properties();
}

TEST_F(PreviewTest, EndsWithTheResult) {
    ASSERT_TRUE(comesTrue([this] { return isAll(red); }));
    click("buttonHomePage");
    EXPECT_TRUE(picture().isNull());
    EXPECT_EQ(textOf("selectedPath"), "");
    EXPECT_EQ(properties(), "");
}

class PreviewOfImages : public PreviewFixture {};

TEST_F(PreviewOfImages, SaysTheDimensionsOfALargeOne) {
    writeImages("a1.png", "a2.png", {4000, 3000});
    writeTexts();
    scanAndReview();
    EXPECT_TRUE(comesTrue([this] { return isAll(red); }));
    EXPECT_EQ(properties().find("Image Dimensions"), std::string::npos);
    showImages();
    select(0, 0);
    EXPECT_TRUE(comesTrue([this] {
        return properties().find("\nImage Dimensions   : 4000x3000\n") != std::string::npos;
    })) << properties();
    EXPECT_TRUE(comesTrue([this] { return isAll(red); }));
    EXPECT_EQ(picture().size(), QSize(640, 480));
}

TEST_F(PreviewOfImages, FillsThePlaceInsideTheLinesOfItsField) {
    writeImages("a1.png", "a2.png", {800, 400});
    writeImages("b1.png", "b2.png", {300, 600}, blue);
    writeTexts();
    scanAndReview();
    ASSERT_EQ(window().results->imView->size(), QSize(254, 191));
    select(0, 0);
    EXPECT_TRUE(comesTrue([this] { return isAll(red); }));
    EXPECT_EQ(picture().deviceIndependentSize(), QSizeF(252, 126));
    select(0, 1);
    EXPECT_TRUE(comesTrue([this] { return isAll(blue); }));
    EXPECT_EQ(picture().deviceIndependentSize(), QSizeF(94.5, 189));
}

TEST_F(PreviewOfImages, AppliesTheOrientation) {
    QImage sideways(400, 200, QImage::Format_RGB32);
    sideways.fill(red);
    QPainter(&sideways).fillRect(200, 0, 200, 200, blue);
    const std::string plain = folder.pathOf("plain.jpg");
    ASSERT_TRUE(sideways.save(QString::fromStdString(plain), "JPG", 100));
    const std::string turned =
        imagebytes::withOrientation(imagebytes::contentOf(plain), imagebytes::turnedToTheRight);
    write("a1.jpg", turned);
    write("a2.jpg", turned);
    writeTexts();
    scanAndReview();
    EXPECT_TRUE(comesTrue([this] { return picture().size() == QSize(200, 400); }));
    const QColor top = picture().pixelColor(100, 40);
    const QColor bottom = picture().pixelColor(100, 360);
    EXPECT_GT(top.red(), top.blue() + 100);
    EXPECT_GT(bottom.blue(), bottom.red() + 100);
    showImages();
    select(0, 0);
    EXPECT_TRUE(comesTrue([this] {
        return properties().find("\nImage Dimensions   : 200x400\n") != std::string::npos;
    })) << properties();
}

TEST_F(PreviewOfImages, IsThatOfTheSetClickedLast) {
    writeImages("a1.png", "a2.png", {800, 600});
    writeImages("b1.png", "b2.png", {40, 30}, blue);
    writeTexts();
    scanAndReview();
    showImages();
    for (int time = 0; time < 5; ++time) {
        select(0, 1);
        select(0, 0);
    }
    select(0, 1);
    EXPECT_TRUE(comesTrue([this] { return isAll(blue); }));
    outlastRequests(pathOf("a1.png"));
    EXPECT_TRUE(isAll(blue));
    EXPECT_EQ(textOf("selectedPath"), "Path: " + pathOf("b1.png"));
    EXPECT_NE(properties().find("\nImage Dimensions   : 40x30\n"), std::string::npos)
        << properties();
}

TEST_F(PreviewOfImages, OfASingleExtensionBeginsWithTheRowThatIsChosen) {
    writeImages("a1.png", "a2.png", {800, 600});
    scanAndReview();
    EXPECT_EQ(table().selectedRow(), -1);
    QTest::keyClick(&table(), Qt::Key_Up);
    expectShown(0, "a1.png");
    QTest::keyClick(&table(), Qt::Key_Down);
    expectShown(1, "a2.png");
    EXPECT_TRUE(comesTrue([this] { return isAll(red); }));
}

TEST_F(PreviewOfImages, OfASingleExtensionIgnoresAPendingPreview) {
    writeImages("a1.png", "a2.png", {800, 600});
    scanAndReview();
    EXPECT_TRUE(picture().isNull());
    select(0, 0);
    delegate->views().showDuplicateScanResult(true);
    EXPECT_TRUE(picture().isNull());
    outlastRequests(pathOf("a1.png"));
    EXPECT_TRUE(picture().isNull());
    EXPECT_EQ(textOf("selectedPath"), "");
    EXPECT_EQ(properties(), "");
    select(0, 0);
    EXPECT_TRUE(comesTrue([this] { return isAll(red); }));
}

}  // namespace
}  // namespace tarvin
