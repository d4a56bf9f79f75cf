#include "interface/list_panel.h"

#include "controls/hover_button.h"
#include "controls/look.h"
#include "interface/list_table.h"
#include "interface/result_panels.h"
#include "interface/shown_window.h"
#include "interface/text_block.h"
#include "support/on_screen.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QToolTip>
#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tarvin {

namespace {

/// Counts the rows whose text is read.
class ManyRows final : public QAbstractTableModel {
 public:
    explicit ManyRows(int rows) : rows_(rows) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : rows_;
    }
    [[nodiscard]] int columnCount(const QModelIndex&) const override { return 3; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) {
            return {};
        }
        last = std::max(last, index.row());
        return QStringLiteral("%1-%2 of a name that is long enough to be shortened")
            .arg(index.row())
            .arg(index.column());
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation, int role) const override {
        return role == Qt::DisplayRole ? QVariant(QStringLiteral("T%1").arg(section)) : QVariant();
    }

    mutable int last = -1;

 private:
    int rows_;
};

class ListPanelTest : public ShownWindow {
 protected:
    ListPanelTest() {
        window.selectTabViewItem(QStringLiteral("4"));
        panel.table->setModel(&rows);
    }
    ~ListPanelTest() override { panel.table->setModel(nullptr); }

    void show() {
        window.showOver(&panel, ListPanel::designGeometry, halfOfGain, halfOfGain);
        QCoreApplication::sendPostedEvents();
    }

    [[nodiscard]] int columnWidth(int column) const { return panel.table->columnWidth(column); }

    /// Drags the right edge of a column.
    void drag(int column, int by) {
        QHeaderView* header = panel.table->horizontalHeader();
        const QPoint edge(header->sectionViewportPosition(column) + header->sectionSize(column) - 1,
                          14);
        QTest::mousePress(header->viewport(), Qt::LeftButton, {}, edge);
        const QPointF there = edge + QPoint(by, 0);
        QMouseEvent move(QEvent::MouseMove, there, header->viewport()->mapToGlobal(there),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(header->viewport(), &move);
        QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, edge + QPoint(by, 0));
    }

