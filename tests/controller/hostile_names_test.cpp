#include "controller/file_properties.h"
#include "controller/result_fixture.h"
#include "interface/image_view.h"
#include "interface/property_text.h"

#include <QImage>
#include <filesystem>

namespace tarvin {
namespace {

// Malicious names and how each is shown: newlines, markup, a placeholder, Hebrew, a bidirectional
// override, and bytes that are not UTF-8.

const std::string hostileStem =
    "a\nb<b>c<i>%1\xd7\x90\xd7\x91\xd7\x92\xe2\x80\xae"
    "d\xff";
const QString shownStem = QStringLiteral("a\uFFFDb<b>c<i>%1\u05D0\u05D1\u05D2\uFFFDd\uFFFD");
const std::string hostileEnd =
    "e\n\xd7\x90"
    "f\xfe";
const QString shownEnd = QStringLiteral("e\uFFFD\u05D0f\uFFFD");

/// Two equal files of such names in a folder of such a name.
class HostileNames : public ResultFixture {
 protected:
    /// `end` is the extension of both.
    void writeFiles(const std::string& end, const std::string& content) {
        first = write(hostileStem + "/1" + hostileStem + "." + end, content);
        second = write(hostileStem + "/2" + hostileStem + "." + end, content);
    }

    [[nodiscard]] QString shownFolder() {
        return QString::fromStdString(folder.pathOf("found/")) + shownStem;
    }
    static QString shownName(int file, const QString& end) {
        return QString::number(file) + shownStem + QLatin1Char('.') + end;
    }

    [[nodiscard]] static QString dataOf(const QModelIndex& index, int role = Qt::DisplayRole) {
        return index.data(role).toString();
    }
    [[nodiscard]] QString fileData(int row, int column, int role = Qt::DisplayRole) {
        return dataOf(list().index(row, column), role);
    }
    [[nodiscard]] QString labelText(const char* name) {
        return QString::fromStdString(textOf(name));
    }
    [[nodiscard]] QString properties() { return window().results->textField->text(); }

    [[nodiscard]] std::vector<std::string> stored() {
        ExceptionFile file(folder.pathOf("support"));
        EXPECT_FALSE(file.load().has_value());
        return file.exceptionArrayData();
    }

