#include "interface/result_screen.h"

#include "controls/elided_label.h"
#include "controls/focus_ring.h"
#include "controls/hover_button.h"
#include "controls/pop_up_button.h"
#include "controls/tab_button.h"
#include "controls/toggle_button.h"
#include "interface/frames.h"
#include "interface/image_view.h"
#include "interface/property_text.h"
#include "interface/shown_window.h"
#include "interface/some_results.h"

#include <QAccessible>
#include <QMenu>
#include <QScrollBar>
#include <QSignalSpy>

namespace tarvin {

namespace {

class ResultScreenTest : public ShownWindow {
 protected:
    ResultScreenTest() { window.selectTabViewItem(screen.identifier()); }

    static QVector<int> tagsOf(const QMenu& menu) {
        QVector<int> tags;
        for (const QAction* action : menu.actions()) {
            tags.push_back(action->data().toInt());
        }
        return tags;
    }
    static QString titlesOf(const QMenu& menu) {
        QStringList titles;
        for (const QAction* action : menu.actions()) {
            titles.push_back(action->text());
        }
        return titles.join(QLatin1Char('|'));
    }

    ResultScreen& screen = *window.results;
};

TEST_F(ResultScreenTest, ThePopUpHasItsItemsAndTags) {
    QStringList titles;
    for (int tag = 1; tag <= 5; ++tag) {
        screen.sortPopupBtn->selectItemWithTag(tag);
        EXPECT_EQ(screen.sortPopupBtn->selectedTag(), tag);
        titles.push_back(screen.sortPopupBtn->currentText());
    }
    EXPECT_EQ(titles.join(QLatin1Char('|')),
              QStringLiteral("Size|Name|Created Date|Modified Date|Dimension"));
    EXPECT_EQ(screen.sortPopupBtn->count(), 5);
}

TEST_F(ResultScreenTest, MenusHaveTheirItemsAndTags) {
    EXPECT_EQ(titlesOf(*screen.sortByMenu),
              QStringLiteral("Size|Name|Created Date|Modified Date|Dimension"));
    EXPECT_EQ(tagsOf(*screen.sortByMenu), QVector<int>({0, 1, 2, 3, 4}));
    EXPECT_EQ(titlesOf(*screen.sortingOrderMenu), QStringLiteral("Ascending|Descending"));
    EXPECT_EQ(tagsOf(*screen.sortingOrderMenu), QVector<int>({0, 1}));
    EXPECT_EQ(titlesOf(*screen.outlineMenu),
              QStringLiteral("Mark|Open|Show in Folder|Move to Trash|Move Others to Trash|Mark All "
                             "in Set|Unmark All in Set|Get Info"));
    EXPECT_EQ(tagsOf(*screen.outlineMenu), QVector<int>({0, 1, 2, 3, 4, 5, 6, 7}));
}

TEST_F(ResultScreenTest, SortControlsOpenTheirMenus) {
    const QVector<QPair<QWidget*, QMenu*>> openers = {
        {screen.sortPopupBtn, screen.sortByMenu},
        {screen.sortBtn, screen.sortingOrderMenu},
        {screen.asscendingBtn, screen.sortingOrderMenu}};
    for (const auto& [control, menu] : openers) {
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, {5, 5},
                                control->mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(control, &asked);
        EXPECT_TRUE(menu->isVisible()) << qPrintable(control->objectName());
        menu->close();
        control->setFocus();
        QTest::keyClick(control, Qt::Key_F10, Qt::ShiftModifier);
        EXPECT_TRUE(menu->isVisible()) << qPrintable(control->objectName());
        menu->close();
    }
}

TEST_F(ResultScreenTest, OrderTogglesAreOnAtFirst) {
    EXPECT_TRUE(screen.sortBtn->isChecked());
    EXPECT_TRUE(screen.asscendingBtn->isChecked());
    EXPECT_EQ(screen.sortBtn->glyph(), QStringLiteral("ui/sort_files"));
    EXPECT_EQ(screen.asscendingBtn->glyph(), QStringLiteral("ui/ascending"));
    QTest::mouseClick(screen.asscendingBtn, Qt::LeftButton);
    EXPECT_EQ(screen.asscendingBtn->glyph(), QStringLiteral("ui/descending"));
    QTest::mouseClick(screen.sortBtn, Qt::LeftButton);
    EXPECT_EQ(screen.sortBtn->glyph(), QStringLiteral("ui/sort_files"));
}

TEST_F(ResultScreenTest, OneDeleteButtonIsShown) {
    EXPECT_TRUE(screen.finishButton->isVisible());
    EXPECT_FALSE(screen.sendToRecycle->isVisible());
    EXPECT_FALSE(screen.deletePermanently->isVisible());
    EXPECT_EQ(screen.finishButton->fill(), QColor(176, 58, 54));
    EXPECT_DOUBLE_EQ(screen.finishButton->disabledOpacity(), 0.6);
}

TEST_F(ResultScreenTest, TheTableHidesAndShowsItsFrame) {
    auto* frame = control("resultTableFrame");
    screen.resultTable->hide();
    EXPECT_FALSE(frame->isVisible());
    screen.resultTable->show();
    EXPECT_TRUE(frame->isVisible());
    EXPECT_TRUE(screen.resultTable->isVisible());
}

TEST_F(ResultScreenTest, TheTableHiddenOnAnotherScreenStaysHidden) {
    window.selectTabViewItem(QStringLiteral("1"));
    screen.resultTable->hide();
    window.selectTabViewItem(screen.identifier());
    EXPECT_FALSE(control("resultTableFrame")->isVisible());
    screen.resultTable->show();
    EXPECT_TRUE(screen.resultTable->isVisible());
}

class KeyboardRingTest : public ResultScreenTest {
 protected:
    [[nodiscard]] int ringsShown() const {
        int shown = 0;
        for (const auto* ring : window.findChildren<FocusRing*>()) {
            shown += ring->isVisible() ? 1 : 0;
        }
        return shown;
    }
};

TEST_F(KeyboardRingTest, AnEmptyListShowsTheFocusAroundItself) {
    EXPECT_EQ(ringsShown(), 0);
    QTest::keyClick(screen.resultTable, Qt::Key_Backtab);
    ASSERT_EQ(window.focusWidget(), screen.OView2);
    EXPECT_EQ(ringsShown(), 1);

    DrawnResult result(false);
    screen.OView2->setModel(&result.sets);
    QTest::keyClick(screen.OView2, Qt::Key_Down);
    EXPECT_TRUE(screen.OView2->currentIndex().isValid());
    EXPECT_TRUE(QTest::qWaitFor([this] { return ringsShown() == 0; }, 20000));
    screen.OView2->setModel(nullptr);
}

TEST_F(KeyboardRingTest, TheTextShowsTheFocusAroundItself) {
    screen.textField->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(ringsShown(), 1);
    screen.markAll->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(ringsShown(), 0);
    screen.textField->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(ringsShown(), 0);
}

class ImageViewTest : public ResultScreenTest {
 protected:
    [[nodiscard]] QColor at(int x, int y) const {
        return screen.imView->grab().toImage().pixelColor(x, y);
    }
    static QImage plain(const QSize& size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::magenta);
        return image;
    }
};

TEST_F(ImageViewTest, ShowsNothingAtFirstAndAgainAfterANullImage) {
    EXPECT_EQ(at(0, 50), QColor(197, 207, 213));
    EXPECT_EQ(at(127, 95), QColor(255, 255, 255));
    screen.imView->setImage(plain({40, 30}));
    EXPECT_EQ(at(127, 95), QColor(Qt::magenta));
    screen.imView->setImage({});
    EXPECT_EQ(at(127, 95), QColor(255, 255, 255));
}

TEST_F(ImageViewTest, FillsItsAreaWithAnImageOfItsAspectRatio) {
    screen.imView->setImage(plain({640, 480}));
    EXPECT_EQ(at(1, 1), QColor(Qt::magenta));
    EXPECT_EQ(at(252, 189), QColor(Qt::magenta));
    EXPECT_EQ(at(0, 0), QColor(197, 207, 213));
    EXPECT_EQ(at(253, 190), QColor(197, 207, 213));
}

TEST_F(ImageViewTest, KeepsTheProportionsOfOthers) {
    screen.imView->setImage(plain({250, 250}));
    EXPECT_EQ(at(127, 1), QColor(Qt::magenta));
    EXPECT_EQ(at(127, 189), QColor(Qt::magenta));
    EXPECT_EQ(at(29, 95), QColor(255, 255, 255));
    EXPECT_EQ(at(35, 95), QColor(Qt::magenta));
    EXPECT_EQ(at(218, 95), QColor(Qt::magenta));
    EXPECT_EQ(at(224, 95), QColor(255, 255, 255));
}

TEST_F(ImageViewTest, ShowsAVeryThinImageAsALine) {
    screen.imView->setImage(plain({640, 1}));
    EXPECT_EQ(at(127, 50), QColor(255, 255, 255));
    EXPECT_EQ(at(1, 95), QColor(Qt::magenta));
    EXPECT_EQ(at(252, 95), QColor(Qt::magenta));
    screen.imView->setImage(plain({1, 640}));
    EXPECT_EQ(at(50, 95), QColor(255, 255, 255));
    EXPECT_EQ(at(127, 1) == QColor(Qt::magenta), at(127, 189) == QColor(Qt::magenta));
    EXPECT_TRUE(at(126, 100) == QColor(Qt::magenta) || at(127, 100) == QColor(Qt::magenta));
}

TEST_F(ImageViewTest, IsAsLargeAsItsPlaceInALargerWindow) {
    screen.imView->setImage(plain({640, 480}));
    resizeTo({1440, 900});
    EXPECT_EQ(geometryOf(screen.imView), QRect(1047, 97, 381, 286));
    EXPECT_EQ(at(1, 1), QColor(Qt::magenta));
    EXPECT_EQ(at(376, 284), QColor(Qt::magenta));
}

TEST_F(ImageViewTest, LeavesThePropertiesTheirHeightInAWideWindow) {
    resizeTo({2000, 531});
    const QRect text = geometryOf(control("textFieldFrame"));
    EXPECT_EQ(text.height(), 121);
    EXPECT_EQ(geometryOf(screen.imView), QRect(text.left(), 97, text.width(), 191));
}

TEST_F(ImageViewTest, AssistiveTechnologyFindsItsName) {
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(screen.imView);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->text(QAccessible::Name), QStringLiteral("Preview"));
}

