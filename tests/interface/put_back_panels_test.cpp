#include "interface/put_back_panels.h"

#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/progress_bar.h"
#include "interface/list_table.h"
#include "interface/shown_window.h"
#include "interface/text_block.h"

#include <QHeaderView>
#include <QLabel>
#include <QSignalSpy>

namespace tarvin {

namespace {

class PutBackPanelsTest : public ShownWindow {
 protected:
    PutBackPanelsTest() {
        rows.setHorizontalHeaderLabels(
            {QStringLiteral("File and folder it goes back to"), QStringLiteral("Status")});
        for (int row = 0; row < 20; ++row) {
            auto* file = new QStandardItem(QStringLiteral("beach.jpg"));
            file->setData(QStringLiteral("/home/anna/Pictures"), ListTable::secondLineRole);
            rows.appendRow({file, new QStandardItem(QStringLiteral("Ready"))});
        }
        question.putBackTable->setModel(&rows);
    }
    ~PutBackPanelsTest() override { question.putBackTable->setModel(nullptr); }

    void ask() {
        window.showOver(&question, PutBackPanel::designGeometry, halfOfGain, halfOfGain);
        QCoreApplication::sendPostedEvents();
    }

    [[nodiscard]] QString visited(int stops) {
        QStringList names;
        for (int stop = 0; stop < stops; ++stop) {
            names.push_back(window.focusWidget()->objectName());
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        }
        return names.join(QLatin1Char(' '));
    }

    QStandardItemModel rows;
    PutBackPanel& question = *window.putBackWindow;
    PutBackProgress& progress = *window.putBackProgress;
    PutBackReport& report = *window.putBackReport;
};

TEST_F(PutBackPanelsTest, TheQuestionHasTheGeometryOfTheDesign) {
    ask();
    EXPECT_EQ(geometryOf(&question), QRect(148, 97, 720, 400));
    EXPECT_EQ(geometryOf(question.putBackDate), QRect(172, 157, 400, 20));
    EXPECT_EQ(geometryOf(question.putBackTotal).right() + 1, 844);
    EXPECT_EQ(geometryOf(question.putBackTotal).top(), 157);
    EXPECT_EQ(geometryOf(control("putBackTableFrame")), QRect(172, 191, 672, 226));
    EXPECT_EQ(geometryOf(question.putBackOutcome), QRect(172, 447, 400, 19));
    EXPECT_EQ(geometryOf(question.putBackCannot), QRect(172, 466, 400, 19));
    EXPECT_EQ(geometryOf(question.putBackCancel), QRect(628, 449, 104, 34));
    EXPECT_EQ(geometryOf(question.putBackOk), QRect(740, 449, 104, 34));
    EXPECT_EQ(question.putBackTable->rowHeight(0), 44);
    EXPECT_EQ(question.putBackTable->columnWidth(0), 360);
    EXPECT_EQ(question.putBackTable->columnWidth(1), 672 - 2 - 12 - 360);

    resizeTo({1400, 900});
    EXPECT_EQ(geometryOf(&question), QRect(148 + 96, 97 + 92, 720 + 192, 400 + 185));
}

TEST_F(PutBackPanelsTest, TheQuestionHasItsTexts) {
    EXPECT_EQ(question.header->text(), QStringLiteral("Put Back Last Clean-up"));
    EXPECT_EQ(question.putBackCancel->text(), QStringLiteral("Cancel"));
    EXPECT_EQ(question.putBackOk->text(), QStringLiteral("Put Back"));
    EXPECT_EQ(question.putBackCancel->kind(), HoverButton::Kind::quiet);
    EXPECT_EQ(question.putBackOk->fill(), QColor(14, 116, 138));
    EXPECT_EQ(question.putBackTable->accessibleName(),
              QStringLiteral("Files of the last clean-up"));
}

TEST_F(PutBackPanelsTest, TheQuestionStartsOnPutBack) {
    const QSignalSpy cancelled(question.putBackCancel, &QAbstractButton::clicked);
    ask();
    EXPECT_EQ(visited(4), QStringLiteral("putBackOk putBackTable putBackCancel putBackOk"));
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(cancelled.size(), 1);
}

TEST_F(PutBackPanelsTest, TheQuestionStartsOnCancelIfNothingCanCome) {
    question.setPossible(false);
    ask();
    EXPECT_FALSE(question.putBackOk->isEnabled());
    EXPECT_EQ(visited(3), QStringLiteral("putBackCancel putBackTable putBackCancel"));
}

TEST_F(PutBackPanelsTest, TheProgressHasTheGeometryOfTheDeletion) {
    window.showOver(&progress, PutBackProgress::designGeometry);
    EXPECT_EQ(geometryOf(&progress), QRect(205, 114, 606, 303));
    EXPECT_EQ(geometryOf(progress.putBackIndicator), QRect(381, 252, 396, 10));
    EXPECT_EQ(geometryOf(progress.putBackProcessing).topLeft(), QPoint(381, 274));
    EXPECT_EQ(geometryOf(progress.stopPutBackBtn), QRect(671, 366, 108, 36));
    EXPECT_EQ(progress.header->text(), QStringLiteral("Putting Back"));
    EXPECT_EQ(control<TextBlock>("putBackProgressStatus")->text(),
              QStringLiteral("Putting files back, please wait..."));
    EXPECT_EQ(progress.putBackIndicator->accessibleName(), QStringLiteral("Put back progress"));
    EXPECT_EQ(progress.stopPutBackBtn->fill(), QColor(79, 100, 114));
}

TEST_F(PutBackPanelsTest, EscapeStops) {
    const QSignalSpy stopped(progress.stopPutBackBtn, &QAbstractButton::clicked);
    window.showOver(&progress, PutBackProgress::designGeometry);
    EXPECT_EQ(window.focusWidget(), progress.stopPutBackBtn);
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(stopped.size(), 1);
}

TEST_F(PutBackPanelsTest, TheReportHasTheGeometryOfTheDesign) {
    window.showOver(&report, PutBackReport::designGeometry);
    EXPECT_EQ(geometryOf(&report), QRect(173, 97, 670, 366));
    EXPECT_EQ(geometryOf(control("putBackReportImage")), QRect(197, 157, 96, 96));
    EXPECT_EQ(geometryOf(report.putBackReportCount), QRect(317, 161, 502, 24));
    EXPECT_EQ(geometryOf(report.putBackReportSize), QRect(317, 185, 502, 24));
    EXPECT_EQ(geometryOf(report.putBackReportFailed), QRect(317, 225, 502, 18));
    EXPECT_EQ(geometryOf(control("putBackFailuresFrame")), QRect(197, 263, 622, 120));
    EXPECT_EQ(geometryOf(report.putBackReportHint), QRect(197, 422, 480, 18));
    EXPECT_EQ(geometryOf(report.putBackReportOk), QRect(699, 415, 120, 34));
    EXPECT_EQ(visited(3), QStringLiteral("putBackReportOk putBackFailures putBackReportOk"));

    resizeTo({1400, 900});
    EXPECT_EQ(geometryOf(&report).size(), QSize(670, 366));
}

}  // namespace

}  // namespace tarvin
