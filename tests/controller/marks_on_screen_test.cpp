#include "controller/result_fixture.h"
#include "support/on_screen.h"

#include <QSignalSpy>

namespace tarvin {
namespace {

/// The marks on the screen after a real click. The views read the models live, so only the pixels
/// show whether they were asked to repaint.
class MarksOnScreen : public ThreeSetsFixture {
 protected:
    /// In the middle of a control, through the window.
    void clickInWindow(const QWidget* control, const QPoint& position) {
        QTest::mouseClick(window().windowHandle(), Qt::LeftButton, {},
                          control->mapTo(&window(), position));
    }
    void clickButton(const char* name) {
        const QWidget* button = control(name);
        clickInWindow(button, button->rect().center());
    }
    void clickBoxOf(const QModelIndex& row) { clickInWindow(outline().viewport(), boxOf(row)); }
    void clickBoxOfFile(int row) { clickInWindow(table().viewport(), boxOfFile(row)); }

    [[nodiscard]] QPoint boxOf(const QModelIndex& row) {
        return outline().visualRect(row.siblingAtColumn(ResultTreeView::check)).center();
    }
    [[nodiscard]] QPoint boxOfFile(int row) {
        return table().visualRect(list().index(row, ResultTable::ButtonCell)).center();
    }

    /// Whether the screen shows a checked or partially checked box.
    static bool isFilled(const QWidget* viewport, const QPoint& box) {
        const QImage screen = onScreen(*viewport);
        for (int x = box.x() - 6; x <= box.x() + 6; ++x) {
            if (screen.pixelColor(x, box.y()) == QColor(14, 116, 138)) {
                return true;
            }
        }
        return false;
    }
    [[nodiscard]] bool isMarked(int extension, int set) {
        return isFilled(outline().viewport(), boxOf(tree().indexOfSet(extension, set)));
    }
    [[nodiscard]] bool isExtensionMarked(int extension) {
        return isFilled(outline().viewport(), boxOf(tree().indexOfExtension(extension)));
    }
    [[nodiscard]] bool isFileMarked(int row) {
        return isFilled(table().viewport(), boxOfFile(row));
    }