class PropertyTextTest : public ResultScreenTest {
 protected:
    PropertyText& text = *screen.textField;
};

TEST_F(PropertyTextTest, ShowsTheTextLetterForLetter) {
    const QString shown = QStringLiteral(" <b>a</b>.jpg\nSize                       : 4.87 MB");
    text.setText(shown);
    EXPECT_EQ(text.text(), shown);
    EXPECT_EQ(text.toPlainText(), shown);
}

TEST_F(PropertyTextTest, LinesAreNineteenApart) {
    text.setText(QStringLiteral("one\ntwo\nthree"));
    QTextCursor cursor(text.document());
    const int first = text.cursorRect(cursor).top();
    cursor.movePosition(QTextCursor::NextBlock);
    EXPECT_EQ(text.cursorRect(cursor).top() - first, 19);
    cursor.movePosition(QTextCursor::NextBlock);
    EXPECT_EQ(text.cursorRect(cursor).top() - first, 38);
}

TEST_F(PropertyTextTest, CannotBeChanged) {
    text.setText(QStringLiteral("one"));
    text.setFocus();
    QTest::keyClicks(&text, QStringLiteral("abc"));
    QTest::keyClick(&text, Qt::Key_Delete);
    EXPECT_EQ(text.toPlainText(), QStringLiteral("one"));
}

