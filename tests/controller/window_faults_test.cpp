#include "controller/product_fixture.h"
#include "controls/hover_button.h"
#include "controls/windows_like_button.h"
#include "interface/about_panel.h"
#include "interface/home_screen.h"
#include "interface/location_screen.h"
#include "interface/location_table.h"
#include "interface/notice_panel.h"
#include "interface/text_block.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QLabel>
#include <QMimeData>
#include <QUrl>
#include <cerrno>
#include <filesystem>

namespace tarvin {
namespace {

/// Drops from other programs onto the list, with real drag-and-drop events.
class DropOntoTheWindow : public ProductFixture {
 protected:
    void SetUp() override {
        launch();
        click("mainScanButtonFolder");
    }

    /// Whether the list accepts a drop below the rows.
    bool drop(const QMimeData& data) {
        QWidget* list = window().locations->tableExact->viewport();
        const QPoint position(list->width() / 2, list->height() - 2);
        QDragEnterEvent enter(position, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list, &enter);
        QDragMoveEvent move(position, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list, &move);
        if (!enter.isAccepted() || !move.isAccepted()) {
            return false;
        }
        QDropEvent drop(position, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list, &drop);
        return drop.isAccepted();
    }

    void dropUrls(const QByteArray& lines) {
        QMimeData data;
        data.setData(QStringLiteral("text/uri-list"), lines);
        drop(data);
    }

    [[nodiscard]] QByteArray fileUrl(const std::string& path) {
        return QUrl::fromLocalFile(QString::fromStdString(path)).toEncoded() + "\r\n";
    }

    [[nodiscard]] const std::vector<LocationRow>& rows() {
        return delegate->locations().list().rows();
    }

    [[nodiscard]] QString notice() {
        return window().runningAlert->isVisible() ? window().runningAlertText->text() : QString();
    }
};

TEST_F(DropOntoTheWindow, OfAFolderAddsItAndOffersTheScan) {
    dropUrls(fileUrl(folder.makeFolder("Music")));
    ASSERT_EQ(rows().size(), 5U);
    EXPECT_EQ(rows().back().name, folder.pathOf("Music"));
    EXPECT_TRUE(window().locations->findDuplicateExact->isEnabled());
    EXPECT_EQ(notice(), QString());
}

TEST_F(DropOntoTheWindow, OfAFolderThatIsCoveredSaysSo) {
    dropUrls(fileUrl(folder.makeFolder("Pictures/2022")));
    EXPECT_EQ(rows().size(), 4U);
    EXPECT_EQ(notice(), QStringLiteral("File already added."));
    EXPECT_FALSE(window().locations->findDuplicateExact->isEnabled());
}

TEST_F(DropOntoTheWindow, OfAFileThatIsNoImageSaysSo) {
    dropUrls(fileUrl(folder.writeFile("notes.txt", "text")));
    EXPECT_EQ(rows().size(), 4U);
    EXPECT_EQ(notice(), QStringLiteral("Unsupported file."));
}

TEST_F(DropOntoTheWindow, OfAListedFolderAndANewImageAddsTheImageAndSaysNothing) {
    dropUrls(fileUrl(folder.pathOf("Pictures")) + fileUrl(folder.writeFile("a.jpg", "x")));
    ASSERT_EQ(rows().size(), 5U);
    EXPECT_EQ(rows().back().name, folder.pathOf("a.jpg"));
    EXPECT_EQ(notice(), QString());
}

TEST_F(DropOntoTheWindow, OfATextOrAWebUrlChangesNothing) {
    QMimeData text;
    text.setText(QStringLiteral("holiday"));
    drop(text);
    dropUrls("https://example.org/picture.jpg\r\n");
    EXPECT_EQ(rows().size(), 4U);
    EXPECT_EQ(notice(), QString());
}

TEST_F(DropOntoTheWindow, OfTenThousandFilesAddsThemAll) {
    QByteArray lines;
    for (int number = 0; number < 10000; ++number) {
        lines += fileUrl(folder.writeFile("many/" + std::to_string(number) + ".jpg", "x"));
    }
    dropUrls(lines);
    EXPECT_EQ(rows().size(), 10004U);
    EXPECT_TRUE(window().locations->findDuplicateExact->isEnabled());
    EXPECT_EQ(notice(), QString());
}

TEST_F(DropOntoTheWindow, OfANameThatIsNotTextKeepsItsBytes) {
    const std::string path = folder.makeFolder("M\xFCsik");
    QByteArray encoded = "file://";
    encoded += QByteArray::fromStdString(path).toPercentEncoding("/");
    dropUrls(encoded + "\r\n");
    ASSERT_EQ(rows().size(), 5U);
    EXPECT_EQ(rows().back().name, path);
}

/// Folders and files that vanish or cannot be read.
class Faults : public ProductFixture {
 protected:
    void openRow(int row) {
        LocationTable& table = *window().locations->tableExact;
        const QPoint position =
            table.visualRect(table.model()->index(row, LocationTable::mainCell)).center();
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, position);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, position);
    }
};

