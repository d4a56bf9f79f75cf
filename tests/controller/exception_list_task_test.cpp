#include "controller/exception_list_task.h"

#include "controller/result_fixture.h"
#include "interface/exception_list_panel.h"
#include "interface/list_table.h"
#include "interface/search_field.h"
#include "platform/durable_file.h"

#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {
namespace {

class ExceptionListTest : public ResultFixture {
 protected:
    /// Launches the product with an exceptions list of these files, of which those called "gone"
    /// do not exist, and those below "drive" are on a drive that is not attached.
    void launchWith(const Lines& names) {
        platform.setMountPlaces({{"/"}, {folder.pathOf("drive")}});
        ExceptionFile file(folder.pathOf("support"));
        Lines paths;
        for (const std::string& name : names) {
            paths.push_back(folder.pathOf(name));
            const bool exists =
                name.find("gone") == std::string::npos && name.find("drive") == std::string::npos;
            if (exists) {
                folder.writeFile(name, "");
            }
        }
        ASSERT_FALSE(file.addExceptions(paths).has_value());
        launch();
    }

    void open() {
        click("buttonMore");
        ASSERT_TRUE(comesTrue([this] { return window().moreMenu->isVisible(); }));
        choose(window().moreMenu, window().manageExceptionsItem);
        ASSERT_TRUE(panel().isVisible());
    }

    void openTested(std::size_t missing) {
        open();
        ASSERT_TRUE(comesTrue([&] { return rows().missing() == missing; }));
        ASSERT_TRUE(
            comesTrue([&] { return missing == 0 || panel().exceptionRemoveMissing->isEnabled(); }));
    }

    [[nodiscard]] ExceptionListPanel& panel() { return *window().exceptionListWindow; }
    [[nodiscard]] ListTable& listed() { return *panel().exceptionTable; }
    [[nodiscard]] const ExceptionRows& rows() {
        return static_cast<const ExceptionRows&>(*listed().model());
    }

    [[nodiscard]] Lines shownNames() {
        Lines names;
        for (int row = 0; row < rows().rowCount(); ++row) {
            names.push_back(rows().index(row, 0).data().toString().toStdString());
        }
        return names;
    }

    void clickListed(int row, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(listed().viewport(), Qt::LeftButton, modifiers,
                          listed().visualRect(rows().index(row, 0)).center());
    }

    /// Whether the removal gets written.
    [[nodiscard]] bool written() {
        return comesTrue([this] { return delegate->session().exceptionChanges.isOver(); });
    }

    /// Keeps removals from being written, until release().
    void hold() {
        lock.emplace(FolderLock::take(folder.pathOf("support")));
        ASSERT_TRUE(*lock);
    }
    void release() { lock.reset(); }

    /// Presses Remove for these rows, one after the other.
    void removeRows(const std::vector<int>& numbers) {
        for (const int row : numbers) {
            clickListed(row);
            click("exceptionRemove");
        }
    }

    [[nodiscard]] Lines pathsOf(const Lines& names) const {
        Lines paths;
        for (const std::string& name : names) {
            paths.push_back(folder.pathOf(name));
        }
        return paths;
    }

