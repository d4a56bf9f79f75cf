#include "controller/product_fixture.h"
#include "controller/rows.h"
#include "controls/attributed_title.h"
#include "controls/hover_button.h"
#include "controls/windows_like_button.h"
#include "interface/location_screen.h"
#include "interface/location_table.h"
#include "interface/notice_panel.h"
#include "interface/text_block.h"

#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <algorithm>

namespace tarvin {
namespace {

/// The location list of the product during browsing.
class BrowsedList : public ProductFixture {
 protected:
    using Names = std::vector<std::string>;
    using States = std::vector<bool>;

    BrowsedList() {
        folder.makeFolder("Documents/10 ten");
        folder.makeFolder("Documents/9 nine");
        folder.makeFolder("Pictures/2022");
    }

    [[nodiscard]] LocationTable& table() { return *window().locations->tableExact; }

    void check(const std::string& name) {
        const QModelIndex cell = cellOf(name, LocationTable::buttonCell);
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                          table().visualRect(cell).center());
    }

    void open(const std::string& name) {
        const QPoint position = table().visualRect(cellOf(name, LocationTable::mainCell)).center();
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {}, position);
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, {}, position);
    }

    [[nodiscard]] Names names() {
        Names names;
        for (const std::string& path : namesOf(delegate->locations().list())) {
            names.push_back(path.substr(folder.path().size() + 1));
        }
        return names;
    }
    [[nodiscard]] States states() { return statesOf(delegate->locations().list()); }

    /// Which of the buttons over the list and Scan are enabled.
    [[nodiscard]] States buttons() {
        States enabled;
        for (const char* name : {"markAllExactBtn", "unmarkAllExactBtn", "removeFromListExactBtn",
                                 "findDuplicateExact"}) {
            enabled.push_back(control(name)->isEnabled());
        }
        return enabled;
    }

    const States nothingChecked{true, false, false, false};
    const States someChecked{true, true, true, true};
    const States allChecked{false, true, true, true};

 private:
    QModelIndex cellOf(const std::string& name, int column) {
        const Names all = names();
        const auto row = std::find(all.begin(), all.end(), name) - all.begin();
        EXPECT_LT(row, static_cast<std::ptrdiff_t>(all.size())) << name;
        return table().model()->index(static_cast<int>(row), column);
    }
};

TEST_F(BrowsedList, ShowsFoldersSortedByName) {
    files.setListingOrder(ListingOrder::sorted);
    launch();
    click("mainScanButtonFolder");
    open("Documents");
    EXPECT_EQ(names(), (Names{"Documents/9 nine", "Documents/10 ten"}));
}

TEST_F(BrowsedList, HasButtonsThatFollowEachLevel) {
    launch();
    click("mainScanButtonFolder");
    check("Pictures");
    ASSERT_EQ(buttons(), someChecked);
    open("Documents");
    EXPECT_EQ(buttons(), nothingChecked);
    EXPECT_EQ(window().locations->findDuplicateExact->alpha(), 0.6);
    click("backFolderButton");
    EXPECT_EQ(buttons(), someChecked);
    EXPECT_EQ(window().locations->findDuplicateExact->alpha(), 1.0);
    click("nextFolderButton");
    EXPECT_EQ(buttons(), nothingChecked);
    click("backFolderButton");
    open("Pictures");
    EXPECT_EQ(buttons(), allChecked);
}

TEST_F(BrowsedList, GivesTheFocusOfAButtonThatCannotBePressedAgainToItsCounterpart) {
    launch();
    click("mainScanButtonFolder");
    check("Pictures");
    open("Documents");
    control("backFolderButton")->setFocus();
    click("backFolderButton");
    EXPECT_TRUE(window().locations->nextFolderButton->hasFocus());
    click("nextFolderButton");
    EXPECT_TRUE(window().locations->backFolderButton->hasFocus());
}

TEST_F(BrowsedList, LeavesTheFocusOnAButtonThatCanBePressedAgain) {
    folder.makeFolder("Documents/10 ten/inner");
    launch();
    click("mainScanButtonFolder");
    open("Documents");
    open("Documents/10 ten");
    control("backFolderButton")->setFocus();
    click("backFolderButton");
    EXPECT_TRUE(window().locations->backFolderButton->hasFocus());
}

TEST_F(BrowsedList, LeavesTheFocusOfAnotherControlWhenALevelIsLeftByItsShortcut) {
    launch();
    click("mainScanButtonFolder");
    open("Documents");
    control("addFolders")->setFocus();
    QTest::keyClick(control("addFolders"), Qt::Key_Left, Qt::AltModifier);
    ASSERT_FALSE(window().locations->backFolderButton->isEnabled());
    EXPECT_TRUE(window().locations->addFolders->hasFocus());
}

TEST_F(BrowsedList, KeepsItsButtonsWhereALevelHasNothingToShow) {
    launch();
    click("mainScanButtonFolder");
    window().locations->findDuplicateExact->setEnabled(true);
    open("Desktop");
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_TRUE(window().locations->findDuplicateExact->isEnabled());
}

TEST_F(BrowsedList, KeepsFoldersOfTheCommandLine) {
    launch({folder.pathOf("Pictures"), folder.makeFolder("more")});
    const Names all{"Desktop", "Documents", "Pictures", "volume", "more"};
    ASSERT_EQ(names(), all);
    open("Documents");
    EXPECT_EQ(buttons(), nothingChecked);
    click("backFolderButton");
    EXPECT_EQ(names(), all);
    EXPECT_EQ(states(), (States{false, false, true, false, true}));
    EXPECT_EQ(buttons(), someChecked);
}

