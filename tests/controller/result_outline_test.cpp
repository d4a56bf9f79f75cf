#include "controller/result_fixture.h"
#include "controller/visibility_counter.h"

#include <QSignalSpy>

namespace tarvin {
namespace {

class Outline : public ThreeSetsFixture {
 protected:
    void openOutlineMenu(int set) {
        const QModelIndex name = tree().indexOfSet(0, set).siblingAtColumn(ResultTreeView::name);
        openMenu(outline().viewport(), outline().visualRect(name).center(),
                 window().results->outlineMenu);
    }
};

TEST_F(Outline, AClickOnASetShowsItsFiles) {
    select(0, 1);
    EXPECT_EQ(list().rowCount(), 3);
    EXPECT_EQ(fileText(2, ResultTable::nameText), "b3.jpg");
    EXPECT_EQ(fileText(0, ResultTable::fileGroup), "2");
    EXPECT_EQ(textOf("selectedPath"), "Path: " + folder.pathOf("found/b1.jpg"));
    EXPECT_FALSE(isCovered());
    select(1, 0);
    EXPECT_EQ(fileText(0, ResultTable::fileGroup), "1");
}

TEST_F(Outline, AClickOnASetCoversTheFilesMeanwhile) {
    const VisibilityCounter overlay(window().loadingView);
    select(0, 1);
    EXPECT_EQ(overlay.shown(), 1);
    EXPECT_EQ(overlay.hidden(), 1);
    select(0, 1);
    EXPECT_EQ(overlay.shown(), 2);
    EXPECT_EQ(overlay.hidden(), 2);
    clickRow(tree().indexOfExtension(0));
    QTest::keyClick(&outline(), Qt::Key_Down);
    EXPECT_EQ(overlay.shown(), 2);
}

TEST_F(Outline, AClickOnTheSelectedSetHidesTheOverlay) {
    select(0, 0);
    select(0, 0);
    EXPECT_FALSE(isCovered());
    EXPECT_EQ(list().rowCount(), 2);
}

TEST_F(Outline, AClickOnAnExtensionSelectsNothing) {
    select(0, 1);
    clickRow(tree().indexOfExtension(1));
    EXPECT_EQ(delegate->results().selected(), tree().indexOfSet(0, 1));
    EXPECT_EQ(list().rowCount(), 3);
    EXPECT_FALSE(isCovered());
}

TEST_F(Outline, WithoutASelectedSetNothingHappens) {
    select(0, 1);
    clickBox(tree().indexOfSet(0, 1));
    delegate->views().sortControls().sortByMenuClicked(2);
    ASSERT_TRUE(isCovered());
    const Lines files = names();
    const QSignalSpy reloaded(&list(), &QAbstractItemModel::modelReset);
    outline().clearSelection();
    delegate->views().outlineViewSelectionDidChange();
    EXPECT_EQ(reloaded.size(), 0);
    EXPECT_EQ(names(), files);
    EXPECT_EQ(textOf("selectedPath"), "Path: " + folder.pathOf("found/b1.jpg"));
    // Only selecting a set sets the effective key.
    EXPECT_EQ(delegate->views().sortControls().sorting(), "CreatDate");
    EXPECT_TRUE(isCovered());
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 2");
}

TEST_F(Outline, ArrowsSelectNothing) {
    select(0, 1);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Up, Qt::Key_Home, Qt::Key_End}) {
        QTest::keyClick(&outline(), key);
    }
    EXPECT_EQ(delegate->results().selected(), tree().indexOfSet(0, 1));
    EXPECT_EQ(list().rowCount(), 3);
}

TEST_F(Outline, ASetThatHasNoFilesLeftShowsNoRows) {
    select(0, 1);
    clickFileBox(0);
    clickBox(tree().indexOfSet(0, 1));
    click("finishButton");
    ASSERT_TRUE(comesTrue([this] { return window().informationWindow->isVisible(); }));
    click("scanInforOKBtn");
    ASSERT_TRUE(setOf(0, 1).files().empty());
    select(1, 0);
    ASSERT_EQ(list().rowCount(), 2);

    const VisibilityCounter overlay(window().loadingView);
    select(0, 1);
    EXPECT_EQ(delegate->results().selected(), tree().indexOfSet(0, 1));
    EXPECT_EQ(list().rowCount(), 0);
    EXPECT_EQ(overlay.shown(), 1);
    EXPECT_FALSE(isCovered());
    EXPECT_EQ(textOf("selectedPath"), "Path: " + folder.pathOf("found/c1.txt"));
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, QPoint(20, 10));
    EXPECT_TRUE(desktop.paths.empty());
}

TEST_F(Outline, ItsContextMenuDoesNothing) {
    click("markAll");
    QMenu* menu = window().results->outlineMenu;
    ASSERT_EQ(menu->actions().size(), 8);
    const QString marked = QString::fromStdString(textOf("selectedSize"));
    for (QAction* item : menu->actions()) {
        openOutlineMenu(1);
        choose(menu, item);
    }
    delegate->views().rightClicked();
    delegate->views().outlineMenu().righClickMenuItemClicked(99, {});
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
    EXPECT_EQ(textOf("selectedSize"), marked.toStdString());
    EXPECT_EQ(delegate->results().selected(), tree().indexOfSet(0, 0));
    EXPECT_TRUE(platform.trash().attempts().empty());
    EXPECT_TRUE(desktop.paths.empty());
    EXPECT_EQ(information(), Lines());
    EXPECT_FALSE(isCovered());
}

}  // namespace
}  // namespace tarvin
