#include "interface/exception_list_panel.h"

#include "controls/elided_label.h"
#include "controls/hover_button.h"
#include "controls/painted_button.h"
#include "interface/list_table.h"
#include "interface/search_field.h"
#include "interface/shown_window.h"

#include <QHeaderView>
#include <QLabel>
#include <QSignalSpy>

namespace tarvin {

namespace {

class ExceptionListPanelTest : public ShownWindow {
 protected:
    ExceptionListPanelTest() {
        listed.setHorizontalHeaderLabels({QStringLiteral("Name"), QStringLiteral("Folder")});
        for (int row = 0; row < 20; ++row) {
            auto* folder = new QStandardItem(QStringLiteral("/home/anna/Pictures"));
            folder->setData(QStringLiteral("Not there any more"), ListTable::markRole);
            listed.appendRow({new QStandardItem(QStringLiteral("beach.jpg")), folder});
        }
        panel.exceptionTable->setModel(&listed);
    }
    ~ExceptionListPanelTest() override { panel.exceptionTable->setModel(nullptr); }

    void show() {
        window.showOver(&panel, ExceptionListPanel::designGeometry, halfOfGain, halfOfGain);
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

    QStandardItemModel listed;
    ExceptionListPanel& panel = *window.exceptionListWindow;
    SearchField& field = *panel.exceptionSearch;
};

TEST_F(ExceptionListPanelTest, HasTheGeometryOfTheDesign) {
    show();
    EXPECT_EQ(geometryOf(&panel), QRect(168, 97, 680, 404));
    EXPECT_EQ(geometryOf(&field), QRect(192, 157, 300, 32));
    EXPECT_EQ(geometryOf(panel.exceptionCount).right() + 1, 824);
    EXPECT_EQ(geometryOf(panel.exceptionCount).top(), 164);
    EXPECT_EQ(geometryOf(control("exceptionTableFrame")), QRect(192, 201, 632, 220));
    EXPECT_EQ(geometryOf(panel.exceptionEmpty), QRect(192, 293, 632, 24));
    EXPECT_EQ(geometryOf(panel.exceptionRemove), QRect(192, 454, 92, 32));
    EXPECT_EQ(geometryOf(panel.exceptionRemoveMissing).topLeft(), QPoint(292, 454));
    EXPECT_EQ(geometryOf(panel.exceptionRemoveMissing).height(), 32);
    EXPECT_EQ(geometryOf(panel.exceptionClose), QRect(720, 453, 104, 34));
    EXPECT_EQ(panel.exceptionTable->columnWidth(0), 184);
    EXPECT_EQ(panel.exceptionTable->rowHeight(0), 30);

    resizeTo({1400, 900});
    EXPECT_EQ(geometryOf(&panel), QRect(168 + 96, 97 + 92, 680 + 192, 404 + 185));
    EXPECT_EQ(geometryOf(&field).size(), QSize(300, 32));
    EXPECT_EQ(panel.exceptionTable->columnWidth(0), 184);
}

TEST_F(ExceptionListPanelTest, HasItsTexts) {
    EXPECT_EQ(panel.header->text(), QStringLiteral("Exceptions"));
    EXPECT_EQ(field.placeholderText(), QStringLiteral("Search names and folders"));
    EXPECT_EQ(field.accessibleName(), QStringLiteral("Search exceptions"));
    EXPECT_EQ(field.clearButton()->accessibleName(), QStringLiteral("Clear search"));
    EXPECT_EQ(panel.exceptionTable->accessibleName(), QStringLiteral("Exceptions"));
    EXPECT_EQ(panel.exceptionRemove->text(), QStringLiteral("Remove"));
    EXPECT_EQ(panel.exceptionRemoveMissing->text(), QStringLiteral("Remove All Missing"));
    EXPECT_EQ(panel.exceptionClose->text(), QStringLiteral("Close"));
    EXPECT_EQ(panel.exceptionClose->fill(), QColor(14, 116, 138));
    EXPECT_EQ(panel.exceptionRemove->kind(), HoverButton::Kind::quiet);
    EXPECT_EQ(panel.exceptionEmpty->text(), QStringLiteral("No exceptions"));
    EXPECT_EQ(
        control<QLabel>("exceptionEmptyHint")->text(),
        QStringLiteral("Files that you add to the exceptions are skipped by every later scan."));
}

TEST_F(ExceptionListPanelTest, StartsOnTheSearch) {
    show();
    EXPECT_EQ(visited(6), QStringLiteral("exceptionSearch exceptionTable exceptionRemove "
                                         "exceptionRemoveMissing exceptionClose exceptionSearch"));
    EXPECT_FALSE(panel.exceptionEmpty->isVisible());
}

TEST_F(ExceptionListPanelTest, StartsOnCloseIfEmpty) {
    panel.setEmpty(true);
    show();
    EXPECT_TRUE(panel.exceptionEmpty->isVisible());
    EXPECT_TRUE(control("exceptionEmptyHint")->isVisible());
    EXPECT_FALSE(field.isEnabled());
    EXPECT_EQ(window.focusWidget(), panel.exceptionClose);
    panel.setEmpty(false);
    EXPECT_FALSE(panel.exceptionEmpty->isVisible());
    EXPECT_TRUE(field.isEnabled());
}

TEST_F(ExceptionListPanelTest, SaysThatNothingMatches) {
    show();
    EXPECT_FALSE(panel.exceptionNone->isVisible());
    panel.setNoneText(QStringLiteral("No exception matches \"x\"."));
    EXPECT_TRUE(panel.exceptionNone->isVisible());
    EXPECT_EQ(panel.exceptionNone->text(), QStringLiteral("No exception matches \"x\"."));
}

TEST_F(ExceptionListPanelTest, EscapeClearsTheSearchAndThenCloses) {
    const QSignalSpy closed(panel.exceptionClose, &QAbstractButton::clicked);
    show();
    QTest::keyClicks(window.focusWidget(), QStringLiteral("beach"));
    EXPECT_TRUE(field.clearButton()->isVisible());
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(field.text(), QString());
    EXPECT_FALSE(field.clearButton()->isVisible());
    EXPECT_EQ(closed.size(), 0);
    QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(closed.size(), 1);
}

TEST_F(ExceptionListPanelTest, EscapeInTheListClearsTheSearchFirst) {
    show();
    field.setText(QStringLiteral("beach"));
    panel.exceptionTable->setFocus();
    QTest::keyClick(panel.exceptionTable, Qt::Key_Escape);
    EXPECT_EQ(field.text(), QString());
    EXPECT_TRUE(panel.isVisible());
}

TEST_F(ExceptionListPanelTest, AClickClearsTheSearch) {
    show();
    QTest::keyClicks(&field, QStringLiteral("beach"));
    QTest::mouseClick(field.clearButton(), Qt::LeftButton);
    EXPECT_EQ(field.text(), QString());
    EXPECT_EQ(window.focusWidget(), &field);
}

TEST_F(ExceptionListPanelTest, ReturnClosesButNotInTheList) {
    const QSignalSpy closed(panel.exceptionClose, &QAbstractButton::clicked);
    show();
    panel.exceptionTable->setFocus();
    QTest::keyClick(panel.exceptionTable, Qt::Key_Return);
    EXPECT_EQ(closed.size(), 0);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(closed.size(), 1);
}

TEST_F(ExceptionListPanelTest, CtrlFGoesToTheSearch) {
    show();
    for (QWidget* from : {static_cast<QWidget*>(panel.exceptionTable),
                          static_cast<QWidget*>(panel.exceptionClose)}) {
        from->setFocus();
        QTest::keyClick(from, Qt::Key_F, Qt::ControlModifier);
        EXPECT_EQ(window.focusWidget(), &field);
    }
}

TEST_F(ExceptionListPanelTest, DeleteInTheListRemoves) {
    const QSignalSpy removed(panel.exceptionRemove, &QAbstractButton::clicked);
    show();
    panel.exceptionTable->setFocus();
    QTest::keyClick(panel.exceptionTable, Qt::Key_Delete);
    EXPECT_EQ(removed.size(), 1);
    panel.exceptionRemove->setEnabled(false);
    QTest::keyClick(panel.exceptionTable, Qt::Key_Delete);
    QTest::keyClick(&field, Qt::Key_Delete);
    EXPECT_EQ(removed.size(), 1);
}

TEST_F(ExceptionListPanelTest, CtrlAAndCtrlCAreForAllRows) {
    const QSignalSpy copies(&panel, &ExceptionListPanel::copyRequested);
    show();
    panel.exceptionTable->setFocus();
    QTest::keyClick(panel.exceptionTable, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(panel.exceptionTable->selectionModel()->selectedRows().size(), 20);
    QTest::keyClick(panel.exceptionTable, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copies.size(), 1);
}

TEST_F(ExceptionListPanelTest, CtrlAndADigitClickTheTitleOfAColumn) {
    const QSignalSpy clicks(panel.exceptionTable->horizontalHeader(), &QHeaderView::sectionClicked);
    show();
    panel.exceptionTable->setFocus();
    QTest::keyClick(panel.exceptionTable, Qt::Key_2, Qt::ControlModifier);
    QTest::keyClick(panel.exceptionTable, Qt::Key_3, Qt::ControlModifier);
    QTest::keyClick(panel.exceptionTable, Qt::Key_1);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_1, Qt::ControlModifier);
    ASSERT_EQ(clicks.size(), 2);
    EXPECT_EQ(clicks[0].front().toInt(), 1);
    EXPECT_EQ(clicks[1].front().toInt(), 0);
    EXPECT_EQ(field.text(), QString());
}

TEST_F(ExceptionListPanelTest, AClickOnATitleIsReported) {
    const QSignalSpy clicks(panel.exceptionTable->horizontalHeader(), &QHeaderView::sectionClicked);
    show();
    QTest::mouseClick(panel.exceptionTable->horizontalHeader()->viewport(), Qt::LeftButton, {},
                      QPoint(300, 14));
    ASSERT_EQ(clicks.size(), 1);
    EXPECT_EQ(clicks.front().front().toInt(), 1);
    EXPECT_FALSE(panel.exceptionTable->selectionModel()->hasSelection());
}

}  // namespace

}  // namespace tarvin
