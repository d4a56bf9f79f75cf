#include "interface/file_menu.h"

#include "interface/result_screen.h"
#include "interface/shown_window.h"

#include <QAction>
#include <QScreen>

namespace tarvin {

namespace {

class FileMenuTest : public ShownWindow {
 protected:
    FileMenu& menu = *window.results->fileMenu;
};

TEST_F(FileMenuTest, HasItsItemsInThreeGroups) {
    QStringList texts;
    for (const QAction* item : menu.actions()) {
        texts.push_back(item->isSeparator() ? QStringLiteral("-") : item->text());
    }
    EXPECT_EQ(texts, QStringList({QStringLiteral("Open"), QStringLiteral("Open Containing Folder"),
                                  QStringLiteral("Copy Path"), QStringLiteral("-"),
                                  QStringLiteral("Keep This One"),
                                  QStringLiteral("Mark All in This Folder"), QStringLiteral("-"),
                                  QStringLiteral("Add to Exceptions\u2026")}));
}

TEST_F(FileMenuTest, IsAtLeast226PixelsWideAnd216High) {
    menu.popup({10, 10});
    EXPECT_GE(menu.width(), 226);
    EXPECT_EQ(menu.height(), 216);
    menu.close();
}

TEST_F(FileMenuTest, StaysInsideTheScreen) {
    const QRect screen = window.screen()->availableGeometry();
    menu.popup(screen.bottomRight() - QPoint(3, 3));
    EXPECT_TRUE(screen.contains(menu.geometry()))
        << menu.geometry().bottom() << " " << menu.geometry().right();
    menu.close();
    const QPoint middle = screen.center() - QPoint(150, 150);
    menu.popup(middle);
    EXPECT_EQ(menu.pos(), middle);
    menu.close();
}

TEST_F(FileMenuTest, EnablesItsItemsWhileItIsClosed) {
    menu.popup({10, 10});
    menu.keepItem->setEnabled(false);
    menu.close();
    EXPECT_TRUE(menu.keepItem->isEnabled());
}

}  // namespace

}  // namespace tarvin
