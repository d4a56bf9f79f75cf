#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "controls/progress_bar.h"
#include "controls/scan_animation.h"
#include "controls/windows_like_button.h"
#include "interface/home_screen.h"
#include "interface/notice_panel.h"
#include "interface/picture_view.h"
#include "interface/progress_screen.h"
#include "interface/text_block.h"
#include "interface/window_screenshots.h"

#include <QLabel>
#include <QMenu>

namespace tarvin {

namespace {

class ScreenshotTest : public WindowScreenshots {
 protected:
    ScreenshotTest() {
        window.home->homePage->setPictureName(QStringLiteral("HomePage1.png"));
        window.home->cleanHistory->setText(QStringLiteral("Files cleaned so far: 1284 (18.62 GB)"));
        window.home->cleanHistory->show();
    }
    ~ScreenshotTest() override { window.locations->tableExact->setModel(nullptr); }

    void fillFolders() {
        const QString folder = QStringLiteral("folder.png");
        const QString pictures = QStringLiteral("/home/me/Pictures/");
        rows.add(pictures + QStringLiteral("2022 Norway"), folder, true);
        rows.add(pictures + QStringLiteral("2023 Summer"), folder, true);
        rows.add(pictures + QStringLiteral("Camera Uploads"), folder, false);
        rows.add(pictures + QStringLiteral("Scans"), folder, false);
        rows.add(QStringLiteral("/home/me/Desktop/For print/lake-morning.jpg"),
                 QStringLiteral("image_info.png"), true, QStringLiteral("4.87 MB"));
        window.locations->tableExact->setModel(&rows);
        window.locations->tableExact->selectRow(4);
        window.locations->nextFolderButton->setEnabled(false);
    }

    void showScan() {
        window.selectTabViewItem(QStringLiteral("5"));
        window.buttonHelpManual->setEnabled(false);
        window.progress->textelapse->setText(QStringLiteral("Elapsed Time: 00:03:42"));
        window.progress->similarIndicator->setTotal(100);
        window.progress->similarIndicator->setDone(62);
        window.progress->similarProcessing->setText(
            QStringLiteral("Processing File: /home/me/Pictures/2023 Summer/IMG_2041.jpg"));
    }

    SomeLocations rows;
};

TEST_F(ScreenshotTest, Home) {
    take(QStringLiteral("01-home"));
}

TEST_F(ScreenshotTest, HomeWithTheFocusAndTheMenu) {
    window.home->homePage->setPictureName(QStringLiteral("HomePage2.png"));
    window.home->cleanHistory->hide();
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    QTest::keyClick(window.focusWidget(), Qt::Key_Backtab);
    take(QStringLiteral("02-home-keyboard"));
    window.popUpHelpMenu();
    QTest::mouseMove(window.helpMenu,
                     window.helpMenu->actionGeometry(window.helpMenuItem).center());
    const QImage menu = window.helpMenu->grab().toImage();
    saveScreenshot(menu, QStringLiteral("02-help-menu"));
    expectAsReference(menu, QStringLiteral("02-help-menu"));
    window.helpMenu->close();
}

TEST_F(ScreenshotTest, About) {
    window.home->homePage->setPictureName(QStringLiteral("HomePage3.png"));
    window.aboutVersion->setText(QStringLiteral("Version 1.0"));
    window.showAbout();
    take(QStringLiteral("03-about"));
}

TEST_F(ScreenshotTest, Drives) {
    rows.setHorizontalHeaderLabels({QStringLiteral("Select Drive"), QStringLiteral("Scan")});
    const QString usb = QStringLiteral("usb_drive.png");
    const QString drive = QStringLiteral("g5_apple_drive.png");
    rows.add(QStringLiteral("/media/me/CAMERA_SD"), usb, true);
    rows.add(QStringLiteral("/media/me/Photo Archive"), drive, true);
    rows.add(QStringLiteral("/media/me/Backup 2TB"), drive, false);
    rows.add(QStringLiteral("/media/me/TRAVEL STICK"), usb, false);
    rows.add(QStringLiteral("/media/me/Studio"), QStringLiteral("folder.png"), false);
    window.locations->tableExact->setModel(&rows);
    window.locations->tableExact->selectRow(1);
    window.locations->backFolderButton->setEnabled(false);
    window.locations->nextFolderButton->setEnabled(false);
    window.selectTabViewItem(QStringLiteral("2"));
    take(QStringLiteral("04-locations-drives"));
}

TEST_F(ScreenshotTest, Folders) {
    fillFolders();
    window.selectTabViewItem(QStringLiteral("2"));
    take(QStringLiteral("05-locations-folders"));
}

TEST_F(ScreenshotTest, NoticeOfTheList) {
    fillFolders();
    window.selectTabViewItem(QStringLiteral("2"));
    window.runningAlertText->setText(QStringLiteral("File already added."));
    window.showNoticeInList(window.runningAlert, {220, 50});
    take(QStringLiteral("06-locations-notice"));
}

TEST_F(ScreenshotTest, EmptyList) {
    window.selectTabViewItem(QStringLiteral("2"));
    window.locations->tableExact->setModel(&rows);
    window.locations->findDuplicateExact->setEnabled(false);
    window.locations->markAllExactBtn->setEnabled(false);
    window.locations->unmarkAllExactBtn->setEnabled(false);
    window.locations->removeFromListExactBtn->setEnabled(false);
    take(QStringLiteral("06b-locations-empty"));
}

TEST_F(ScreenshotTest, Scan) {
    showScan();
    take(QStringLiteral("08-scan-progress"));
}

TEST_F(ScreenshotTest, ScanWithDetails) {
    showScan();
    window.progress->progressDetails->setText(
        QStringLiteral("12.4 GB of 80.1 GB compared · about 3 minutes left"));
    take(QStringLiteral("29-progress-details"));
}

TEST_F(ScreenshotTest, ScanThatStops) {
    showScan();
    window.progress->progressDetails->setText(QStringLiteral("12.4 GB of 80.1 GB compared"));
    window.progress->pauseResume->setEnabled(false);
    window.progress->stopButton->setEnabled(false);
    window.progress->showState(QStringLiteral("Stopping…"));
    take(QStringLiteral("30-progress-stopping"));
}

TEST_F(ScreenshotTest, PausedScan) {
    showScan();
    window.progress->progressDetails->setText(QStringLiteral("12.4 GB of 80.1 GB compared"));
    window.progress->pauseResume->setTitle(QStringLiteral("Resume"));
    window.progress->stopButton->setEnabled(false);
    window.progress->showState(QStringLiteral("Paused"));
    take(QStringLiteral("31-progress-paused"));
}

TEST_F(ScreenshotTest, StopQuestion) {
    showScan();
    window.progress->pauseResume->setTitle(QStringLiteral("Resume"));
    window.progress->pauseResume->setEnabled(false);
    window.progress->stopButton->setEnabled(false);
    window.showNotice(window.confirmationView, {350, 235});
    take(QStringLiteral("09-scan-stop-confirmation"));
}

TEST_F(ScreenshotTest, NoticeOfClosing) {
    showScan();
    window.runningAlertText->setText(
        QStringLiteral("A operation is in progress. Please stop the current process."));
    window.showNotice(window.runningAlert, {275, 225});
    take(QStringLiteral("10-scan-close-notice"));
}

TEST_F(ScreenshotTest, LargeWindow) {
    fillFolders();
    window.selectTabViewItem(QStringLiteral("2"));
    resizeTo({1440, 900});
    take(QStringLiteral("20-locations-large"));
}

}  // namespace

}  // namespace tarvin