TEST_F(BrowsedList, KeepsFoldersOfASecondStart) {
    launch();
    click("mainScanButtonFolder");
    open("Documents");
    platform.runningInstances().openInThis({folder.makeFolder("more")});
    ASSERT_TRUE(comesTrue([this] { return names().size() == 3; }));
    click("backFolderButton");
    EXPECT_EQ(names(), (Names{"Desktop", "Documents", "Pictures", "volume"}));
    click("nextFolderButton");
    EXPECT_EQ(names(), (Names{"Documents/9 nine", "Documents/10 ten", "more"}));
    EXPECT_EQ(states(), (States{false, false, true}));
    EXPECT_EQ(buttons(), someChecked);
}

TEST_F(BrowsedList, KeepsFoldersAndPhotosOfThePanels) {
    launch();
    click("mainScanButtonFolder");
    panels.choice = {{folder.makeFolder("a"), folder.makeFolder("b")}};
    click("addFolders");
    panels.choice = {{folder.writeFile("photo.jpg", "x")}};
    click("addPhotos");
    check("a");
    open("Documents");
    click("backFolderButton");
    EXPECT_EQ(names(),
              (Names{"Desktop", "Documents", "Pictures", "volume", "a", "b", "photo.jpg"}));
    EXPECT_EQ(states(), (States{false, false, false, false, false, true, true}));
    EXPECT_FALSE(delegate->locations().list().rows().back().folder);
}

TEST_F(BrowsedList, ForgetsThemAtHome) {
    launch({folder.makeFolder("more")});
    open("Documents");
    click("buttonHomeExactPage");
    click("mainScanButtonFolder");
    EXPECT_EQ(names(), (Names{"Desktop", "Documents", "Pictures", "volume"}));
    open("Documents");
    click("backFolderButton");
    EXPECT_EQ(names(), (Names{"Desktop", "Documents", "Pictures", "volume"}));
}

TEST_F(BrowsedList, AsksForPicturesOfPhotosInTheirSize) {
    QImage image(740, 370, QImage::Format_RGB32);
    image.fill(Qt::red);
    const std::string photo = folder.pathOf("wide.png");
    ASSERT_TRUE(image.save(QString::fromStdString(photo)));
    launch();
    click("mainScanButton");
    panels.choice = {{photo}};
    click("addPhotos");
    const QModelIndex cell = table().model()->index(1, LocationTable::mainCell);
    EXPECT_TRUE(comesTrue(
        [&] { return cell.data(Qt::DecorationRole).value<QPixmap>().size() == QSize(74, 37); }));
}

TEST_F(BrowsedList, RestoresTheStyledTitleOfScan) {
    launch();
    click("mainScanButtonFolder");
    HoverButton& scan = *window().locations->findDuplicateExact;
    scan.setAttributedTitle({QStringLiteral("other"), Qt::red, 9, Qt::AlignLeft, true});
    check("Pictures");
    EXPECT_EQ(scan.title(), QStringLiteral("other"));
    check("Pictures");
    EXPECT_EQ(scan.attributedTitle(),
              (AttributedTitle{QStringLiteral("Scan"), QColor(255, 255, 255), 14, Qt::AlignHCenter,
                               false}));
}

/// The product's own file dialogs.
class OwnPanels : public BrowsedList {
 protected:
    OwnPanels() {
        QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        usedPanels = nullptr;
    }

    QFileDialog* openPanel(const char* button) {
        click(button);
        auto* panel = window().findChild<QFileDialog*>();
        EXPECT_NE(panel, nullptr);
        EXPECT_EQ(panel->parentWidget(), &window());
        EXPECT_EQ(panel->windowModality(), Qt::WindowModal);
        EXPECT_TRUE(panel->isVisible());
        return panel;
    }

    void answer(QFileDialog* panel, const std::string& path) {
        panel->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))
            ->setText(QString::fromStdString(path));
        static_cast<QDialog*>(panel)->accept();
        ASSERT_TRUE(comesTrue([this] { return window().findChild<QFileDialog*>() == nullptr; }));
    }
};

TEST_F(OwnPanels, AddFoldersAndPhotos) {
    launch();
    click("mainScanButton");
    answer(openPanel("addFolders"), folder.makeFolder("more"));
    EXPECT_EQ(names(), (Names{"volume", "more"}));
    EXPECT_EQ(buttons(), someChecked);
    answer(openPanel("addPhotos"), folder.writeFile("photo.dcx", "x"));
    EXPECT_EQ(names(), (Names{"volume", "more", "photo.dcx"}));
    EXPECT_FALSE(window().runningAlert->isVisible());
    answer(openPanel("addFolders"), folder.pathOf("more"));
    EXPECT_TRUE(window().runningAlert->isVisible());
    EXPECT_EQ(window().runningAlertText->text(), QStringLiteral("Folder already added."));
}

TEST_F(BrowsedList, KeepsItsButtonsWhereThePanelAddsNoFolder) {
    launch();
    click("mainScanButtonFolder");
    panels.choice = {{folder.pathOf("Pictures")}};
    window().locations->findDuplicateExact->setEnabled(true);
    click("addFolders");
    EXPECT_TRUE(window().locations->findDuplicateExact->isEnabled());
    click("runningAlertOk");
    panels.choice = {{folder.makeFolder("more")}};
    window().locations->unmarkAllExactBtn->setEnabled(false);
    click("addFolders");
    EXPECT_EQ(buttons(), someChecked);
}

}  // namespace
}  // namespace tarvin
