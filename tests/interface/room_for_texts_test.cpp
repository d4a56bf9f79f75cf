#include "controller/exception_list_texts.h"
#include "controller/information_window.h"
#include "controller/kept_list.h"
#include "controller/not_read_files.h"
#include "controller/put_back_texts.h"
#include "controller/result_texts.h"
#include "controller/rule_texts.h"
#include "controller/scan_screen_texts.h"
#include "controller/shown_numbers.h"
#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/look.h"
#include "controls/notice_strip.h"
#include "controls/pop_up_button.h"
#include "controls/tab_button.h"
#include "interface/exception_list_panel.h"
#include "interface/folder_list.h"
#include "interface/list_panel.h"
#include "interface/notice_panel.h"
#include "interface/put_back_panels.h"
#include "interface/result_panels.h"
#include "interface/result_screen.h"
#include "interface/rule_panel.h"
#include "interface/save_screenshot.h"
#include "interface/search_field.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"
#include "interface/text_block.h"
#include "interface/translated_languages.h"
#include "interface/translation.h"
#include "interface/window_covers.h"
#include "model/file_store.h"

#include <QGlyphRun>
#include <QHeaderView>
#include <QLabel>
#include <QRawFont>
#include <QTextLayout>
#include <cmath>

namespace tarvin {

namespace {

/// The width of a title in its button's font.
int titleWidth(const QAbstractButton& button) {
    QFont font = look::font(13);
    if (const auto* hover = qobject_cast<const HoverButton*>(&button)) {
        const bool filled = hover->kind() == HoverButton::Kind::filled;
        font = look::font(filled ? 14 : 13, filled ? QFont::Bold : QFont::Medium);
    }
    return QFontMetrics(font).horizontalAdvance(button.text());
}

/// Whether the letters of a line are inside its label. The line itself may be higher: fonts leave
/// room above and below, those of Chinese and Japanese the most.
bool hasHeight(const QLabel& label) {
    const QFont font = label.font();
    QString text = label.text();
    QTextLayout layout(text.replace(QLatin1Char('\n'), QLatin1Char(' ')), font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    QRectF letters;
    for (const QGlyphRun& run : layout.glyphRuns()) {
        const QList<QPointF> positions = run.positions();
        const QList<quint32> glyphs = run.glyphIndexes();
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            letters |= run.rawFont().boundingRect(glyphs[i]).translated(positions[i]);
        }
    }
    const Qt::Alignment alignment = label.alignment() & Qt::AlignVertical_Mask;
    const double height = label.height();
    const double above = alignment == Qt::AlignTop      ? 0
                         : alignment == Qt::AlignBottom ? height - line.height()
                                                        : (height - line.height()) / 2;
    return std::round(letters.top() + above) >= 0 && std::round(letters.bottom() + above) <= height;
}

/// Whether the whole text of a control is visible.
bool hasRoom(const QWidget& widget) {
    if (const auto* block = qobject_cast<const TextBlock*>(&widget)) {
        return block->text().isEmpty() || block->heightForWidth(block->width()) <= block->height();
    }
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        const QFontMetrics metrics = label->fontMetrics();
        return metrics.size(Qt::TextSingleLine, label->text()).width() <= label->width() &&
               hasHeight(*label);
    }
    if (qobject_cast<const TabButton*>(&widget) != nullptr ||
        qobject_cast<const PopUpButton*>(&widget) != nullptr) {
        // Buttons may give up padding.
        constexpr int padding = 10;
        return widget.sizeHint().width() - padding <= widget.width();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        const auto* hover = qobject_cast<const HoverButton*>(button);
        const bool isText = hover != nullptr && hover->kind() == HoverButton::Kind::text;
        const int padding = isText ? 0 : 8;  // on each side
        return button->text().isEmpty() || titleWidth(*button) + 2 * padding <= button->width();
    }
    return true;
}

/// The parameter is a language.
class RoomForTextsTest : public testing::TestWithParam<std::string> {
 protected:
    RoomForTextsTest() : translator(loadTranslation(QLocale(QString::fromStdString(GetParam())))) {
        if (translator != nullptr) {
            QCoreApplication::installTranslator(translator.get());
        }
        window = std::make_unique<MainWindow>();
        window->show();
    }
    ~RoomForTextsTest() override {
        window.reset();
        if (translator != nullptr) {
            QCoreApplication::removeTranslator(translator.get());
        }
    }