    ManyRows rows{10'000};
    ListPanel& panel = *window.keptWindow;
};

TEST_F(ListPanelTest, HasTheGeometryOfTheDesign) {
    show();
    EXPECT_EQ(geometryOf(&panel), QRect(168, 97, 680, 404));
    EXPECT_EQ(geometryOf(control("keptSentence")), QRect(192, 155, 632, 18));
    EXPECT_EQ(geometryOf(control("keptTableFrame")), QRect(192, 185, 632, 236));
    EXPECT_EQ(geometryOf(control("keptCopy")), QRect(192, 454, 104, 32));
    EXPECT_EQ(geometryOf(control("keptClose")), QRect(720, 453, 104, 34));
    EXPECT_EQ(panel.table->rowHeight(0), 30);
    EXPECT_EQ(panel.table->horizontalHeader()->height(), 28);
    EXPECT_EQ(columnWidth(0), 160);
    EXPECT_EQ(columnWidth(1), 632 - 2 - 12 - 160 - 226);
    EXPECT_EQ(columnWidth(2), 226);
}

TEST_F(ListPanelTest, HasTitleAndSentence) {
    EXPECT_EQ(panel.objectName(), QStringLiteral("keptWindow"));
    EXPECT_EQ(panel.header->text(), QStringLiteral("Left Where They Are"));
    EXPECT_EQ(panel.sentence->text(),
              QStringLiteral("These files were not moved to the Trash. They are still in the "
                             "results and still marked."));
    EXPECT_EQ(panel.copyButton->text(), QStringLiteral("Copy List"));
    EXPECT_EQ(panel.closeButton->text(), QStringLiteral("Close"));
    EXPECT_EQ(panel.table->accessibleName(), QStringLiteral("Files left where they are"));
    EXPECT_EQ(panel.closeButton->fill(), QColor(14, 116, 138));
}

TEST_F(ListPanelTest, ThatOfUnreadableFilesHasTheSameGeometryAndItsOwnTexts) {
    ListPanel& other = *window.notReadWindow;
    window.showOver(&other, ListPanel::designGeometry, halfOfGain, halfOfGain);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(other.objectName(), QStringLiteral("notReadWindow"));
    EXPECT_EQ(geometryOf(&other), QRect(168, 97, 680, 404));
    EXPECT_EQ(geometryOf(control("notReadSentence")), QRect(192, 155, 632, 18));
    EXPECT_EQ(geometryOf(control("notReadTableFrame")), QRect(192, 185, 632, 236));
    EXPECT_EQ(geometryOf(control("notReadCopy")), QRect(192, 454, 104, 32));
    EXPECT_EQ(geometryOf(control("notReadClose")), QRect(720, 453, 104, 34));
    EXPECT_EQ(control<QLabel>("notReadHeader")->text(), QStringLiteral("Could Not Be Read"));
    EXPECT_EQ(other.sentence->text(),
              QStringLiteral("These folders and files were left out of the scan. Copies in them "
                             "were not found."));
    EXPECT_EQ(control("notReadTable")->accessibleName(),
              QStringLiteral("Folders and files that could not be read"));
    EXPECT_EQ(other.copyButton->text(), QStringLiteral("Copy List"));
    EXPECT_EQ(other.closeButton->text(), QStringLiteral("Close"));
}

TEST_F(ListPanelTest, TakesHalfOfWhatTheWindowGains) {
    show();
    resizeTo({1400, 900});
    EXPECT_EQ(geometryOf(&panel), QRect(168 + 96, 97 + 92, 680 + 192, 404 + 185));
    EXPECT_EQ(geometryOf(control("keptTableFrame")).size(), QSize(632 + 192, 236 + 185));
    // The middle column stretches.
    EXPECT_EQ(columnWidth(0), 160);
    EXPECT_EQ(columnWidth(2), 226);
}

TEST_F(ListPanelTest, KeepsTheFocusInsideBeginningWithClose) {
    show();
    QStringList visited;
    for (int pressed = 0; pressed < 4; ++pressed) {
        visited.push_back(window.focusWidget()->objectName());
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(visited.join(QLatin1Char(' ')),
              QStringLiteral("keptClose keptTable keptCopy keptClose"));
}

TEST_F(ListPanelTest, EscapeClosesAndReturnInTheListDoesNot) {
    show();
    const QSignalSpy closed(panel.closeButton, &QAbstractButton::clicked);
    panel.table->setFocus();
    QTest::keyClick(panel.table, Qt::Key_Down);
    QTest::keyClick(panel.table, Qt::Key_Return);
    QTest::keyClick(panel.table, Qt::Key_Enter);
    EXPECT_EQ(closed.size(), 0);
    EXPECT_TRUE(panel.table->currentIndex().isValid());
    QTest::keyClick(panel.table, Qt::Key_Escape);
    EXPECT_EQ(closed.size(), 1);
    panel.closeButton->setFocus();
    QTest::keyClick(panel.closeButton, Qt::Key_Return);
    EXPECT_EQ(closed.size(), 2);
}

TEST_F(ListPanelTest, DrawsOnlyTheRowsInView) {
    show();
    rows.last = -1;
    panel.table->viewport()->repaint();
    EXPECT_GE(rows.last, 5);
    EXPECT_LE(rows.last, 10);
}

TEST_F(ListPanelTest, DraggingAnEdgeResizesBothNeighbours) {
    show();
    drag(0, 40);
    EXPECT_EQ(columnWidth(0), 200);
    EXPECT_EQ(columnWidth(1), 232 - 40);
    drag(1, -30);
    EXPECT_EQ(columnWidth(1), 232 - 70);
    EXPECT_EQ(columnWidth(2), 226 + 30);
    // Not further than both remain visible.
    drag(0, 1000);
    EXPECT_EQ(columnWidth(1), 48);
    EXPECT_EQ(columnWidth(0) + columnWidth(1) + columnWidth(2), 618);
}

TEST_F(ListPanelTest, AltAndArrowsMoveTheEdges) {
    show();
    panel.table->setFocus();
    QTest::keyClick(panel.table, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(columnWidth(0), 160 + 16);
    EXPECT_EQ(columnWidth(1), 232 - 16);
    QTest::keyClick(panel.table, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(columnWidth(0), 160);
    QTest::keyClick(panel.table, Qt::Key_Left, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(columnWidth(0), 160);
    EXPECT_EQ(columnWidth(1), 232 - 16);
    EXPECT_EQ(columnWidth(2), 226 + 16);
    for (int pressed = 0; pressed < 40; ++pressed) {
        QTest::keyClick(panel.table, Qt::Key_Right, Qt::AltModifier);
    }
    EXPECT_EQ(columnWidth(1), 48);
    EXPECT_EQ(columnWidth(0) + columnWidth(1) + columnWidth(2), 618);
}

TEST_F(ListPanelTest, ATipShowsTheWholeTextOfAShortenedCell) {
    show();
    const QRect cell = panel.table->visualRect(rows.index(1, 0));
    const QPoint global = panel.table->viewport()->mapToGlobal(cell.center());
    QHelpEvent help(QEvent::ToolTip, cell.center(), global);
    QCoreApplication::sendEvent(panel.table->viewport(), &help);
    EXPECT_TRUE(QToolTip::text().contains(
        QStringLiteral("1-0 of a name that is long enough to be shortened")))
        << QToolTip::text().toStdString();
    QToolTip::hideText();
}

/// A list with one row, whose name has an image.
class OneRowWithAnImage final : public QAbstractTableModel {
 public:
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : 1;
    }
    [[nodiscard]] int columnCount(const QModelIndex&) const override { return 3; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (index.column() != 0) {
            return {};
        }
        if (role == ListTable::pictureRole) {
            return picture;
        }
        return role == Qt::DisplayRole ? QVariant(text) : QVariant();
    }

    QString picture;
    QString text;
};

class ListTablePictureTest : public ListPanelTest {
 protected:
    ListTablePictureTest() {
        panel.table->setModel(&row);
        show();
    }

    [[nodiscard]] QImage cell() {
        return panel.table->viewport()->grab(panel.table->visualRect(row.index(0, 0))).toImage();
    }
    /// The left edge of what is painted in the cell.
    [[nodiscard]] int inkLeft() {
        const QImage image = cell();
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 2; y < image.height() - 2; ++y) {
                if (image.pixelColor(x, y).lightness() < 200) {
                    return x;
                }
            }
        }
        return -1;
    }

    OneRowWithAnImage row;
};

TEST_F(ListTablePictureTest, TheImageIsBeforeTheName) {
    row.text = QStringLiteral("HHH");
    const int text = inkLeft();
    EXPECT_GE(text, 12);
    EXPECT_LE(text, 14);
    row.picture = QStringLiteral("folder");
    const int picture = inkLeft();
    EXPECT_GE(picture, 12);
    EXPECT_LE(picture, 15);
    row.picture = QStringLiteral("no such image");
    EXPECT_EQ(inkLeft(), text + 26);
}

TEST_F(ListTablePictureTest, ATipShowsANameThatTheImageShortens) {
    const auto tip = [this] {
        QToolTip::hideText();
        const QRect cell = panel.table->visualRect(row.index(0, 0));
        QHelpEvent help(QEvent::ToolTip, cell.center(),
                        panel.table->viewport()->mapToGlobal(cell.center()));
        QCoreApplication::sendEvent(panel.table->viewport(), &help);
        return QToolTip::text();
    };
    const QFontMetrics metrics(look::font(13, QFont::Medium));
    while (metrics.horizontalAdvance(row.text) <= 136 - 13) {
        row.text += QLatin1Char('i');
    }
    EXPECT_EQ(tip(), QString());
    row.picture = QStringLiteral("folder");
    EXPECT_TRUE(tip().contains(row.text)) << tip().toStdString();
    QToolTip::hideText();
}

/// A list with one path, at whose right is a mark.
class OnePathWithAMark final : public QAbstractTableModel {
 public:
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : 1;
    }
    [[nodiscard]] int columnCount(const QModelIndex&) const override { return 3; }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        if (index.column() != 1) {
            return {};
        }
        if (role == ListTable::markRole) {
            return mark;
        }
        return role == Qt::DisplayRole ? QVariant(text) : QVariant();
    }