TEST_F(PropertyTextTest, FiveLinesFitAndMoreCanBeReached) {
    text.setText(QStringLiteral(" 1\n2\n3\n4\n5"));
    QCoreApplication::processEvents();
    EXPECT_EQ(text.verticalScrollBar()->maximum(), 0);
    text.setText(QString(500, QLatin1Char('m')));
    EXPECT_TRUE(QTest::qWaitFor([this] { return text.verticalScrollBar()->maximum() > 0; }, 20000));
}

TEST_F(PropertyTextTest, TabLeavesIt) {
    text.setFocus();
    QTest::keyClick(&text, Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), screen.markAll);
}

TEST_F(PropertyTextTest, AssistiveTechnologyFindsNameAndText) {
    text.setText(QStringLiteral(" a.jpg"));
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&text);
    ASSERT_NE(told, nullptr);
    EXPECT_EQ(told->text(QAccessible::Name), QStringLiteral("File properties"));
    EXPECT_TRUE(told->state().readOnly);
    ASSERT_NE(told->textInterface(), nullptr);
    EXPECT_EQ(told->textInterface()->text(0, 6), QStringLiteral(" a.jpg"));
}

TEST_F(ResultScreenTest, AHostilePathStaysOnItsLine) {
    const QString path = QStringLiteral("Path: /a\n<b>x</b>/\u05D0\u05D1\uFFFD");
    screen.selectedPath->setText(path);
    EXPECT_EQ(screen.selectedPath->text(), path);
    EXPECT_EQ(screen.selectedPath->shownText(),
              QString(path).replace(QLatin1Char('\n'), QLatin1Char(' ')));
    screen.selectedPath->setText(path + QString(300, QLatin1Char('m')) + QStringLiteral("/end"));
    EXPECT_TRUE(screen.selectedPath->isElided());
    EXPECT_TRUE(screen.selectedPath->shownText().endsWith(QStringLiteral("/end")));
}

}  // namespace

}  // namespace tarvin