    void checkEverythingShown(const char* where) {
        QCoreApplication::sendPostedEvents();
        saveScreenshot(window->grab().toImage(),
                       QStringLiteral("%1-%2-%3")
                           .arg(QString::fromStdString(GetParam()), QLatin1String(where))
                           .arg(window->width()));
        int seen = 0;
        for (const auto* widget : window->findChildren<QWidget*>()) {
            if (!widget->isVisible()) {
                continue;
            }
            EXPECT_TRUE(hasRoom(*widget))
                << where << ": " << qPrintable(widget->objectName())
                << " has no room: " << qPrintable(widget->property("text").toString());
            expectInside(*widget, where);
            ++seen;
        }
        EXPECT_GT(seen, 5);
        expectApart(where);
    }

    /// The home panel and its image are intentionally wider than the window.
    void expectInside(const QWidget& widget, const char* where) const {
        if (widget.objectName() == QLatin1String("viewBackground") ||
            widget.objectName() == QLatin1String("panelShadow")) {
            return;
        }
        EXPECT_TRUE(widget.parentWidget()->rect().contains(widget.geometry()))
            << where << ": " << qPrintable(widget.objectName()) << " leaves its parent";
    }

    /// Checks that buttons of one parent do not overlap.
    void expectApart(const char* where) const {
        QVector<const QAbstractButton*> shown;
        for (const auto* button : window->findChildren<QAbstractButton*>()) {
            if (!button->isVisible()) {
                continue;
            }
            for (const auto* other : shown) {
                EXPECT_FALSE(button->parentWidget() == other->parentWidget() &&
                             button->geometry().intersects(other->geometry()))
                    << where << ": " << qPrintable(button->objectName()) << " lies on "
                    << qPrintable(other->objectName());
            }
            shown.push_back(button);
        }
    }