    QString mark;
    QString text;
};

TEST_F(ListPanelTest, ATipShowsAPathThatItsMarkShortens) {
    OnePathWithAMark row;
    panel.table->setModel(&row);
    show();
    const QRect cell = panel.table->visualRect(row.index(0, 1));
    const auto tip = [&] {
        QToolTip::hideText();
        QHelpEvent help(QEvent::ToolTip, cell.center(),
                        panel.table->viewport()->mapToGlobal(cell.center()));
        QCoreApplication::sendEvent(panel.table->viewport(), &help);
        return QToolTip::text();
    };
    const QFontMetrics metrics(look::font(13));
    while (metrics.horizontalAdvance(row.text + QLatin1Char('i')) <= cell.width() - 2 * 12) {
        row.text += QLatin1Char('i');
    }
    EXPECT_EQ(tip(), QString());
    const QString filling = std::exchange(row.text, QStringLiteral("/p"));
    row.mark = QStringLiteral("Drive not attached");
    EXPECT_EQ(tip(), QString());
    row.text = filling;
    EXPECT_TRUE(tip().contains(filling)) << tip().toStdString();
    QToolTip::hideText();
    panel.table->setModel(nullptr);
}

TEST_F(ListPanelTest, TheRowBelowThePointerIsTinted) {
    show();
    ListTable& table = *panel.table;
    const auto colorOf = [&](int row) {
        // At the left edge, where no text is.
        const QRect cell = table.visualRect(rows.index(row, 0));
        return onScreen(*table.viewport()).pixelColor(4, cell.center().y());
    };
    const auto pointAt = [&](const QWidget& widget, const QPoint& point) {
        QTest::mouseMove(window.windowHandle(), widget.mapTo(&window, point));
    };
    const auto becomes = [&](int row, const QColor& color) {
        return QTest::qWaitFor([&] { return colorOf(row) == color; }, 20000);
    };
    // Since the rows were painted.
    ASSERT_TRUE(QTest::qWaitFor([&] { return table.viewport()->hasMouseTracking(); }, 20000));
    // Into a cell of another column than the one looked at.
    pointAt(*table.viewport(), table.visualRect(rows.index(1, 2)).center());
    EXPECT_TRUE(becomes(1, look::rowHover));
    EXPECT_EQ(colorOf(0), look::surface);
    pointAt(*table.viewport(), table.visualRect(rows.index(0, 1)).center());
    EXPECT_TRUE(becomes(0, look::rowHover));
    EXPECT_TRUE(becomes(1, look::surface));
    pointAt(*panel.copyButton, QPoint(5, 5));
    EXPECT_TRUE(becomes(0, look::surface));
}