    std::optional<Result<FolderLock>> lock;
};

TEST_F(ExceptionListTest, ShowsTheListWithItsMarks) {
    launchWith({"p/b.jpg", "p/gone.jpg", "drive/c.jpg", "p/A.jpg"});
    openTested(1);
    EXPECT_EQ(shownNames(), (Lines{"A.jpg", "b.jpg", "c.jpg", "gone.jpg"}));
    EXPECT_EQ(textOf("exceptionCount"), "4 files, 1 not there any more");
    EXPECT_EQ(rows().index(2, 1).data(ListTable::markRole).toString().toStdString(),
              "Drive not attached");
    EXPECT_EQ(rows().index(3, 1).data(ListTable::markRole).toString().toStdString(),
              "Not there any more");
    EXPECT_EQ(covers(), 1);
    EXPECT_EQ(window().focusWidget(), panel().exceptionSearch);
    EXPECT_FALSE(panel().exceptionRemove->isEnabled());
    click("exceptionClose");
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(covers(), 0);
}

TEST_F(ExceptionListTest, OpensByItsKeysOnEachScreen) {
    launchWith({"p/a.jpg"});
    for (const char* shown : {"1", "2", "4"}) {
        window().selectTabViewItem(QLatin1String(shown));
        QTest::keyClick(window().focusWidget(), Qt::Key_E, Qt::ControlModifier | Qt::ShiftModifier);
        ASSERT_TRUE(panel().isVisible()) << shown;
        QTest::keyClick(window().focusWidget(), Qt::Key_Escape);
        EXPECT_FALSE(panel().isVisible()) << shown;
    }
}

TEST_F(ExceptionListTest, AnEmptyListExplainsItself) {
    launchWith({});
    open();
    EXPECT_TRUE(panel().exceptionEmpty->isVisible());
    EXPECT_EQ(textOf("exceptionCount"), "");
    EXPECT_FALSE(panel().exceptionSearch->isEnabled());
    EXPECT_FALSE(panel().exceptionRemove->isEnabled());
    EXPECT_FALSE(panel().exceptionRemoveMissing->isEnabled());
    EXPECT_EQ(window().focusWidget(), panel().exceptionClose);
    QTest::keyClick(window().focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(panel().isVisible());
}

TEST_F(ExceptionListTest, RemovesTheSelectedFilesAndSelectsTheNext) {
    launchWith({"p/a.jpg", "p/b.jpg", "p/c.jpg", "p/d.jpg", "p/e.jpg"});
    open();
    clickListed(1);
    clickListed(2, Qt::ControlModifier);
    EXPECT_TRUE(panel().exceptionRemove->isEnabled());
    click("exceptionRemove");
    EXPECT_EQ(shownNames(), (Lines{"a.jpg", "d.jpg", "e.jpg"}));
    EXPECT_EQ(textOf("exceptionCount"), "3 files");
    ASSERT_EQ(listed().selectionModel()->selectedRows().size(), 1);
    EXPECT_EQ(listed().currentIndex().row(), 1);
    ASSERT_TRUE(written());
    EXPECT_EQ(storedExceptions(), pathsOf({"p/a.jpg", "p/d.jpg", "p/e.jpg"}));
    // The file itself stays.
    EXPECT_TRUE(std::filesystem::exists(folder.pathOf("p/b.jpg")));
    clickListed(2);
    QTest::keyClick(&listed(), Qt::Key_Delete);
    EXPECT_EQ(listed().currentIndex().row(), 1);
    ASSERT_TRUE(comesTrue([this] {
        return delegate->session().exceptionArrayData() == pathsOf({"p/a.jpg", "p/d.jpg"});
    }));
    EXPECT_EQ(storedExceptions(), pathsOf({"p/a.jpg", "p/d.jpg"}));
}

TEST_F(ExceptionListTest, WithoutFilesNothingIsLeftToRemove) {
    launchWith({"p/a.jpg"});
    EXPECT_TRUE(window().results->removeExceptionBtn->isEnabled());
    open();
    clickListed(0);
    QTest::keyClick(&listed(), Qt::Key_Delete);
    EXPECT_TRUE(panel().exceptionEmpty->isVisible());
    EXPECT_EQ(window().focusWidget(), panel().exceptionClose);
    ASSERT_TRUE(comesTrue([this] { return !window().results->removeExceptionBtn->isEnabled(); }));
    EXPECT_EQ(storedExceptions(), Lines());
}

TEST_F(ExceptionListTest, KeepsWhatAnotherInstanceHasAdded) {
    launchWith({"p/a.jpg", "p/b.jpg"});
    open();
    ExceptionFile other(folder.pathOf("support"));
    ASSERT_FALSE(other.addExceptions({"/other.jpg"}).has_value());
    clickListed(0);
    click("exceptionRemove");
    ASSERT_TRUE(written());
    EXPECT_EQ(storedExceptions(), (Lines{folder.pathOf("p/b.jpg"), "/other.jpg"}));
}

TEST_F(ExceptionListTest, KeepsTheChangesOfAnotherInstanceWhenMissingFilesAreRemoved) {
    launchWith({"p/a.jpg", "p/gone.jpg", "p/b.jpg"});
    openTested(1);
    ExceptionFile other(folder.pathOf("support"));
    ASSERT_FALSE(other.load().has_value());
    ASSERT_FALSE(other.removeExceptions(pathsOf({"p/a.jpg"})).has_value());
    ASSERT_FALSE(other.addExceptions({"/other.jpg"}).has_value());
    click("exceptionRemoveMissing");
    ASSERT_TRUE(written());
    EXPECT_EQ(storedExceptions(), (Lines{folder.pathOf("p/b.jpg"), "/other.jpg"}));
}

TEST_F(ExceptionListTest, RemovesAllMissingFilesAlsoThoseASearchHides) {
    launchWith({"p/a.jpg", "p/gone1.jpg", "drive/c.jpg", "p/gone2.jpg"});
    openTested(2);
    QTest::keyClicks(window().focusWidget(), QStringLiteral("GONE1"));
    EXPECT_EQ(textOf("exceptionCount"), "1 of 4 files");
    click("exceptionRemoveMissing");
    ASSERT_TRUE(written());
    EXPECT_EQ(storedExceptions(), pathsOf({"p/a.jpg", "drive/c.jpg"}));
    EXPECT_EQ(textOf("exceptionNone"), "No exception matches \"GONE1\".");
    EXPECT_TRUE(panel().exceptionNone->isVisible());
    EXPECT_FALSE(panel().exceptionRemoveMissing->isEnabled());
    panel().exceptionSearch->clear();
    EXPECT_EQ(shownNames(), (Lines{"a.jpg", "c.jpg"}));
    EXPECT_FALSE(panel().exceptionNone->isVisible());
    EXPECT_EQ(textOf("exceptionCount"), "2 files");
}

TEST_F(ExceptionListTest, WhileFilesAreTestedMissingOnesCannotBeRemoved) {
    launchWith({"p/gone.jpg"});
    Barrier barrier;
    files.beforeCall(FileCall::attributesAtPath, 1, [&] { barrier.wait(); }, "gone.jpg");
    open();
    ASSERT_TRUE(comesTrue([&] { return barrier.isReached(); }));
    EXPECT_EQ(textOf("exceptionCount"), "1 file");
    EXPECT_FALSE(panel().exceptionRemoveMissing->isEnabled());
    // The panel can be closed and opened meanwhile.
    click("exceptionClose");
    barrier.open();
    openTested(1);
}

TEST_F(ExceptionListTest, IfTheListCannotBeSavedTheRowsStay) {
    launchWith({"p/a.jpg", "p/b.jpg"});
    open();
    clickListed(0);
    // The name of the temporary file is taken.
    const std::string blocked = folder.writeFile("support/exception.plist.new/x", "");
    click("exceptionRemove");
    ASSERT_TRUE(comesTrue([this] { return !information().empty(); }));
    EXPECT_EQ(information(),
              (Lines{"Exceptions", "The exceptions could not be saved.", "Is a directory", ""}));
    EXPECT_EQ(storedExceptions(), pathsOf({"p/a.jpg", "p/b.jpg"}));
    click("scanInforOKBtn");
    ASSERT_TRUE(panel().isVisible());
    EXPECT_EQ(covers(), 1);
    EXPECT_EQ(shownNames(), (Lines{"a.jpg", "b.jpg"}));
    std::filesystem::remove_all(folder.pathOf("support/exception.plist.new"));
    click("exceptionRemove");
    EXPECT_EQ(shownNames(), Lines{"b.jpg"});
    ASSERT_TRUE(written());
    click("exceptionClose");
    EXPECT_EQ(covers(), 0);
}

TEST_F(ExceptionListTest, RowsDisappearAtOnceWhileTheFileIsWritten) {
    launchWith({"p/a.jpg", "p/b.jpg", "p/c.jpg", "p/d.jpg"});
    open();
    hold();
    removeRows({0, 1});
    EXPECT_EQ(shownNames(), (Lines{"b.jpg", "d.jpg"}));
    EXPECT_EQ(textOf("exceptionCount"), "2 files");
    EXPECT_EQ(readExceptionFile(folder.pathOf("support/exception.plist")).paths,
              pathsOf({"p/a.jpg", "p/b.jpg", "p/c.jpg", "p/d.jpg"}));
    release();
    ASSERT_TRUE(written());
    EXPECT_EQ(storedExceptions(), pathsOf({"p/b.jpg", "p/d.jpg"}));
    EXPECT_EQ(shownNames(), (Lines{"b.jpg", "d.jpg"}));
}

TEST_F(ExceptionListTest, TwoRemovalsThatCannotBeSavedBothComeBack) {
    launchWith({"p/a.jpg", "p/x.png", "p/b.jpg", "p/gone.jpg"});
    openTested(1);
    QTest::keyClicks(window().focusWidget(), QStringLiteral("jpg"));
    folder.writeFile("support/exception.plist.new/x", "");
    hold();
    removeRows({0, 0});
    EXPECT_EQ(shownNames(), Lines{"gone.jpg"});
    release();
    ASSERT_TRUE(comesTrue([this] { return !information().empty(); }));
    EXPECT_EQ(shownNames(), (Lines{"a.jpg", "b.jpg", "gone.jpg"}));
    EXPECT_EQ(textOf("exceptionCount"), "3 of 4 files");
    click("scanInforOKBtn");
    EXPECT_TRUE(panel().isVisible());
    EXPECT_TRUE(comesTrue([this] { return rows().missing() == 1; }));
    EXPECT_EQ(listed().selectionModel()->selectedRows().size(), 1);
}

TEST_F(ExceptionListTest, ClosingWaitsForTheFile) {
    launchWith({"p/a.jpg", "p/b.jpg"});
    open();
    hold();
    removeRows({0});
    click("exceptionClose");
    EXPECT_TRUE(panel().isVisible());
    EXPECT_EQ(covers(), 1);
    release();
    ASSERT_TRUE(comesTrue([this] { return !panel().isVisible(); }));
    EXPECT_EQ(covers(), 0);
    EXPECT_EQ(storedExceptions(), pathsOf({"p/b.jpg"}));
    EXPECT_EQ(delegate->session().exceptionArrayData(), pathsOf({"p/b.jpg"}));
}

TEST_F(ExceptionListTest, AFailureKeepsThePanelThatWasToClose) {
    launchWith({"p/a.jpg", "p/b.jpg"});
    open();
    folder.writeFile("support/exception.plist.new/x", "");
    hold();
    removeRows({0});
    click("exceptionClose");
    release();
    ASSERT_TRUE(comesTrue([this] { return !information().empty(); }));
    click("scanInforOKBtn");
    EXPECT_TRUE(panel().isVisible());
    EXPECT_EQ(shownNames(), (Lines{"a.jpg", "b.jpg"}));
    click("exceptionClose");
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(covers(), 0);
}

TEST_F(ExceptionListTest, ClosingDoesNotWaitForAFileThatIsBlocked) {
    launchWith({"p/a.jpg", "p/b.jpg"});
    open();
    folder.writeFile("support/exception.plist.new/x", "");
    hold();
    removeRows({0});
    click("exceptionClose");
    ASSERT_TRUE(comesTrue([this] { return !panel().isVisible(); }));
    EXPECT_EQ(covers(), 0);
    EXPECT_FALSE(delegate->session().exceptionChanges.isOver());
    // What is being removed is not listed again.
    delegate->exceptionList().open();
    EXPECT_EQ(shownNames(), Lines{"b.jpg"});
    delegate->exceptionList().close();
    ASSERT_TRUE(comesTrue([this] { return !panel().isVisible(); }));
    release();
    ASSERT_TRUE(comesTrue([this] { return !information().empty(); }));
    EXPECT_EQ(information()[1], "The exceptions could not be saved.");
    EXPECT_EQ(covers(), 1);
    click("scanInforOKBtn");
    EXPECT_EQ(covers(), 0);
    EXPECT_FALSE(panel().isVisible());
}

TEST_F(ExceptionListTest, TheEndOfTheProgramWaitsForTheFile) {
    launchWith({"p/a.jpg", "p/b.jpg", "p/c.jpg"});
    open();
    removeRows({0, 0});
    delegate.reset();
    EXPECT_EQ(storedExceptions(), pathsOf({"p/c.jpg"}));
}

TEST_F(ExceptionListTest, AnAdditionComesAfterARemoval) {
    launchWith({"p/a.jpg", "p/b.jpg"});
    open();
    removeRows({0});
    delegate->session().addExceptions(pathsOf({"p/a.jpg"}));
    EXPECT_EQ(storedExceptions(), pathsOf({"p/b.jpg", "p/a.jpg"}));
    EXPECT_EQ(delegate->session().exceptionArrayData(), pathsOf({"p/b.jpg", "p/a.jpg"}));
    QCoreApplication::processEvents();
    EXPECT_EQ(delegate->session().exceptionArrayData(), pathsOf({"p/b.jpg", "p/a.jpg"}));
}

TEST_F(ExceptionListTest, CopiesTheSelectedPaths) {
    launchWith({"p/a.jpg", "p/b.jpg"});
    open();
    clickListed(0);
    QTest::keyClick(&listed(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&listed(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              folder.pathOf("p/a.jpg") + "\n" + folder.pathOf("p/b.jpg"));
}

TEST_F(ExceptionListTest, AClickOnATitleSorts) {
    launchWith({"q/a.jpg", "p/b.jpg"});
    open();
    EXPECT_EQ(shownNames(), (Lines{"a.jpg", "b.jpg"}));
    QTest::mouseClick(listed().horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(300, 14));
    EXPECT_EQ(shownNames(), (Lines{"b.jpg", "a.jpg"}));
    QTest::mouseClick(listed().horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(50, 14));
    EXPECT_EQ(shownNames(), (Lines{"a.jpg", "b.jpg"}));
}

TEST_F(ExceptionListTest, ASecondClickOnTheSameTitleTurnsTheOrderRound) {
    launchWith({"q/a.jpg", "p/b.jpg"});
    open();
    const QPoint nameTitle(50, 14);
    QTest::mouseClick(listed().horizontalHeader()->viewport(), Qt::LeftButton, {}, nameTitle);
    EXPECT_EQ(shownNames(), (Lines{"b.jpg", "a.jpg"}));
    QTest::mouseClick(listed().horizontalHeader()->viewport(), Qt::LeftButton, {}, nameTitle);
    EXPECT_EQ(shownNames(), (Lines{"a.jpg", "b.jpg"}));
}

TEST_F(ExceptionListTest, IsSortedByNameWheneverItIsOpened) {
    launchWith({"q/a.jpg", "p/b.jpg", "p/c.jpg"});
    open();
    QTest::mouseClick(listed().horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(300, 14));
    ASSERT_EQ(shownNames(), (Lines{"b.jpg", "c.jpg", "a.jpg"}));
    // A change of the list keeps the order.
    clickListed(1);
    click("exceptionRemove");
    EXPECT_EQ(shownNames(), (Lines{"b.jpg", "a.jpg"}));
    ASSERT_TRUE(written());
    click("exceptionClose");
    ASSERT_FALSE(panel().isVisible());
    open();
    EXPECT_EQ(shownNames(), (Lines{"a.jpg", "b.jpg"}));
}

TEST_F(ExceptionListTest, RowsThatComeBackKeepTheOrder) {
    launchWith({"q/a.jpg", "p/b.jpg", "p/c.jpg"});
    open();
    QTest::mouseClick(listed().horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(50, 14));
    folder.writeFile("support/exception.plist.new/x", "");
    removeRows({1});
    ASSERT_TRUE(comesTrue([this] { return !information().empty(); }));
    EXPECT_EQ(shownNames(), (Lines{"c.jpg", "b.jpg", "a.jpg"}));
}

TEST_F(ExceptionListTest, KeepsItsPlaceAfterARemoval) {
    Lines names;
    for (int number = 100; number < 200; ++number) {
        names.push_back("p/" + std::to_string(number) + ".jpg");
    }
    launchWith(names);
    open();
    listed().scrollTo(rows().index(60, 0), QAbstractItemView::PositionAtTop);
    const int scrolled = listed().verticalScrollBar()->value();
    ASSERT_GT(scrolled, 0);
    clickListed(62);
    click("exceptionRemove");
    EXPECT_EQ(listed().verticalScrollBar()->value(), scrolled);
    EXPECT_EQ(listed().currentIndex().row(), 62);
}

}  // namespace
}  // namespace tarvin