    std::string first;
    std::string second;
};

TEST_F(HostileNames, AreShownInFullInTheOutline) {
    writeFiles(hostileEnd, "text");
    scanAndReview();
    const QModelIndex row = tree().indexOfExtension(0);
    const QModelIndex name = row.siblingAtColumn(ResultTreeView::name);
    EXPECT_EQ(dataOf(name), shownEnd);
    EXPECT_EQ(dataOf(name, Qt::ToolTipRole), shownEnd);
    EXPECT_EQ(dataOf(name, Qt::AccessibleTextRole), shownEnd);
    EXPECT_EQ(dataOf(row, Qt::AccessibleTextRole), QStringLiteral("Mark ") + shownEnd);
}

TEST_F(HostileNames, AreShownInFullInTheFileTable) {
    writeFiles(hostileEnd, "text");
    scanAndReview();
    for (const int row : {0, 1}) {
        const QString name = shownName(row + 1, shownEnd);
        EXPECT_EQ(fileData(row, ResultTable::nameText), name);
        EXPECT_EQ(fileData(row, ResultTable::fileLocation), shownFolder());
        EXPECT_EQ(fileData(row, ResultTable::nameText, Qt::ToolTipRole),
                  QStringLiteral("<span style=\"white-space:pre\">") +
                      QString(shownFolder() + QLatin1Char('/') + name).toHtmlEscaped() +
                      QStringLiteral("</span>"));
        EXPECT_EQ(fileData(row, ResultTable::ButtonCell, Qt::AccessibleTextRole),
                  QStringLiteral("Mark ") + name);
    }
}

TEST_F(HostileNames, AreShownInFullBesideThePreview) {
    writeFiles(hostileEnd, "text");
    scanAndReview();
    select(0, 0);
    const QString name = shownName(1, shownEnd);
    EXPECT_EQ(labelText("selectedPath"),
              QStringLiteral("Path: ") + shownFolder() + QLatin1Char('/') + name);
    const FileAttributes attributes = *files.attributesAtPath(first);
    EXPECT_EQ(properties(), QStringLiteral(" ") + name +
                                QStringLiteral("\nSize                       : 0.00 KB\nCreated "
                                               "Date        : ") +
                                FileProperties::dateToString(attributes.created) +
                                QStringLiteral("\nModified Date       : ") +
                                FileProperties::dateToString(attributes.modified));
    EXPECT_EQ(window().results->textField->toPlainText(), properties());
}

TEST_F(HostileNames, HaveAPreviewAndDimensions) {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const std::string plain = folder.pathOf("plain.png");
    ASSERT_TRUE(image.save(QString::fromStdString(plain)));
    writeFiles("png", "");
    for (const std::string& path : {first, second}) {
        std::filesystem::copy_file(plain, path, std::filesystem::copy_options::overwrite_existing);
    }
    scanAndReview();
    click("imageButton");
    click("scanInforOKBtn");
    select(0, 0);
    const QString name = shownName(1, QStringLiteral("png"));
    EXPECT_TRUE(
        comesTrue([this] { return window().results->imView->image().size() == QSize(40, 30); }));
    const FileAttributes attributes = *files.attributesAtPath(first);
    EXPECT_EQ(properties().section(QLatin1Char('\n'), 0, 0), QStringLiteral(" ") + name);
    EXPECT_EQ(properties().section(QLatin1Char('\n'), 2),
              QStringLiteral("Image Dimensions   : 40x30\nCreated Date           : ") +
                  FileProperties::dateToString(attributes.created) +
                  QStringLiteral("\nModified Date         : ") +
                  FileProperties::dateToString(attributes.modified));
}

TEST_F(HostileNames, AreShownInFullInTheProgress) {
    writeFiles(hostileEnd, "text");
    // The first file that is read stays the current one until its name has been reported.
    Barrier barrier;
    files.beforeCall(
        FileCall::openFile, FaultyFileSystem::each, [&barrier] { barrier.wait(); }, "found/");
    launch({folder.makeFolder("found")});
    const ElidedLabel* label = control<ElidedLabel>("similarProcessing");
    click("findDuplicateExact");
    const QString path = shownFolder() + QLatin1Char('/') + shownName(1, shownEnd);
    EXPECT_TRUE(comesTrue([&] {
        return label->text() == QStringLiteral("Processing File: ") + path;
    })) << qPrintable(label->text());
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(HostileNames, AreOpenedByTheirBytes) {
    writeFiles(hostileEnd, "text");
    scanAndReview();
    const QPoint position = table().visualRect(list().index(1, ResultTable::nameText)).center();
    QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, position);
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, position);
    ASSERT_TRUE(comesTrue([this] { return !desktop.paths.empty(); }));
    EXPECT_EQ(desktop.paths, Lines{second});
}

TEST_F(HostileNames, AreExcludedByTheirBytes) {
    writeFiles(hostileEnd, "text");
    scanAndReview();
    clickFileBox(1);
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 1");
    click("addEceptionBtn");
    click("excOKBtn");
    EXPECT_EQ(information()[1], "\nSuccessfully added 1 files to exceptions.");
    EXPECT_TRUE(comesTrue([this] { return stored() == Lines{second}; }));
    click("scanInforOKBtn");
    click("buttonHomePage");
    delegate->locations().openWith({folder.pathOf("found")});
    click("findDuplicateExact");
    ASSERT_TRUE(comesTo("4"));
    EXPECT_EQ(information()[3], "Others: 0");
}

TEST_F(HostileNames, AreMovedByTheirBytes) {
    writeFiles(hostileEnd, "text");
    scanAndReview();
    clickFileBox(0);
    click("finishButton");
    ASSERT_TRUE(comesTrue([this] { return !information().empty(); }));
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 1");
    EXPECT_EQ(platform.trash().moves(), Lines{first});
    EXPECT_FALSE(std::filesystem::exists(first));
    EXPECT_TRUE(std::filesystem::exists(second));
    click("scanInforOKBtn");
    EXPECT_EQ(fileData(0, ResultTable::nameText), shownName(2, shownEnd));
}

}  // namespace
}  // namespace tarvin
