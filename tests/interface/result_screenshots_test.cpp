#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/pop_up_button.h"
#include "controls/progress_bar.h"
#include "controls/tab_button.h"
#include "interface/image_view.h"
#include "interface/picture_view.h"
#include "interface/property_text.h"
#include "interface/result_panels.h"
#include "interface/some_results.h"
#include "interface/text_block.h"
#include "interface/window_screenshots.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QSvgRenderer>
#include <memory>

namespace tarvin {

namespace {

QImage lake() {
    QImage image(504, 378, QImage::Format_RGB32);
    QSvgRenderer renderer(QStringLiteral(TARVIN_REFERENCE_IMAGES "/lake.svg"));
    EXPECT_TRUE(renderer.isValid());
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

/// The states of the results and of the panels over them.
class ResultScreenshotTest : public WindowScreenshots {
 protected:
    ~ResultScreenshotTest() override {
        screen.OView2->setModel(nullptr);
        screen.resultTable->setModel(nullptr);
    }

    void show(bool marked) {
        result = std::make_unique<DrawnResult>(marked);
        screen.OView2->setModel(&result->sets);
        screen.OView2->expandAll();
        screen.OView2->selectSet(result->sets.setAt(0, 0));
        screen.resultTable->setModel(&result->files);
        screen.resultTable->selectRow(0);
        screen.imView->setImage(lake());
        screen.textField->setText(QStringLiteral(
            " IMG_2041.jpg\nSize                       : 4.87 MB\nCreated Date       "
            " : 2023-08-14 06:42:19\nModified Date       : 2023-08-14 06:42:19"));
        screen.selectedPath->setText(
            QStringLiteral("Path: /Users/me/Pictures/2023 Summer/IMG_2041.jpg"));
        screen.allButton->setEnabled(false);
        if (marked) {
            showTotals(12, "58.36 MB");
        } else {
            showNothingMarked();
        }
        window.selectTabViewItem(screen.identifier());
    }

    void showNothingMarked() {
        showTotals(0, "0.00 KB");
        screen.unMarkAll->setEnabled(false);
        screen.addEceptionBtn->setEnabled(false);
    }

    void showTotals(int files, const char* size) {
        screen.selectedCount->setText(QStringLiteral("Marked Duplicate Files: %1").arg(files));
        screen.selectedSize->setText(
            QStringLiteral("Marked File Size: %1").arg(QLatin1String(size)));
    }

    void inform(const char* header, const QStringList& lines, const char* image,
                const char* answer) {
        InformationPanel& panel = *window.informationWindow;
        panel.informationHeader->setText(QLatin1String(header));
        panel.scanInfoCount->setText(lines.value(0));
        panel.scanInfoSize->setText(lines.value(1));
        panel.scanOtherInfo->setText(lines.value(2));
        panel.scanInfoImage->setPictureName(QLatin1String(image));
        panel.scanInforOKBtn->setTitle(QLatin1String(answer));
        window.showOver(&panel, {250, 200});
    }

    ResultScreen& screen = *window.results;
    std::unique_ptr<DrawnResult> result;
};

TEST_F(ResultScreenshotTest, AllTab) {
    show(true);
    take(QStringLiteral("11-results"));
}

/// Selecting a view clears all marks.
TEST_F(ResultScreenshotTest, ImageTab) {
    show(false);
    screen.removeExceptionBtn->setEnabled(false);
    screen.allButton->setEnabled(true);
    screen.imageButton->setEnabled(false);
    while (result->sets.rowCount() > 2) {
        result->sets.removeRow(2);
    }
    screen.textField->setText(
        QStringLiteral(" IMG_2041.jpg\nSize                          : 4.87 MB\nImage Dimensions   "
                       ": 4032x3024\nCreated Date           : 2023-08-14 06:42:19\nModified Date   "
                       "      : 2023-08-14 06:42:19"));
    take(QStringLiteral("12-results-image-tab"));
}

TEST_F(ResultScreenshotTest, TheFocusInTheTree) {
    show(true);
    QTest::keyClick(screen.resultTable, Qt::Key_Backtab);
    for (int step = 0; step < 3; ++step) {
        QTest::keyClick(screen.OView2, Qt::Key_Down);
    }
    QTest::keyClick(screen.OView2, Qt::Key_Left);
    take(QStringLiteral("11b-results-keyboard"));
}

TEST_F(ResultScreenshotTest, NothingFound) {
    window.selectTabViewItem(screen.identifier());
    screen.allButton->setEnabled(false);
    showTotals(0, "0.00 KB");
    for (QWidget* button : {screen.markAll, screen.unMarkAll, screen.addEceptionBtn}) {
        button->setEnabled(false);
    }
    screen.sortPopupBtn->setEnabled(false);
    screen.removeExceptionBtn->setEnabled(false);
    SomeSets noSets;
    SomeFiles noFiles;
    screen.OView2->setModel(&noSets);
    screen.resultTable->setModel(&noFiles);
    take(QStringLiteral("11c-results-empty"));
    screen.OView2->setModel(nullptr);
    screen.resultTable->setModel(nullptr);
}

TEST_F(ResultScreenshotTest, OpenedLists) {
    show(true);
    const auto keep = [](QWidget* opened, const QString& name) {
        ASSERT_TRUE(QTest::qWaitForWindowExposed(opened, 20000));
        const QImage image = opened->grab().toImage().convertToFormat(QImage::Format_RGB32);
        saveScreenshot(image, name);
        expectAsReference(image, name);
    };
    screen.sortPopupBtn->showPopup();
    keep(screen.sortPopupBtn->view()->window(), QStringLiteral("11d-sort-list"));
    screen.sortPopupBtn->hidePopup();
    Q_EMIT screen.OView2->customContextMenuRequested({80, 40});
    keep(screen.outlineMenu, QStringLiteral("11e-tree-menu"));
    screen.outlineMenu->close();
}

TEST_F(ResultScreenshotTest, Summary) {
    show(false);
    inform(
        "Duplicates Found",
        {QStringLiteral("Media: 13"), QStringLiteral("Documents: 3"), QStringLiteral("Others: 3")},
        "common_info", "Review");
    take(QStringLiteral("13-results-summary"));
}

TEST_F(ResultScreenshotTest, Loading) {
    show(false);
    window.loadingView->show();
    take(QStringLiteral("14-results-loading"));
}

TEST_F(ResultScreenshotTest, Deletion) {
    show(true);
    screen.buttonHomePage->hide();
    screen.resultTable->hide();
    screen.finishButton->setEnabled(false);
    DeletionPanel& panel = *window.deletionPreview;
    panel.deletionIndicator->setTotal(100);
    panel.deletionIndicator->setDone(17);
    window.showOver(&panel, {205, 114});
    panel.deletionIndicator->clock().stop();
    panel.deletionIndicator->clock().setPhase(0.5);
    take(QStringLiteral("15-results-deletion"));
}

TEST_F(ResultScreenshotTest, Report) {
    show(true);
    result->clean();
    showNothingMarked();
    inform("Information",
           {QStringLiteral("Duplicates Cleaned: 12"), QStringLiteral("Space Regained: 58.36 MB ")},
           "common_info", "Ok");
    take(QStringLiteral("16-results-report"));
}

TEST_F(ResultScreenshotTest, ExceptionQuestion) {
    show(true);
    window.exceptionWindow->exceptionTextField->setText(
        QStringLiteral("The selected files will be excluded from all future scans. Press \"OK\" to "
                       "exclude."));
    QTest::keyClick(screen.resultTable, Qt::Key_Tab);
    window.showOver(window.exceptionWindow, {300, 200});
    take(QStringLiteral("17-results-exception-question"));
}

TEST_F(ResultScreenshotTest, EmptyCategory) {
    show(true);
    result->sets.removeRow(2);
    showTotals(11, "36.12 MB");
    inform("Information", {QStringLiteral("No Video Duplicates Found")}, "video_info", "Ok");
    take(QStringLiteral("18-results-empty-category"));
}

TEST_F(ResultScreenshotTest, LargeWindow) {
    show(true);
    resizeTo({1440, 900});
    take(QStringLiteral("19-results-large"));
}

}  // namespace

}  // namespace tarvin
