#include "controller/result_fixture.h"
#include "interface/file_menu.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <filesystem>

namespace tarvin {
namespace {

/// The second set has b1.jpg, b2.jpg and b3.jpg.
class FileActionsTest : public ResultFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        write("other/c3.txt", "text text");
        scanAndReview();
        select(0, 1);
        table().setFocus();
    }

    [[nodiscard]] FileMenu& menu() { return *window().results->fileMenu; }
    [[nodiscard]] QPoint cellOf(int row) {
        return table().visualRect(list().index(row, ResultTable::nameText)).center();
    }
    void rightClick(const QPoint& position) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, position,
                                table().viewport()->mapToGlobal(position));
        QCoreApplication::sendEvent(table().viewport(), &event);
    }
    void openMenuOf(int row) { rightClick(cellOf(row)); }
    void choose(QAction* item) {
        menu().close();
        item->trigger();
    }
    [[nodiscard]] std::vector<bool> marks(int extension, int set) {
        std::vector<bool> marks;
        for (const auto& file : setOf(extension, set).files()) {
            marks.push_back(file->state() != CheckState::off);
        }
        return marks;
    }

    using Marks = std::vector<bool>;
};

TEST_F(FileActionsTest, ARightClickSelectsTheRowAndOpensTheMenuAtThePointer) {
    openMenuOf(2);
    EXPECT_TRUE(menu().isVisible());
    EXPECT_EQ(table().selectedRow(), 2);
    EXPECT_EQ(textOf("selectedPath"), "Path: " + found("b3.jpg"));
    EXPECT_EQ(menu().pos(), table().viewport()->mapToGlobal(cellOf(2)));
    EXPECT_EQ(menu().activeAction(), nullptr);
    EXPECT_EQ(menu().accessibleName(), "Actions for b3.jpg");
}

TEST_F(FileActionsTest, BelowTheRowsThereIsNoMenu) {
    rightClick({20, table().viewport()->height() - 3});
    EXPECT_FALSE(menu().isVisible());
}

TEST_F(FileActionsTest, KeysOpenTheMenuBelowTheCurrentRow) {
    const QRect row = table().visualRect(list().index(1, ResultTable::nameText));
    const QPoint lowerLeft = table().viewport()->mapToGlobal(row.bottomLeft() + QPoint(0, 1));
    table().selectFile(1);
    QTest::keyClick(&table(), Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_TRUE(menu().isVisible());
    EXPECT_EQ(menu().pos(), lowerLeft);
    menu().close();
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, QPoint(300, 10), QPoint(300, 10));
    QCoreApplication::sendEvent(&table(), &byKey);
    EXPECT_TRUE(menu().isVisible());
    EXPECT_EQ(menu().pos(), lowerLeft);
}

TEST_F(FileActionsTest, OpensTheFileAndItsFolder) {
    table().selectFile(1);
    QTest::keyClick(&table(), Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(comesTrue([this] { return !desktop.shownInFolder.empty(); }));
    EXPECT_EQ(desktop.shownInFolder, (Lines{found("b2.jpg")}));
    EXPECT_TRUE(desktop.paths.empty());
    openMenuOf(1);
    choose(menu().openItem);
    ASSERT_TRUE(comesTrue([this] { return !desktop.paths.empty(); }));
    EXPECT_EQ(desktop.paths, (Lines{found("b2.jpg")}));
    EXPECT_EQ(desktop.shownInFolder.size(), 1U);
}

TEST_F(FileActionsTest, ReportsAFileThatIsGone) {
    std::filesystem::remove(found("b2.jpg"));
    const Lines gone{"Information", "The file is not there any more.", "", ""};
    openMenuOf(1);
    choose(menu().openItem);
    EXPECT_TRUE(comesTrue([&] { return information() == gone; }));
    click("scanInforOKBtn");
    choose(menu().openFolderItem);
    EXPECT_TRUE(comesTrue([&] { return information() == gone; }));
    EXPECT_TRUE(desktop.paths.empty());
    EXPECT_TRUE(desktop.shownInFolder.empty());
}

TEST_F(FileActionsTest, ADoubleClickAndReturnReportAFileThatIsGone) {
    std::filesystem::remove(found("b2.jpg"));
    const Lines gone{"Information", "The file is not there any more.", "", ""};
    table().selectFile(1);
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, cellOf(1));
    EXPECT_TRUE(comesTrue([&] { return information() == gone; }));
    click("scanInforOKBtn");
    EXPECT_EQ(window().focusWidget(), &table());
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_TRUE(comesTrue([&] { return information() == gone; }));
    EXPECT_TRUE(desktop.paths.empty());
}