class KeptLineTest : public ShownWindow {
 protected:
    KeptLineTest() { window.selectTabViewItem(QStringLiteral("4")); }

    void show(const QString& kept) {
        panel.scanInfoCount->setText(QStringLiteral("Duplicates Cleaned: 1394"));
        panel.scanInfoSize->setText(QStringLiteral("Space Regained: 139.54 MB "));
        panel.setKeptLine(kept);
        window.showOver(&panel, QPoint(250, 200));
        QCoreApplication::sendPostedEvents();
    }

    InformationPanel& panel = *window.informationWindow;
};

TEST_F(KeptLineTest, IsBelowTheLinesNextToItsButton) {
    show(QStringLiteral("12 files were left where they are."));
    EXPECT_EQ(geometryOf(&panel), QRect(250, 141, 516, 190));
    const QRect line = geometryOf(control("keptLine"));
    EXPECT_EQ(line.topLeft(), QPoint(394, 255));
    EXPECT_EQ(line.height(), 20);
    const QRect button = geometryOf(control("keptShow"));
    EXPECT_EQ(button.left(), line.right() + 1 + 4);
    EXPECT_GE(button.height(), 24);
    EXPECT_LE(button.right(), 394 + 348);
    EXPECT_FALSE(button.intersects(geometryOf(panel.scanInforOKBtn)));
}

