#include "controller/file_reasons.h"
#include "controller/put_back_list.h"
#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/menu_button.h"
#include "controls/progress_bar.h"
#include "controls/tab_button.h"
#include "interface/home_screen.h"
#include "interface/list_panel.h"
#include "interface/list_table.h"
#include "interface/picture_view.h"
#include "interface/put_back_panels.h"
#include "interface/result_panels.h"
#include "interface/some_results.h"
#include "interface/text_block.h"
#include "interface/window_screenshots.h"

#include <QLabel>
#include <QMenu>
#include <cerrno>

namespace tarvin {

namespace {

/// The panels after a clean-up and of putting it back, over the results.
class CleanUpScreenshotTest : public WindowScreenshots {
 protected:
    CleanUpScreenshotTest() {
        screen.OView2->setModel(&result.sets);
        screen.OView2->expandAll();
        screen.OView2->selectSet(result.sets.setAt(0, 0));
        screen.resultTable->setModel(&result.files);
        screen.resultTable->selectRow(0);
        screen.allButton->setEnabled(false);
        window.selectTabViewItem(screen.identifier());
    }
    ~CleanUpScreenshotTest() override {
        for (ListTable* table :
             {window.keptWindow->table, window.notReadWindow->table,
              window.putBackWindow->putBackTable, window.putBackReport->putBackFailures}) {
            table->setModel(nullptr);
        }
        screen.OView2->setModel(nullptr);
        screen.resultTable->setModel(nullptr);
    }

    /// At the size of the design, and enlarged.
    void takeBoth(const QString& name) {
        take(name);
        resizeTo({1400, 900});
        take(name + QStringLiteral("-large"));
    }

    void inform(const QString& header, const QStringList& lines) {
        InformationPanel& panel = *window.informationWindow;
        panel.informationHeader->setText(header);
        panel.scanInfoCount->setText(lines.value(0));
        panel.scanInfoSize->setText(lines.value(1));
        panel.scanInfoImage->setPictureName(QStringLiteral("common_info"));
        panel.scanInforOKBtn->setTitle(QStringLiteral("Ok"));
        window.showOver(&panel, QPoint(250, 200));
    }

    static PutBackFile file(const char* path, PutBackOutcome outcome, const char* name = "") {
        PutBackFile file;
        file.path = path;
        file.outcome = outcome;
        file.name = name;
        return file;
    }