    void expectUpToDate(const char* after) {
        EXPECT_TRUE(isUpToDate(*outline().viewport())) << after;
        EXPECT_TRUE(isUpToDate(*table().viewport())) << after;
    }
};

TEST_F(MarksOnScreen, MarkAllAndUnmarkAllAreSeenInBothLists) {
    const QImage sets = onScreen(*outline().viewport());
    const QImage files = onScreen(*table().viewport());
    ASSERT_FALSE(isMarked(0, 1));

    clickButton("markAll");
    EXPECT_TRUE(isExtensionMarked(0));
    EXPECT_TRUE(isMarked(0, 0));
    EXPECT_TRUE(isMarked(0, 1));
    EXPECT_TRUE(isMarked(1, 0));
    EXPECT_FALSE(isFileMarked(0));
    EXPECT_TRUE(isFileMarked(1));
    expectUpToDate("mark all");

    clickButton("unMarkAll");
    EXPECT_TRUE(onScreen(*outline().viewport()) == sets);
    EXPECT_TRUE(onScreen(*table().viewport()) == files);
}

TEST_F(MarksOnScreen, ABoxOfASetIsSeenInItsExtensionAndItsFiles) {
    clickBoxOf(tree().indexOfSet(0, 0));
    EXPECT_TRUE(isMarked(0, 0));
    EXPECT_TRUE(isExtensionMarked(0));
    EXPECT_FALSE(isMarked(0, 1));
    EXPECT_TRUE(isFileMarked(1));
    expectUpToDate("a set");
    clickBoxOf(tree().indexOfSet(0, 0));
    EXPECT_FALSE(isMarked(0, 0));
    EXPECT_FALSE(isExtensionMarked(0));
    EXPECT_FALSE(isFileMarked(1));
    expectUpToDate("the set again");
}

TEST_F(MarksOnScreen, ABoxOfAnExtensionIsSeenInItsSetsAndTheirFiles) {
    clickBoxOf(tree().indexOfExtension(0));
    EXPECT_TRUE(isMarked(0, 0));
    EXPECT_TRUE(isMarked(0, 1));
    EXPECT_FALSE(isMarked(1, 0));
    EXPECT_TRUE(isFileMarked(1));
    expectUpToDate("an extension");
}

TEST_F(MarksOnScreen, ABoxOfAFileIsSeenInItsSetAndExtension) {
    clickBoxOfFile(0);
    EXPECT_TRUE(isFileMarked(0));
    EXPECT_TRUE(isMarked(0, 0));
    EXPECT_TRUE(isExtensionMarked(0));
    expectUpToDate("a file");
    clickBoxOfFile(0);
    EXPECT_FALSE(isFileMarked(0));
    EXPECT_FALSE(isMarked(0, 0));
    expectUpToDate("the file again");
}

TEST_F(MarksOnScreen, ARefusalUpdatesEverythingToo) {
    clickBoxOfFile(0);
    ASSERT_TRUE(isMarked(0, 0));
    // Changes that were not reported to views and controls.
    setOf(0, 0).setSetsState(CheckState::off);
    window().results->selectedCount->setText(QStringLiteral("stale"));
    window().results->markAll->setEnabled(false);
    ASSERT_TRUE(isMarked(0, 0));
    const QSignalSpy fileRows(&list(), &QAbstractItemModel::dataChanged);

    clickBoxOfFile(1);
    ASSERT_EQ(information()[1], "All the files of same set cannot be selected");
    EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 1");
    EXPECT_TRUE(isEnabled("markAll"));
    EXPECT_FALSE(isMarked(0, 0));
    ASSERT_EQ(fileRows.size(), 1);
    EXPECT_EQ(fileRows.front().front().toModelIndex().row(), 1);
    click("scanInforOKBtn");
    expectUpToDate("the refusal");
}

TEST_F(MarksOnScreen, FollowAChangeOfTabs) {
    clickButton("markAll");
    clickButton("imageButton");
    click("scanInforOKBtn");
    EXPECT_FALSE(isMarked(0, 0));
    EXPECT_FALSE(isFileMarked(1));
    expectUpToDate("another tab");
}

TEST_F(MarksOnScreen, FollowACleanUpAndExceptions) {
    clickBoxOf(tree().indexOfSet(0, 1));
    clickButton("finishButton");
    ASSERT_TRUE(comesTrue([this] { return !information().empty(); }));
    click("scanInforOKBtn");
    EXPECT_FALSE(isMarked(0, 1));
    EXPECT_FALSE(isExtensionMarked(0));
    expectUpToDate("a clean-up");

    clickBoxOfFile(1);
    ASSERT_TRUE(isFileMarked(1));
    clickButton("addEceptionBtn");
    click("excOKBtn");
    click("scanInforOKBtn");
    ASSERT_EQ(list().rowCount(), 1);
    EXPECT_FALSE(isMarked(0, 0));
    EXPECT_FALSE(isFileMarked(0));
    expectUpToDate("exceptions");
}

/// The order of updates after a change of marks.
class OrderOfMarking : public ThreeSetsFixture {
 protected:
    OrderOfMarking() = default;

    void SetUp() override {
        ThreeSetsFixture::SetUp();
        QObject::connect(&tree(), &QAbstractItemModel::dataChanged, &noted_,
                         [this] { note("tree"); });
        QObject::connect(&list(), &QAbstractItemModel::dataChanged, &noted_,
                         [this] { note("files"); });
    }

    /// Records the views in the order of their updates, and labels and buttons at that time.
    void note(const std::string& view) {
        if (order_.empty() || order_.back() != view) {
            order_.push_back(view);
        }
        if (count_.empty()) {
            count_ = textOf("selectedCount");
            unmarks_ = isEnabled("unMarkAll");
        }
    }
    void expectOrder(const Lines& views, const std::string& count, bool unmarks) {
        EXPECT_EQ(order_, views);
        EXPECT_EQ(count_, count);
        EXPECT_EQ(unmarks_, unmarks);
        order_.clear();
        count_.clear();
    }

 private:
    QObject noted_;
    Lines order_;
    std::string count_;
    bool unmarks_ = false;
};

TEST_F(OrderOfMarking, IsTotalsAndButtonsBeforeTheViews) {
    click("markAll");
    expectOrder({"tree", "files"}, "Marked Duplicate Files: 4", true);
    click("unMarkAll");
    expectOrder({"tree", "files"}, "Marked Duplicate Files: 0", false);
    clickBox(tree().indexOfSet(0, 0));
    expectOrder({"files", "tree"}, "Marked Duplicate Files: 1", true);
    clickBox(tree().indexOfExtension(0));
    expectOrder({"files", "tree"}, "Marked Duplicate Files: 3", true);
    click("unMarkAll");
    expectOrder({"tree", "files"}, "Marked Duplicate Files: 0", false);
    clickFileBox(1);
    expectOrder({"files", "tree"}, "Marked Duplicate Files: 1", true);
    clickFileBox(0);
    ASSERT_EQ(information()[0], "Information");
    expectOrder({"files", "tree"}, "Marked Duplicate Files: 1", true);
}

}  // namespace
}  // namespace tarvin