    std::unique_ptr<QTranslator> translator;
    std::unique_ptr<MainWindow> window;
};

TEST_P(RoomForTextsTest, OnEveryScreen) {
    for (const char* screen : {"1", "2", "5", "4"}) {
        window->selectTabViewItem(QLatin1String(screen));
        checkEverythingShown(screen);
    }
}

TEST_P(RoomForTextsTest, InALargerWindow) {
    window->resize(1400, 900);
    for (const char* screen : {"1", "2", "5", "4"}) {
        window->selectTabViewItem(QLatin1String(screen));
        checkEverythingShown(screen);
    }
}

TEST_P(RoomForTextsTest, InPanels) {
    window->showAbout();
    checkEverythingShown("about");
    window->showNotice(window->confirmationView, {350, 235});
    checkEverythingShown("question");
}

TEST_P(RoomForTextsTest, InTheResults) {
    const ResultScreen& screen = *window->results;
    DrawnResult result(true);
    screen.OView2->setModel(&result.sets);
    screen.OView2->expandAll();
    screen.resultTable->setModel(&result.files);
    screen.selectedCount->setText(ResultTexts::selectedCount(123456));
    screen.selectedSize->setText(ResultTexts::selectedSize(999'990'000'000));
    window->selectTabViewItem(screen.identifier());
    const auto titleFits = [](const QHeaderView& header, int section, int room) {
        const QString title = header.model()->headerData(section, Qt::Horizontal).toString();
        return header.fontMetrics().horizontalAdvance(title) <= room;
    };
    constexpr int indent = 12;
    for (const QSize& size : {QSize(1016, 531), QSize(1400, 900)}) {
        window->resize(size);
        checkEverythingShown("results");
        const auto geometryOf = [this](const QWidget* widget) {
            return QRect(widget->mapTo(window.get(), QPoint(0, 0)), widget->size());
        };
        EXPECT_LT(geometryOf(screen.removeExceptionBtn).right(),
                  geometryOf(screen.selectedCount).left());
        EXPECT_TRUE(titleFits(*screen.OView2->header(), ResultTreeView::name,
                              screen.OView2->viewport()->width() - indent));
        for (int column = 0; column <= ResultTable::ButtonCell; ++column) {
            EXPECT_TRUE(
                titleFits(*screen.resultTable->horizontalHeader(), column,
                          screen.resultTable->columnWidth(column) - (column == 0 ? indent : 0)))
                << column;
        }
    }
    screen.OView2->setModel(nullptr);
    screen.resultTable->setModel(nullptr);
}

TEST_P(RoomForTextsTest, InTheNoticeOfUnreadableFiles) {
    window->selectTabViewItem(window->results->identifier());
    ScanResult result;
    for (const std::uint64_t folders : {0U, 1U, 123456U}) {
        for (const std::uint64_t files : {0U, 1U, 123456U}) {
            result.unreadable.folders = folders;
            result.unreadable.files = files;
            window->results->setNotRead(NotReadFiles(result).notice());
            checkEverythingShown("not-read");
            EXPECT_EQ(window->results->notReadNotice->isVisible(), folders + files > 0);
            EXPECT_FALSE(folders + files > 0 && window->results->notReadNotice->isElided());
        }
    }
    EXPECT_LE(window->results->title()->geometry().right(), window->results->notReadNotice->x());
    window->showOver(window->notReadWindow, ListPanel::designGeometry, halfOfGain, halfOfGain);
    checkEverythingShown("not-read-list");
}

TEST_P(RoomForTextsTest, InTheInformation) {
    window->selectTabViewItem(window->results->identifier());
    InformationPanel& panel = *window->informationWindow;
    const auto inform = [&](const QString& header, const QStringList& lines,
                            const QString& answer) {
        panel.informationHeader->setText(header);
        panel.scanInfoCount->setText(lines.value(0));
        panel.scanInfoSize->setText(lines.value(1));
        panel.scanOtherInfo->setText(lines.value(2));
        panel.scanInforOKBtn->setTitle(answer);
        window->showOver(&panel, {250, 200});
        checkEverythingShown("information");
        EXPECT_EQ(panel.height(), 190) << lines.value(0).toStdString();
        panel.hide();
        window->covers().removeAll();
    };
    inform(
        ResultTexts::duplicatesFound(),
        {ResultTexts::media(123456), ResultTexts::documents(123456), ResultTexts::others(123456)},
        ResultTexts::review());
    for (const ResultView tab : {ResultView::image, ResultView::video, ResultView::audio,
                                 ResultView::documents, ResultView::other}) {
        inform(ResultTexts::information(),
               {ResultTexts::duplicates(tab, 123456), ResultTexts::memoryOccupied(999'990'000'000)},
               ResultTexts::review());
        inform(ResultTexts::information(), {ResultTexts::noDuplicates(tab)}, ResultTexts::ok());
    }
    for (const QString& line :
         {ResultTexts::allFilesOfSet(), ResultTexts::nothingToDelete(),
          ResultTexts::exceptionsAdded(123456), ResultTexts::exceptionsRemoved()}) {
        inform(ResultTexts::information(), {line}, ResultTexts::ok());
    }
}

TEST_P(RoomForTextsTest, InTheOtherPanelsOfTheResults) {
    window->selectTabViewItem(window->results->identifier());
    for (const bool exact : {true, false}) {
        window->exceptionWindow->exceptionTextField->setText(ResultTexts::exceptionQuestion(exact));
        window->showOver(window->exceptionWindow, {300, 200});
        checkEverythingShown("exceptions");
        window->exceptionWindow->hide();
    }
    window->showOver(window->deletionPreview, {205, 114});
    checkEverythingShown("deletion");
    window->deletionPreview->pauseResumeBtn->setTitle(ScanScreenTexts::resume());
    checkEverythingShown("deletion-paused");
    window->deletionPreview->hide();
    window->showOver(window->allCheckAlertView, {275, 225});
    checkEverythingShown("alternative");
}

TEST_P(RoomForTextsTest, InTheSummaryWithWhatWasNotRead) {
    window->selectTabViewItem(window->results->identifier());
    InformationPanel& panel = *window->informationWindow;
    panel.informationHeader->setText(ResultTexts::duplicatesFound());
    panel.scanInfoCount->setText(ResultTexts::media(0));
    panel.scanInfoSize->setText(ResultTexts::documents(0));
    panel.scanOtherInfo->setText(ResultTexts::others(0));
    panel.scanInforOKBtn->setTitle(ResultTexts::review());
    panel.setNotRead(QStringLiteral("-"));
    window->showOver(&panel, QPoint(250, 200));
    checkEverythingShown("summary-not-read");
    EXPECT_EQ(panel.height(), 190);
    EXPECT_LT(panel.notReadShow->geometry().right(), panel.scanInforOKBtn->geometry().left());
}

TEST_P(RoomForTextsTest, InTheReportOfFilesThatWereLeft) {
    window->selectTabViewItem(window->results->identifier());
    InformationPanel& panel = *window->informationWindow;
    panel.informationHeader->setText(ResultTexts::information());
    panel.scanInfoCount->setText(ResultTexts::duplicatesCleaned(123456));
    panel.scanInfoSize->setText(ResultTexts::spaceRegained(999'990'000'000));
    panel.setKeptLine(ResultTexts::filesLeft(123456));
    window->showOver(&panel, QPoint(250, 200));
    checkEverythingShown("report-kept");
    EXPECT_EQ(panel.height(), 190);
    EXPECT_FALSE(panel.keptLine->isElided());
    window->showInPlaceOf(&panel, window->keptWindow, ListPanel::designGeometry, halfOfGain,
                          halfOfGain);
    checkEverythingShown("kept");
}

TEST_P(RoomForTextsTest, InTheReportOfFilesThatCouldNotBeMovedBack) {
    window->selectTabViewItem(window->results->identifier());
    InformationPanel& panel = *window->informationWindow;
    for (const QString& line : {ResultTexts::filesNotBack(1), ResultTexts::filesNotBack(1234),
                                ResultTexts::filesLeftAndNotBack(123456, 12)}) {
        panel.setKeptLine(line);
        window->showOver(&panel, QPoint(250, 200));
        checkEverythingShown("report-not-back");
        EXPECT_FALSE(panel.keptLine->isElided()) << line.toStdString();
        panel.hide();
        window->covers().removeAll();
    }
    InformationWindow information(*window);
    KeptList list(*window, information);
    const std::shared_ptr<File> file =
        FileStore::standalone("/home/anna/Pictures/2023 Summer/beach.jpg", 1);
    KeptFiles files;
    for (const MoveOutcome outcome : {MoveOutcome::moved, MoveOutcome::changed}) {
        files.add(*file, {outcome, "reason", TrashRefusalKind::taken, {}});
        list.setFiles(files);
        window->showOver(window->keptWindow, ListPanel::designGeometry, halfOfGain, halfOfGain);
        checkEverythingShown(outcome == MoveOutcome::moved ? "not-back" : "kept-and-not-back");
        window->keptWindow->hide();
        window->covers().removeAll();
    }
}

TEST_P(RoomForTextsTest, InTheExceptionsList) {
    window->selectTabViewItem(window->results->identifier());
    ExceptionListPanel& panel = *window->exceptionListWindow;
    panel.exceptionCount->setText(ExceptionListTexts::count(123456, 12345));
    window->showOver(&panel, ExceptionListPanel::designGeometry, halfOfGain, halfOfGain);
    checkEverythingShown("exceptions");
    panel.setNoneText(ExceptionListTexts::none(QStringLiteral("norway")));
    EXPECT_FALSE(panel.exceptionNone->isElided());
    panel.setNoneText({});
    panel.exceptionCount->setText({});
    panel.setEmpty(true);
    checkEverythingShown("exceptions-empty");
}

TEST_P(RoomForTextsTest, InThePanelsOfPuttingBack) {
    window->selectTabViewItem(window->results->identifier());
    PutBackPanel& question = *window->putBackWindow;
    question.putBackDate->setText(ShownNumbers::dateAndTime(Timestamp()));
    question.putBackTotal->setText(PutBackTexts::total(123456, 999'990'000'000));
    question.putBackOutcome->setText(PutBackTexts::coming(123456));
    question.putBackCannot->setText(PutBackTexts::staying(123456));
    window->showOver(&question, PutBackPanel::designGeometry, halfOfGain, halfOfGain);
    checkEverythingShown("put-back");
    EXPECT_LT(question.putBackOutcome->fontMetrics()
                  .size(Qt::TextSingleLine, question.putBackOutcome->text())
                  .width(),
              question.putBackCancel->x() - question.putBackOutcome->x());
    PutBackProgress& progress = *window->putBackProgress;
    progress.putBackProcessing->setText(PutBackTexts::progress(123456, 123456));
    window->showInPlaceOf(&question, &progress, PutBackProgress::designGeometry);
    checkEverythingShown("put-back-running");
    PutBackReport& report = *window->putBackReport;
    report.putBackReportCount->setText(PutBackTexts::filesPutBack(123456));
    report.putBackReportSize->setText(PutBackTexts::size(999'990'000'000));
    report.putBackReportFailed->setText(PutBackTexts::failed(123456));
    report.putBackReportHint->setText(PutBackTexts::scanAgain());
    window->showInPlaceOf(&progress, &report, PutBackReport::designGeometry);
    checkEverythingShown("put-back-done");
    report.putBackReportHint->setText(
        PutBackTexts::notAll(QStringLiteral("No space left on device")));
    checkEverythingShown("put-back-failed");
    EXPECT_FALSE(report.putBackReportHint->isElided());
    window->informationWindow->informationHeader->setText(PutBackTexts::title());
    window->informationWindow->scanInfoCount->setText(PutBackTexts::nothing());
    for (const NothingToPutBack reason : {NothingToPutBack::neverCleaned, NothingToPutBack::allBack,
                                          NothingToPutBack::noneInTrash}) {
        window->informationWindow->scanInfoSize->setText(PutBackTexts::nothingBecause(reason));
        window->showOver(window->informationWindow, QPoint(250, 200));
        checkEverythingShown("put-back-nothing");
        window->informationWindow->hide();
    }
}

TEST_P(RoomForTextsTest, InMarkByRule) {
    window->selectTabViewItem(window->results->identifier());
    RulePanel& panel = *window->markByRuleWindow;
    // With wide fonts both parts of the second line may need its tool tip.
    for (const std::uint64_t sets : {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{12345}}) {
        panel.ruleOutcome->setText(RuleTexts::outcome({2 * sets, 999'990'000'000, sets, sets}));
        panel.ruleBlocked->setText(RuleTexts::blocked(sets, sets == 0));
        window->showOver(&panel, RulePanel::designGeometry);
        checkEverythingShown("mark-by-rule");
        EXPECT_FALSE(panel.ruleBlocked->isElided()) << panel.ruleBlocked->text().toStdString();
        panel.hide();
        window->covers().removeAll();
    }
    const QFontMetrics metrics(look::font(13));
    for (const FolderList* list : {panel.preferredList, panel.protectedList}) {
        EXPECT_LE(metrics.horizontalAdvance(list->emptyText()) + 24, list->width());
    }
}

TEST_P(RoomForTextsTest, TheHintEndsBeforeTheTools) {
    window->selectTabViewItem(QStringLiteral("2"));
    QCoreApplication::sendPostedEvents();

    EXPECT_LT(window->locations->hint->geometry().right(), window->locations->markAllExactBtn->x());
    EXPECT_GT(window->locations->hint->y(), 0);
    EXPECT_LT(window->locations->hint->geometry().bottom(),
              window->locations->findChild<QWidget*>(QStringLiteral("tableFrame"))->y());
}

TEST_P(RoomForTextsTest, TheExplanationEndsBeforeTheTiles) {
    const auto place = [this](const char* name) {
        return window->findChild<QWidget*>(QLatin1String(name))->geometry();
    };
    EXPECT_LT(place("explanation").bottom(), place("mainScanButton").top());
}

INSTANTIATE_TEST_SUITE_P(Languages, RoomForTextsTest, testing::ValuesIn([] {
                             std::vector<std::string> languages = translatedLanguages();
                             languages.emplace_back("en");
                             return languages;
                         }()),
                         [](const auto& tested) { return tested.param; });

}  // namespace

}  // namespace tarvin