    DrawnResult result{true};
    ResultScreen& screen = *window.results;
    FileReasons reasons;
    PutBackList files;
};

TEST_F(CleanUpScreenshotTest, TheMoreMenu) {
    window.buttonMore->click();
    ASSERT_TRUE(QTest::qWaitFor([this] { return window.moreMenu->isVisible(); }, 20000));
    take(QStringLiteral("23-more-open"));
    saveScreenshot(window.moreMenu->grab().toImage(), QStringLiteral("23-more-menu"));
    window.moreMenu->close();
}

TEST_F(CleanUpScreenshotTest, AReportWithFilesLeft) {
    window.informationWindow->setKeptLine(QStringLiteral("12 files were left where they are."));
    inform(QStringLiteral("Information"), {QStringLiteral("Duplicates Cleaned: 1394"),
                                           QStringLiteral("Space Regained: 139.54 MB ")});
    takeBoth(QStringLiteral("34-report-kept"));
}

TEST_F(CleanUpScreenshotTest, TheFilesLeft) {
    const QString changed = QStringLiteral("Changed since the scan");
    const QString full = QStringLiteral("The Trash of this volume is full");
    reasons.setFiles(
        {fileReason("/home/anna/Documents/Thesis/chapter-4.odt", changed),
         fileReason("/media/anna/Photo archive/Import/2023-08-14/IMG_2041.jpg", full),
         fileReason("/media/anna/Photo archive/Import/2023-08-14/IMG_2055.jpg", full),
         fileReason("/home/anna/Music/Nursery/lullaby.mp3",
                    QStringLiteral("No other copy is left")),
         fileReason("/home/anna/Downloads/map (1).png", QStringLiteral("Not there any more")),
         fileReason("/home/anna/Documents/Papers/Work/2025/report-final.pdf", changed),
         fileReason("/srv/share/office/tax-2024.ods", QStringLiteral("Permission denied")),
         fileReason("/srv/share/office/tax-2025.ods", QStringLiteral("Permission denied"))},
        12);
    window.keptWindow->table->setModel(&reasons);
    window.showOver(window.keptWindow, ListPanel::designGeometry, halfOfGain, halfOfGain);
    takeBoth(QStringLiteral("34-report-kept-list"));
}

TEST_F(CleanUpScreenshotTest, TheNoticeOfUnreadableFiles) {
    screen.setNotRead(QStringLiteral("3 folders and 12 files could not be read."));
    QCoreApplication::sendPostedEvents();
    takeBoth(QStringLiteral("32-could-not-read"));
}

TEST_F(CleanUpScreenshotTest, TheUnreadableFiles) {
    using Kind = FileReason::Kind;
    const QString denied = QStringLiteral("Permission denied");
    const QString error = QStringLiteral("Input/output error");
    reasons.setFiles(
        {fileReason("/media/anna/Photo archive/lost+found", denied, Kind::folder),
         fileReason("/home/ben/private", denied, Kind::folder),
         fileReason("/media/anna/SD card/DCIM", error, Kind::folder),
         fileReason("/home/anna/Documents/Contracts/contract-2019.pdf", denied, Kind::file),
         fileReason("/media/anna/SD card of the camera/DCIM/100CANON/IMG_0713.CR2", error,
                    Kind::file),
         fileReason("/media/anna/SD card of the camera/DCIM/100CANON/IMG_0714.CR2", error,
                    Kind::file),
         fileReason("/home/anna/Films/wedding-raw.mov", error, Kind::file),
         fileReason("/home/anna/Films/wedding.mov", error, Kind::file)},
        15);
    screen.setNotRead(QStringLiteral("3 folders and 12 files could not be read."));
    window.notReadWindow->table->setModel(&reasons);
    window.showOver(window.notReadWindow, ListPanel::designGeometry, halfOfGain, halfOfGain);
    QCoreApplication::sendPostedEvents();
    takeBoth(QStringLiteral("32-could-not-read-list"));
}

TEST_F(CleanUpScreenshotTest, TheQuestionOfPuttingBack) {
    PutBackForecast forecast;
    forecast.add(
        file("/home/anna/Documents/Invoices/2024/invoice-2024-03.pdf", PutBackOutcome::lost));
    forecast.add(
        file("/media/anna/USB stick/Backup/2025-12/notes.txt", PutBackOutcome::notAttached));
    forecast.add(file("/home/anna/Pictures/2023 Summer/beach.jpg", PutBackOutcome::underOtherName,
                      "beach (put back).jpg"));
    forecast.add(file("/home/anna/Documents/Thesis/old versions/chapter-4-draft.odt",
                      PutBackOutcome::withItsFolder));
    for (int number = 0; number < 20; ++number) {
        forecast.add(file("/home/anna/Videos/holiday copy.mov", PutBackOutcome::toItsPlace));
    }
    files.setFiles(forecast);
    PutBackPanel& panel = *window.putBackWindow;
    panel.putBackTable->setModel(&files);
    panel.putBackDate->setText(QStringLiteral("21 November 2026, 14:32"));
    panel.putBackTotal->setText(QStringLiteral("1,406 files (157.46 MB)"));
    panel.putBackOutcome->setText(QStringLiteral("1,404 files will be put back."));
    panel.putBackCannot->setText(QStringLiteral("2 files cannot be put back."));
    window.showOver(&panel, PutBackPanel::designGeometry, halfOfGain, halfOfGain);
    takeBoth(QStringLiteral("27-put-back"));
}

TEST_F(CleanUpScreenshotTest, TheProgressOfPuttingBack) {
    PutBackProgress& panel = *window.putBackProgress;
    panel.putBackIndicator->setTotal(1404);
    panel.putBackIndicator->setDone(412);
    panel.putBackProcessing->setText(
        QStringLiteral("412 of 1,404 files. Nothing that is there now is replaced."));
    window.showOver(&panel, PutBackProgress::designGeometry);
    takeBoth(QStringLiteral("27-put-back-running"));
}

TEST_F(CleanUpScreenshotTest, TheReportOfPuttingBack) {
    reasons.setFiles(
        {fileReason("/home/anna/Documents/Papers/Invoices/2024/invoice-2024-03.pdf",
                    QStringLiteral("No longer in the Trash")),
         fileReason("/media/anna/USB stick of anna/Backup/2025-12/notes.txt",
                    QStringLiteral("Drive not attached")),
         fileReason("/usr/local/share/fonts/fonts.zip", QStringLiteral("Permission denied"))},
        3);
    PutBackReport& panel = *window.putBackReport;
    panel.putBackFailures->setModel(&reasons);
    panel.putBackReportCount->setText(QStringLiteral("Files Put Back: 1,403"));
    panel.putBackReportSize->setText(QStringLiteral("Size: 157.12 MB"));
    panel.putBackReportFailed->setText(QStringLiteral("3 files could not be put back:"));
    panel.putBackReportHint->setText(
        QStringLiteral("Scan again to see these files in the results."));
    window.showOver(&panel, PutBackReport::designGeometry);
    takeBoth(QStringLiteral("28-put-back-done"));
}

TEST_F(CleanUpScreenshotTest, NothingToPutBack) {
    inform(QStringLiteral("Put Back Last Clean-up"),
           {QStringLiteral("There is nothing to put back."),
            QStringLiteral("Nothing has been cleaned up yet.")});
    take(QStringLiteral("36-put-back-nothing"));
}

}  // namespace

}  // namespace tarvin