TEST_F(Faults, AnUnreadableFolderOpensNothing) {
    folder.makeFolder("Pictures/inside");
    files.failCall(FileCall::openRootDirectory, FaultyFileSystem::each, EACCES, "Pictures");
    launch();
    click("mainScanButtonFolder");
    openRow(2);
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_EQ(alerts.shown[0].informativeText, QStringLiteral("No Folders."));
    EXPECT_EQ(delegate->locations().list().rows().size(), 4U);
    EXPECT_FALSE(window().locations->backFolderButton->isEnabled());
}

TEST_F(Faults, AVolumeThatVanishesIsGoneAtTheNextEntry) {
    launch();
    click("mainScanButton");
    EXPECT_EQ(delegate->locations().list().rows().size(), 1U);
    click("buttonHomeExactPage");
    platform.setMountedVolumes({});
    click("mainScanButton");
    EXPECT_TRUE(delegate->locations().list().rows().empty());
}

TEST_F(Faults, AVolumeThatVanishedBeforeTheScanHasNothingToCompare) {
    folder.writeFile("volume/a.jpg", "equal");
    folder.writeFile("volume/b.jpg", "equal");
    launch({folder.pathOf("volume")});
    std::filesystem::remove_all(folder.pathOf("volume"));
    click("findDuplicateExact");
    EXPECT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    EXPECT_EQ(alerts.shown[0].informativeText, QStringLiteral("No duplicates File found"));
}

TEST_F(Faults, AVolumeThatVanishesDuringTheScanLeavesTheRest) {
    for (const char* name : {"kept/a.jpg", "kept/b.jpg", "stick/c.jpg", "stick/d.jpg"}) {
        folder.writeFile(name, "equal");
    }
    files.beforeCall(FileCall::openFile, 1,
                     [this] { std::filesystem::remove_all(folder.pathOf("stick")); });
    launch({folder.pathOf("kept"), folder.pathOf("stick")});
    click("findDuplicateExact");
    EXPECT_TRUE(comesTo("4"));
    EXPECT_EQ(delegate->scan().run().result().modal->totalFiles(), 1U);
}

TEST_F(Faults, DamagedStoredFilesCountAsEmpty) {
    folder.writeFile("support/data.plist", "nonsense");
    folder.writeFile("support/exception.plist", "nonsense");
    launch();
    EXPECT_FALSE(window().home->cleanHistory->isVisible());
    EXPECT_TRUE(delegate->session().exceptionArrayData().empty());
}

/// Closing the window in different states.
class Closing : public ProductFixture {
 protected:
    void SetUp() override { launch(); }
    void expectEnd() {
        EXPECT_TRUE(window().close());
        EXPECT_FALSE(window().isVisible());
        EXPECT_GE(terminations, 1);
    }
};

TEST_F(Closing, AtHomeEnds) {
    expectEnd();
}

TEST_F(Closing, OverTheLocationsEnds) {
    click("mainScanButtonFolder");
    expectEnd();
}

TEST_F(Closing, BehindANoticeEnds) {
    click("mainScanButtonFolder");
    panels.choice = {{folder.pathOf("Pictures")}};
    click("addFolders");
    ASSERT_TRUE(window().runningAlert->isVisible());
    expectEnd();
}

TEST_F(Closing, BehindTheAboutPanelEnds) {
    window().aboutMenuItem->trigger();
    ASSERT_TRUE(window().windowAboutPanel->isVisible());
    expectEnd();
}

/// In each state of a scan the window stays open, and closing the notice resumes the scan.
TEST_F(Closing, IsRefusedWhileFilesAreCollected) {
    folder.writeFile("Pictures/a.jpg", "equal");
    Barrier barrier;
    files.beforeCall(FileCall::listEntries, 1, [&barrier] { barrier.wait(); }, "Pictures");
    delegate->locations().openWith({folder.pathOf("Pictures")});
    click("findDuplicateExact");
    ASSERT_TRUE(comesTrue([&] { return barrier.isReached(); }));
    EXPECT_FALSE(window().close());
    EXPECT_TRUE(delegate->scan().run().pause());
    click("runningAlertOk");
    EXPECT_FALSE(delegate->scan().run().pause());
    click("pauseResume");
    EXPECT_FALSE(window().close());
    click("runningAlertOk");
    EXPECT_FALSE(delegate->scan().run().pause());
    EXPECT_EQ(terminations, 0);
    barrier.open();
    EXPECT_TRUE(comesTo("4"));
}

TEST_F(Closing, IsRefusedDuringTheNoticeOfNoFiles) {
    delegate->locations().openWith({folder.pathOf("Pictures")});
    click("findDuplicateExact");
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    EXPECT_FALSE(window().close());
    click("runningAlertOk");
    alerts.press(0);
    EXPECT_EQ(screen(), QStringLiteral("1"));
    expectEnd();
}

TEST_F(Closing, OverAResultEnds) {
    folder.writeFile("Pictures/a.jpg", "equal");
    folder.writeFile("Pictures/b.jpg", "equal");
    delegate->locations().openWith({folder.pathOf("Pictures")});
    click("findDuplicateExact");
    ASSERT_TRUE(comesTo("4"));
    expectEnd();
}

}  // namespace
}  // namespace tarvin