TEST_F(FileActionsTest, ADoubleClickOnAVolumeThatDoesNotRespondDoesNotHoldTheWindow) {
    Barrier barrier;
    table().selectFile(1);
    files.beforeCall(FileCall::attributesAtPath, 1, [&] { barrier.wait(); }, "b2.jpg");
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, cellOf(1));
    ASSERT_TRUE(comesTrue([&] { return barrier.isReached(); }));
    EXPECT_TRUE(desktop.paths.empty());
    barrier.open();
    EXPECT_TRUE(comesTrue([this] { return desktop.paths == Lines{found("b2.jpg")}; }));
}

TEST_F(FileActionsTest, AVolumeThatDoesNotRespondDoesNotHoldTheWindow) {
    Barrier barrier;
    openMenuOf(1);
    files.beforeCall(FileCall::attributesAtPath, 1, [&] { barrier.wait(); }, "b2.jpg");
    choose(menu().openItem);
    ASSERT_TRUE(comesTrue([&] { return barrier.isReached(); }));
    EXPECT_TRUE(desktop.paths.empty());
    select(0, 0);
    EXPECT_EQ(names(), (Lines{"a1.jpg", "a2.jpg"}));
    barrier.open();
    EXPECT_TRUE(comesTrue([this] { return desktop.paths == Lines{found("b2.jpg")}; }));
}

TEST_F(FileActionsTest, CopiesThePath) {
    table().selectFile(2);
    QTest::keyClick(&table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), found("b3.jpg"));
}

TEST_F(FileActionsTest, KeepsOneFileOfItsSet) {
    table().selectFile(1);
    QTest::keyClick(&table(), Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(marks(0, 1), (Marks{true, false, true}));
    EXPECT_EQ(marks(0, 0), (Marks{false, false}));
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 2");
    EXPECT_TRUE(isEnabled("unMarkAll"));
    openMenuOf(0);
    choose(menu().keepItem);
    EXPECT_EQ(marks(0, 1), (Marks{false, true, true}));
}

TEST_F(FileActionsTest, TheOnlyFileOfASetIsNotKept) {
    click("markAll");
    click("addEceptionBtn");
    click("excOKBtn");
    click("scanInforOKBtn");
    ASSERT_EQ(list().rowCount(), 1);
    openMenuOf(0);
    EXPECT_FALSE(menu().keepItem->isEnabled());
    menu().close();
    EXPECT_TRUE(menu().keepItem->isEnabled());
    QTest::keyClick(&table(), Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(marks(0, 1), (Marks{false}));
}

TEST_F(FileActionsTest, MarksAllInTheFolderUntilNothingIsLeftToMark) {
    openMenuOf(1);
    EXPECT_TRUE(menu().markFolderItem->isEnabled());
    choose(menu().markFolderItem);
    EXPECT_EQ(marks(0, 0), (Marks{false, true}));
    EXPECT_EQ(marks(0, 1), (Marks{false, true, true}));
    EXPECT_EQ(marks(1, 0), (Marks{true, true, false}));  // the last one is in a subfolder
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 5");
    openMenuOf(1);
    EXPECT_FALSE(menu().markFolderItem->isEnabled());
    menu().close();
}

TEST_F(FileActionsTest, AddsOneFileToTheExceptionsAfterAQuestion) {
    clickFileBox(2);
    openMenuOf(0);
    choose(menu().exceptionItem);
    EXPECT_EQ(textOf("exceptionTextField"),
              "The file \"b1.jpg\" will be excluded from all future scans. Press \"OK\" to "
              "exclude.");
    EXPECT_EQ(positionOf(window().exceptionWindow), QPoint(300, 200));
    click("excOKBtn");
    EXPECT_EQ(information(),
              (Lines{"Information", "\nSuccessfully added 1 files to exceptions.", "", ""}));
    EXPECT_EQ(storedExceptions(), (Lines{found("b1.jpg")}));
    EXPECT_EQ(names(), (Lines{"b2.jpg", "b3.jpg"}));
    EXPECT_EQ(marks(0, 1), (Marks{false, true}));
    EXPECT_TRUE(isEnabled("removeExceptionBtn"));
}

TEST_F(FileActionsTest, AnswersOfOneQuestionDoNotCountForTheOther) {
    clickFileBox(2);
    openMenuOf(0);
    choose(menu().exceptionItem);
    click("excCancelBtn");
    EXPECT_TRUE(storedExceptions().empty());
    click("addEceptionBtn");
    click("excOKBtn");
    EXPECT_EQ(storedExceptions(), (Lines{found("b3.jpg")}));
}

TEST_F(FileActionsTest, ShowTheNeighbouringSetByKeys) {
    QTest::keyClick(&table(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(names(), (Lines{"c1.txt", "c2.txt", "c3.txt"}));
    EXPECT_EQ(textOf("selectedPath"), "Path: " + found("c1.txt"));
    QTest::keyClick(&table(), Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(names().size(), 3U);
    QTest::keyClick(&table(), Qt::Key_Up, Qt::ControlModifier);
    QTest::keyClick(&table(), Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(names(), (Lines{"a1.jpg", "a2.jpg"}));
}

}  // namespace
}  // namespace tarvin