TEST_F(KeptLineTest, IsNotThereIfNothingWasLeft) {
    show({});
    EXPECT_FALSE(control("keptLine")->isVisible());
    EXPECT_FALSE(control("keptShow")->isVisible());
    EXPECT_EQ(window.focusWidget(), panel.scanInforOKBtn);
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), panel.scanInforOKBtn);
}

TEST_F(KeptLineTest, TheFocusBeginsOnOkAndMovesToShow) {
    show(QStringLiteral("12 files were left where they are."));
    EXPECT_EQ(window.focusWidget(), panel.scanInforOKBtn);
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), panel.keptShow);
    const auto& button = *control<HoverButton>("keptShow");
    EXPECT_EQ(button.text(), QStringLiteral("Show…"));
    EXPECT_EQ(button.accessibleName(),
              QStringLiteral("Show the files that were left where they are"));
    EXPECT_EQ(button.kind(), HoverButton::Kind::text);
}

TEST_F(KeptLineTest, WhatWasNotReadIsBesideTheAnswer) {
    EXPECT_FALSE(panel.notReadShow->isVisible());
    panel.scanInfoCount->setText(QStringLiteral("Media : 0"));
    panel.scanInfoSize->setText(QStringLiteral("Documents : 0"));
    panel.scanOtherInfo->setText(QStringLiteral("Others : 0"));
    panel.setNotRead(QStringLiteral("3 files could not be read."));
    show({});
    EXPECT_EQ(geometryOf(&panel), QRect(250, 141, 516, 190));
    const QRect button = geometryOf(panel.notReadShow);
    const QRect answer = geometryOf(panel.scanInforOKBtn);
    EXPECT_EQ(button.left(), 394);
    EXPECT_LT(button.right(), answer.left());
    EXPECT_GE(button.height(), 24);
    EXPECT_LE(std::abs(button.center().y() - answer.center().y()), 1);
    EXPECT_GT(button.top(), geometryOf(panel.scanOtherInfo).bottom());
    EXPECT_EQ(panel.notReadShow->kind(), HoverButton::Kind::text);
}

TEST_F(KeptLineTest, TheFocusReturnsToTheScreenAfterTheListReplacedIt) {
    QWidget* before = control("OView2");
    before->setFocus();
    show(QStringLiteral("12 files were left where they are."));
    window.showInPlaceOf(&panel, window.keptWindow, ListPanel::designGeometry, halfOfGain,
                         halfOfGain);
    EXPECT_FALSE(panel.isVisible());
    EXPECT_EQ(window.focusWidget(), window.keptWindow->closeButton);
    window.showInPlaceOf(window.keptWindow, &panel, {250, 141, 516, 190});
    EXPECT_FALSE(window.keptWindow->isVisible());
    EXPECT_EQ(window.focusWidget(), panel.scanInforOKBtn);
    panel.hide();
    EXPECT_EQ(window.focusWidget(), before);
}

}  // namespace

}  // namespace tarvin
