#include "controller/home_image.h"
#include "controller/product_fixture.h"
#include "controls/button_hover_complex.h"
#include "controls/hover_button.h"
#include "controls/windows_like_button.h"
#include "interface/about_panel.h"
#include "interface/home_screen.h"
#include "interface/location_screen.h"
#include "interface/location_table.h"
#include "interface/notice_panel.h"
#include "interface/picture_view.h"
#include "interface/text_block.h"
#include "support/add_to_totals.h"

#include <QAction>
#include <QFileOpenEvent>
#include <QLabel>
#include <QMenu>
#include <algorithm>
#include <filesystem>

namespace tarvin {
namespace {

/// Counts the windows shown during its lifetime.
class ShownWindows final : public QObject {
 public:
    ShownWindows() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        count_ += event->type() == QEvent::Show && watched->isWindowType() ? 1 : 0;
        return false;
    }

    [[nodiscard]] int count() const { return count_; }

 private:
    int count_ = 0;
};

class Launch : public ProductFixture {
 protected:
    [[nodiscard]] QString imageOfOneRun() {
        launch();
        const QString name = window().home->homePage->pictureName();
        window().close();
        return name;
    }
};

TEST_F(Launch, BeginsAtHome) {
    launch();
    EXPECT_EQ(screen(), QStringLiteral("1"));
    EXPECT_FALSE(window().locations->findDuplicateExact->isEnabled());
    EXPECT_EQ(window().locations->findDuplicateExact->alpha(), 0.6);
    EXPECT_TRUE(delegate->session().awake);
    EXPECT_EQ(delegate->session().currentLoggedInUser, "me");
    EXPECT_EQ(window().aboutVersion->text(), QStringLiteral("Version 1.2.3"));
}

TEST_F(Launch, ShowsThreeHomeImagesInTurn) {
    EXPECT_EQ(imageOfOneRun(), QStringLiteral("HomePage1.png"));
    EXPECT_EQ(imageOfOneRun(), QStringLiteral("HomePage2.png"));
    EXPECT_EQ(imageOfOneRun(), QStringLiteral("HomePage3.png"));
    EXPECT_EQ(imageOfOneRun(), QStringLiteral("HomePage1.png"));
}

TEST_F(Launch, ShowsTheFirstImageForInvalidSettings) {
    settings.setValue(homeImageKey, QStringLiteral("nonsense"));
    EXPECT_EQ(imageOfOneRun(), QStringLiteral("HomePage1.png"));
}

TEST_F(Launch, HidesTotalsOfZero) {
    launch();
    EXPECT_FALSE(window().home->cleanHistory->isVisible());
}

TEST_F(Launch, ShowsTheTotalsOfEarlierRuns) {
    DataFile data(folder.pathOf("support"));
    ASSERT_FALSE(addToTotals(data, 1284, 18'620'000'000));
    launch();
    EXPECT_TRUE(window().home->cleanHistory->isVisible());
    EXPECT_EQ(window().home->cleanHistory->text(),
              QStringLiteral("Files cleaned so far: 1284 (18.62 GB)"));
    click("mainScanButton");
    EXPECT_FALSE(window().home->cleanHistory->isVisible());
    click("buttonHomeExactPage");
    EXPECT_TRUE(window().home->cleanHistory->isVisible());
}

TEST_F(Launch, WithFoldersOpensTheListWithThemChecked) {
    launch({folder.pathOf("volume"), folder.makeFolder("more")});
    EXPECT_EQ(screen(), QStringLiteral("2"));
    const std::vector<LocationRow>& rows = delegate->locations().list().rows();
    EXPECT_EQ(rows.back().name, folder.pathOf("more"));
    EXPECT_TRUE(rows.back().state);
    EXPECT_TRUE(window().locations->findDuplicateExact->isEnabled());
}

TEST_F(Launch, WithAListedFolderChecksItWithoutANotice) {
    launch({folder.pathOf("Pictures")});
    const std::vector<LocationRow>& rows = delegate->locations().list().rows();
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_TRUE(rows[2].state);
    EXPECT_FALSE(window().runningAlert->isVisible());
}

TEST_F(Launch, AsksASecondInstanceToQuit) {
    platform.runningInstances().setOthers({{1}}, {2});
    start();
    EXPECT_EQ(platform.runningInstances().askedToQuit(), (std::vector<RunningInstance>{{2}}));
    EXPECT_EQ(platform.runningInstances().broughtToFront(), (std::vector<RunningInstance>{{1}}));
}

TEST_F(Launch, OfASecondInstancePassesItsFoldersOn) {
    platform.runningInstances().setOthers({{1}}, {2});
    start({folder.pathOf("Pictures"), folder.makeFolder("more")});
    EXPECT_EQ(platform.runningInstances().handedOn(),
              (std::vector<std::string>{folder.pathOf("Pictures"), folder.pathOf("more")}));
    EXPECT_EQ(screen(), window().home->identifier());
}

TEST_F(Launch, OfTheFirstInstancePassesNothingOn) {
    platform.runningInstances().setOthers({{2}}, {1});
    launch({folder.pathOf("Pictures")});
    EXPECT_TRUE(platform.runningInstances().handedOn().empty());
    EXPECT_EQ(screen(), window().locations->identifier());
}

TEST_F(Launch, OfASecondInstanceEndsWithoutAWindow) {
    const ShownWindows shown;
    launch();
    EXPECT_EQ(shown.count(), 1);
    delegate.reset();
    platform.runningInstances().setOthers({{1}}, {2});
    start();
    EXPECT_TRUE(comesTrue([&] { return terminations == 1; }));
    EXPECT_EQ(shown.count(), 1);
}

TEST_F(Launch, LosingARaceForFirstInstanceShowsNoWindow) {
    platform.runningInstances().letOthersComeFirst({{1}}, {2});
    const ShownWindows shown;
    start();
    EXPECT_TRUE(comesTrue([&] { return terminations == 1; }));
    EXPECT_EQ(shown.count(), 0);
}

TEST_F(Launch, HandlesRequestsMadeDuringTheStart) {
    make();
    platform.runningInstances().openInThis({folder.makeFolder("more")});
    QCoreApplication::processEvents();
    EXPECT_EQ(screen(), window().home->identifier());
    delegate->applicationDidFinishLaunching();
    EXPECT_TRUE(comesTo("2"));
    EXPECT_EQ(delegate->locations().list().rows().back().name, folder.pathOf("more"));
}

TEST_F(Launch, EndsOnAQuitRequest) {
    launch();
    platform.runningInstances().askThisToQuit();
    EXPECT_TRUE(comesTrue([&] { return terminations == 1; }));
}

TEST_F(Launch, ActivatesTheWindowOnRequest) {
    launch();
    window().showMinimized();
    platform.runningInstances().bringThisToFront();
    EXPECT_TRUE(comesTrue([&] { return !window().isMinimized(); }));
}

TEST_F(Launch, RestoresAMaximisedWindowMaximised) {
    launch();
    window().showMaximized();
    ASSERT_TRUE(comesTrue([&] { return window().isMaximized(); }));
    window().showMinimized();
    ASSERT_TRUE(comesTrue([&] { return window().isMinimized(); }));
    platform.runningInstances().bringThisToFront();
    EXPECT_TRUE(comesTrue([&] { return !window().isMinimized(); }));
    EXPECT_TRUE(window().isMaximized());
}

/// Folders passed on by another instance.
class FoldersOfAnotherInstance : public ProductFixture {
 protected:
    void SetUp() override { launch(); }

    void handOver(const char* name) {
        platform.runningInstances().openInThis({folder.makeFolder(name)});
    }
    [[nodiscard]] const std::vector<LocationRow>& rows() {
        return delegate->locations().list().rows();
    }
    [[nodiscard]] bool comesChecked(const char* name) {
        return comesTrue([&] {
            return !rows().empty() && rows().back().name == folder.pathOf(name) &&
                   rows().back().state;
        });
    }
    void expectRefusal() {
        ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
        EXPECT_EQ(alerts.shown[0].messageText, QStringLiteral("Tarvin Duplicate File Remover"));
        EXPECT_EQ(alerts.shown[0].informativeText,
                  QStringLiteral("To scan other folders, return to the start screen first."));
        EXPECT_EQ(alerts.shown[0].buttons, QStringList{QStringLiteral("Ok")});
    }
};

TEST_F(FoldersOfAnotherInstance, OpenTheListAtTheStart) {
    handOver("more");
    EXPECT_TRUE(comesChecked("more"));
    EXPECT_EQ(screen(), window().locations->identifier());
    EXPECT_TRUE(window().locations->findDuplicateExact->isEnabled());
    EXPECT_TRUE(alerts.shown.empty());
}

TEST_F(FoldersOfAnotherInstance, AreAddedToTheListOfFolders) {
    click("mainScanButtonFolder");
    handOver("more");
    EXPECT_TRUE(comesChecked("more"));
    const std::size_t before = rows().size();
    handOver("and more");
    EXPECT_TRUE(comesChecked("and more"));
    EXPECT_EQ(rows().size(), before + 1);
    EXPECT_TRUE(rows()[before - 1].state);
}

TEST_F(FoldersOfAnotherInstance, HideTheAboutPanel) {
    window().showAbout();
    handOver("more");
    EXPECT_TRUE(comesChecked("more"));
    EXPECT_FALSE(window().windowAboutPanel->isVisible());
    EXPECT_EQ(screen(), window().locations->identifier());
}

TEST_F(FoldersOfAnotherInstance, AreRefusedInTheListOfDrives) {
    click("mainScanButton");
    const std::size_t before = rows().size();
    handOver("more");
    expectRefusal();
    EXPECT_EQ(rows().size(), before);
}

TEST_F(FoldersOfAnotherInstance, AreRefusedOnceWhileTheRefusalIsOpen) {
    click("mainScanButton");
    handOver("more");
    expectRefusal();
    handOver("and more");
    QCoreApplication::processEvents();
    EXPECT_EQ(alerts.shown.size(), 1U);
    alerts.press(0);
    handOver("and more");
    EXPECT_TRUE(comesTrue([this] { return alerts.shown.size() == 2; }));
}

class FoldersOpenedByTheDesktop : public ProductFixture {
 protected:
    void SetUp() override { launch(); }

    void open(const std::string& path) {
        QFileOpenEvent event(QString::fromStdString(path));
        QCoreApplication::sendEvent(qApp, &event);
    }
};

TEST_F(FoldersOpenedByTheDesktop, AreListedAndChecked) {
    open(folder.makeFolder("more") + "/");
    EXPECT_EQ(screen(), window().locations->identifier());
    ASSERT_FALSE(delegate->locations().list().rows().empty());
    EXPECT_EQ(delegate->locations().list().rows().back().name, folder.pathOf("more"));
    EXPECT_TRUE(delegate->locations().list().rows().back().state);
}

TEST_F(FoldersOpenedByTheDesktop, AreFolders) {
    open(folder.writeFile("letter", "Dear"));
    open(folder.pathOf("missing"));
    EXPECT_EQ(screen(), window().home->identifier());
}

class Screens : public ProductFixture {
 protected:
    void SetUp() override { launch(); }
};

TEST_F(Screens, GoFromHomeToDrivesAndBack) {
    click("mainScanButton");
    EXPECT_EQ(screen(), QStringLiteral("2"));
    EXPECT_EQ(window().locations->tableExact->model()->headerData(0, Qt::Horizontal).toString(),
              QStringLiteral("Select Drive"));
    EXPECT_EQ(delegate->locations().list().rows().size(), 1U);
    EXPECT_TRUE(delegate->session().exact);
    click("buttonHomeExactPage");
    EXPECT_EQ(screen(), QStringLiteral("1"));
    EXPECT_TRUE(delegate->locations().list().rows().empty());
    EXPECT_TRUE(delegate->locations().history().folderBrowser().empty());
}

TEST_F(Screens, GoFromHomeToFolders) {
    click("mainScanButtonFolder");
    EXPECT_EQ(screen(), QStringLiteral("2"));
    EXPECT_EQ(window().locations->tableExact->model()->headerData(0, Qt::Horizontal).toString(),
              QStringLiteral("Select Folders (Double click to go deeper)"));
    const std::vector<LocationRow>& rows = delegate->locations().list().rows();
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[0].name, folder.pathOf("Desktop"));
    EXPECT_EQ(rows[3].name, folder.pathOf("volume"));
}

TEST_F(Screens, AnOpenAboutWindowKeepsTheListFromOpening) {
    window().aboutMenuItem->trigger();
    ASSERT_TRUE(window().windowAboutPanel->isVisible());
    delegate->locations().buttonScanDriveClicked();
    EXPECT_EQ(screen(), QStringLiteral("1"));
    delegate->locations().buttonScanFoldersClicked();
    EXPECT_EQ(screen(), QStringLiteral("1"));
    EXPECT_TRUE(delegate->locations().list().scanFolderClicked());
}

TEST_F(Screens, TheAboutWindowDoesNotOpenWhileTheSettingsAreVisible) {
    window().settingsWindow->show();
    window().aboutMenuItem->trigger();
    EXPECT_FALSE(window().windowAboutPanel->isVisible());
}

TEST_F(Screens, HomeButtonsAreBlockedByDifferentPanels) {
    const auto stays = [&](void (AppDelegate::*home)()) {
        window().selectTabViewItem(QStringLiteral("2"));
        (delegate.get()->*home)();
        return screen() == QStringLiteral("2");
    };
    window().settingsWindow->show();
    EXPECT_TRUE(stays(&AppDelegate::buttonHomeExactPageClicked));
    EXPECT_FALSE(stays(&AppDelegate::buttonHomePageClicked));
    EXPECT_FALSE(stays(&AppDelegate::buttonHomeSimilarPageClicked));
    window().settingsWindow->hide();
    window().showAbout();
    EXPECT_TRUE(stays(&AppDelegate::buttonHomeExactPageClicked));
    EXPECT_TRUE(stays(&AppDelegate::buttonHomePageClicked));
    EXPECT_FALSE(stays(&AppDelegate::buttonHomeSimilarPageClicked));
}

TEST_F(Screens, ClosingTheWindowEndsTheProgramAndStoresThePicture) {
    window().close();
    EXPECT_GE(terminations, 1);
    EXPECT_EQ(settings.value(homeImageKey).toString(), QStringLiteral("2"));
}

TEST_F(Screens, AScanForSimilarImagesIsMarkedAndNeverBegins) {
    delegate->locations().buttonScanFolderClicked();
    EXPECT_FALSE(delegate->session().exact);
    EXPECT_TRUE(delegate->session().similar);
    delegate->scan().buttonFindDuplicatesExactClicked();
    EXPECT_TRUE(delegate->scan().scanning());
    EXPECT_EQ(screen(), QStringLiteral("2"));
    EXPECT_FALSE(window().close());
}

class HelpMenu : public ProductFixture {};

TEST_F(HelpMenu, OpensNothingWithoutUrls) {
    launch();
    EXPECT_FALSE(window().supportMenuItem->isEnabled());
    delegate->help().supportMenuClicked();
    EXPECT_TRUE(desktop.urls.isEmpty());
}

TEST_F(HelpMenu, OpensTheGuide) {
    guide = QString::fromStdString(folder.pathOf("share/index.html"));
    launch();
    ASSERT_TRUE(window().helpMenuItem->isEnabled());
    window().helpMenuItem->trigger();
    EXPECT_EQ(desktop.paths, std::vector<std::string>{folder.pathOf("share/index.html")});
}

TEST_F(HelpMenu, OpensTheSupportUrl) {
    urls = QString::fromStdString(
        folder.writeFile("Urls.plist",
                         "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>Support</key>"
                         "<string>https://example.org/help</string></dict></plist>"));
    launch();
    window().supportMenuItem->trigger();
    EXPECT_EQ(desktop.urls, QStringList{QStringLiteral("https://example.org/help")});
}

TEST_F(HelpMenu, OffersNoSupportIfTheListIsDamaged) {
    const std::string begin = "<?xml version=\"1.0\"?><plist version=\"1.0\">";
    for (const std::string& list :
         {std::string("damaged"), begin, begin + "<array><string>Support</string></array></plist>",
          begin + "<dict><key>Support</key><integer>1</integer></dict></plist>",
          begin + "<dict><key>Help</key><string>https://example.org</string></dict></plist>"}) {
        urls = QString::fromStdString(folder.writeFile("Urls.plist", list));
        launch();
        EXPECT_FALSE(window().supportMenuItem->isEnabled()) << list;
        delegate->help().supportMenuClicked();
        EXPECT_TRUE(desktop.urls.isEmpty());
        delegate.reset();
    }
}

TEST_F(HelpMenu, OpensBelowItsButton) {
    launch();
    click("buttonHelpManual");
    EXPECT_TRUE(window().helpMenu->isVisible());
    window().helpMenu->close();
}

/// Positions of panels, in points of the smallest window.
class Places : public ProductFixture {
 protected:
    void SetUp() override { launch(); }
};

TEST_F(Places, OfANoticeOfTheList) {
    click("mainScanButtonFolder");
    panels.choice = {{folder.pathOf("Pictures")}};
    click("addFolders");
    // 220 to the right and 50 down from the corner of the list area at 55, 134.
    EXPECT_EQ(window().runningAlert->geometry(), QRect(275, 184, 466, 140));
}

TEST_F(Places, OfTheQuestionWhetherToStop) {
    delegate->scan().stop();
    const QRect geometry = window().confirmationView->geometry();
    EXPECT_EQ(geometry.left(), 350);
    EXPECT_EQ(window().height() - 1 - geometry.bottom(), 235);
}

TEST_F(Places, OfTheNoticeOfClosing) {
    delegate->locations().buttonScanFolderClicked();
    delegate->scan().buttonFindDuplicatesExactClicked();
    EXPECT_FALSE(window().close());
    const QRect geometry = window().runningAlert->geometry();
    EXPECT_EQ(geometry.left(), 275);
    EXPECT_EQ(window().height() - 1 - geometry.bottom(), 225);
}

/// The state after returning to the home screen.
class Home : public ProductFixture {
 protected:
    void SetUp() override { launch(); }
};

TEST_F(Home, EntersDrivesAfterFolders) {
    click("mainScanButtonFolder");
    click("buttonHomeExactPage");
    click("mainScanButton");
    EXPECT_EQ(delegate->locations().list().rows().size(), 1U);
    EXPECT_FALSE(delegate->locations().list().scanFolderClicked());
}

TEST_F(Home, ClearsCheckStates) {
    click("mainScanButtonFolder");
    delegate->locations().markAllExact();
    window().locations->tableExact->model()->setData(
        window().locations->tableExact->model()->index(2, LocationTable::buttonCell),
        static_cast<int>(Qt::Checked), Qt::CheckStateRole);
    click("buttonHomeExactPage");
    click("mainScanButtonFolder");
    for (const LocationRow& row : delegate->locations().list().rows()) {
        EXPECT_FALSE(row.state) << row.name;
    }
}

TEST_F(Home, HidesTheNoticeOfTheList) {
    click("mainScanButtonFolder");
    panels.choice = {{folder.pathOf("Pictures")}};
    click("addFolders");
    ASSERT_TRUE(window().runningAlert->isVisible());
    click("buttonHomeExactPage");
    EXPECT_FALSE(window().runningAlert->isVisible());
}

TEST_F(Home, HidesTheLoadingOverlay) {
    delegate->showLoading();
    EXPECT_TRUE(window().loadingView->isVisible());
    delegate->session().totalSelected = 3;
    delegate->session().totalSize = 4;
    delegate->session().summaries.imageTabInfo = true;
    window().home->buttonScanDrive->setAlpha(0.5);
    delegate->homeCleanup();
    EXPECT_FALSE(window().loadingView->isVisible());
    EXPECT_EQ(delegate->session().totalSelected, 0U);
    EXPECT_EQ(delegate->session().totalSize, 0U);
    EXPECT_EQ(delegate->session().summaries, SummariesShown());
    EXPECT_EQ(window().home->buttonScanDrive->alpha(), 1.0);
}

TEST_F(Home, ShowsThePanelOfALongTask) {
    delegate->startAnimation();
    EXPECT_TRUE(window().progressWindow->isVisible());
    delegate->stopAnimation();
    EXPECT_FALSE(window().progressWindow->isVisible());
}

TEST_F(Home, CanBeInitialisedAgain) {
    settings.setValue(homeImageKey, QStringLiteral("3"));
    delegate->awakeFromNib();
    EXPECT_EQ(window().home->homePage->pictureName(), QStringLiteral("HomePage3.png"));
    click("mainScanButtonFolder");
    EXPECT_EQ(delegate->locations().list().rows().size(), 4U);
}

/// The location list as it is entered.
class Entry : public ProductFixture {
 protected:
    void SetUp() override { launch(); }
};

TEST_F(Entry, BeginsWithDisabledButtons) {
    click("mainScanButtonFolder");
    delegate->locations().markAllExact();
    delegate->locations().buttonScanFoldersClicked();
    for (const char* name : {"markAllExactBtn", "unmarkAllExactBtn", "removeFromListExactBtn",
                             "findDuplicateExact", "backFolderButton", "nextFolderButton"}) {
        EXPECT_FALSE(control(name)->isEnabled()) << name;
    }
    EXPECT_EQ(window().locations->findDuplicateExact->alpha(), 0.6);
}

TEST_F(Entry, IsBlockedByTheSettingsPanel) {
    window().settingsWindow->show();
    delegate->locations().buttonScanDriveClicked();
    EXPECT_EQ(screen(), QStringLiteral("1"));
}

TEST_F(Entry, OfDrivesAfterBlockedFoldersListsFolders) {
    window().settingsWindow->show();
    delegate->locations().buttonScanFoldersClicked();
    window().settingsWindow->hide();
    delegate->locations().buttonScanDriveClicked();
    EXPECT_EQ(window().locations->tableExact->model()->headerData(0, Qt::Horizontal).toString(),
              QStringLiteral("Select Drive"));
    EXPECT_EQ(delegate->locations().list().rows().size(), 4U);
}

class LocationScreenTest : public ProductFixture {
 protected:
    void SetUp() override {
        folder.makeFolder("Pictures/2022/January");
        folder.makeFolder("Pictures/2023");
        launch();
    }

    /// A click into the check box of a row.
    void check(int row) {
        LocationTable& table = *window().locations->tableExact;
        const QModelIndex cell = table.model()->index(row, LocationTable::buttonCell);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(cell).center());
    }

    void doubleClick(int row) {
        LocationTable& table = *window().locations->tableExact;
        const QPoint position =
            table.visualRect(table.model()->index(row, LocationTable::mainCell)).center();
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, position);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, position);
    }

    [[nodiscard]] const std::vector<LocationRow>& rows() {
        return delegate->locations().list().rows();
    }

    void expectNotice(const char* text) {
        EXPECT_TRUE(window().runningAlert->isVisible());
        EXPECT_EQ(window().runningAlertText->text(), QLatin1String(text));
        click("runningAlertOk");
        EXPECT_FALSE(window().runningAlert->isVisible());
    }
};

TEST_F(LocationScreenTest, ACheckBoxChecksSelectsAndEnablesTheScan) {
    click("mainScanButtonFolder");
    check(2);
    EXPECT_TRUE(rows()[2].state);
    EXPECT_EQ(window().locations->tableExact->currentIndex().row(), 2);
    EXPECT_TRUE(window().locations->findDuplicateExact->isEnabled());
    EXPECT_EQ(window().locations->findDuplicateExact->alpha(), 1.0);
    check(2);
    EXPECT_FALSE(rows()[2].state);
    EXPECT_FALSE(window().locations->findDuplicateExact->isEnabled());
}

TEST_F(LocationScreenTest, ACheckedFolderOpensWithItsFoldersChecked) {
    click("mainScanButtonFolder");
    check(2);
    doubleClick(2);
    ASSERT_EQ(rows().size(), 2U);
    EXPECT_TRUE(rows()[0].state);
    EXPECT_TRUE(rows()[1].state);
    EXPECT_TRUE(window().locations->backFolderButton->isEnabled());
    EXPECT_FALSE(window().locations->nextFolderButton->isEnabled());
    click("backFolderButton");
    EXPECT_EQ(rows().size(), 4U);
    EXPECT_TRUE(rows()[2].state);
    EXPECT_TRUE(window().locations->nextFolderButton->isEnabled());
    click("nextFolderButton");
    EXPECT_EQ(rows().size(), 2U);
}

TEST_F(LocationScreenTest, AFolderOpenedAgainDropsDeeperLevels) {
    folder.makeFolder("Pictures/2022/January/first");
    click("mainScanButtonFolder");
    doubleClick(2);
    const auto rowOf = [this](const std::string& path) {
        const auto found = std::find_if(rows().begin(), rows().end(), [&](const LocationRow& row) {
            return row.name == folder.pathOf(path);
        });
        return static_cast<int>(found - rows().begin());
    };
    doubleClick(rowOf("Pictures/2022"));
    ASSERT_EQ(rows().front().name, folder.pathOf("Pictures/2022/January"));
    click("backFolderButton");
    click("backFolderButton");
    doubleClick(2);
    EXPECT_EQ(rows().size(), 2U);
    EXPECT_EQ(delegate->locations().history().folderBrowser().back(), folder.pathOf("Pictures"));
    EXPECT_FALSE(window().locations->nextFolderButton->isEnabled());
}

TEST_F(LocationScreenTest, BackToAVanishedFolderShowsANotice) {
    click("mainScanButtonFolder");
    doubleClick(2);
    click("backFolderButton");
    std::filesystem::remove_all(folder.pathOf("Pictures"));
    click("nextFolderButton");
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_EQ(alerts.shown[0].informativeText, QStringLiteral("No Folders."));
    EXPECT_EQ(rows().size(), 4U);
    // The position has changed, the buttons have not.
    EXPECT_EQ(delegate->locations().history().currentPath(), 1);
    EXPECT_FALSE(window().locations->backFolderButton->isEnabled());
    EXPECT_TRUE(window().locations->nextFolderButton->isEnabled());
}

TEST_F(LocationScreenTest, TwoFilesMayBeScanned) {
    click("mainScanButton");
    panels.choice = {{folder.writeFile("a.jpg", "1"), folder.writeFile("b.jpg", "1")}};
    click("addPhotos");
    EXPECT_TRUE(window().locations->findDuplicateExact->isEnabled());
    EXPECT_EQ(window().locations->findDuplicateExact->title(), QStringLiteral("Scan"));
}

TEST_F(LocationScreenTest, AFolderWithoutFoldersSaysSo) {
    click("mainScanButtonFolder");
    doubleClick(0);
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_EQ(alerts.shown[0].messageText, QStringLiteral("Tarvin Duplicate File Remover"));
    EXPECT_EQ(alerts.shown[0].informativeText, QStringLiteral("No Folders."));
    EXPECT_EQ(alerts.shown[0].buttons, QStringList{QStringLiteral("Ok")});
    EXPECT_EQ(rows().size(), 4U);
}

TEST_F(LocationScreenTest, ADriveIsNotOpened) {
    click("mainScanButton");
    doubleClick(0);
    ASSERT_EQ(alerts.shown.size(), 1U);
    EXPECT_EQ(alerts.shown[0].informativeText,
              QStringLiteral("Select the check box and click 'Scan' button to proceed."));
}

TEST_F(LocationScreenTest, MarksUnmarksAndRemoves) {
    click("mainScanButtonFolder");
    check(0);
    click("markAllExactBtn");
    EXPECT_FALSE(window().locations->markAllExactBtn->isEnabled());
    click("unmarkAllExactBtn");
    EXPECT_TRUE(window().locations->markAllExactBtn->isEnabled());
    EXPECT_FALSE(window().locations->removeFromListExactBtn->isEnabled());
    check(1);
    click("removeFromListExactBtn");
    EXPECT_EQ(rows().size(), 3U);
}

TEST_F(LocationScreenTest, FoldersOfThePanelAreAddedOnce) {
    click("mainScanButton");
    panels.choice = {{folder.pathOf("Pictures"), folder.pathOf("Documents")}};
    click("addFolders");
    EXPECT_TRUE(panels.opened.back().canChooseDirectories);
    EXPECT_EQ(rows().size(), 3U);
    EXPECT_TRUE(window().locations->findDuplicateExact->isEnabled());
    EXPECT_FALSE(window().runningAlert->isVisible());
    click("addFolders");
    EXPECT_EQ(rows().size(), 3U);
    expectNotice("Folder already added.");
}

TEST_F(LocationScreenTest, PhotosOfThePanelAreAddedOnce) {
    click("mainScanButton");
    panels.choice = {{folder.writeFile("a.jpg", "ten bytes!")}};
    click("addPhotos");
    EXPECT_FALSE(panels.opened.back().canChooseDirectories);
    EXPECT_EQ(
        panels.opened.back().allowedFileTypes.join(QLatin1Char(' ')),
        QStringLiteral("jpg jpeg psd png bmp dng tiff gif pspimage thm tif yuv ai cr2 crw kdc "
                       "nef mrw orf x3f raw raf dcx"));
    EXPECT_EQ(rows().size(), 2U);
    EXPECT_EQ(rows().back().size, "0.01 KB");
    EXPECT_FALSE(window().locations->findDuplicateExact->isEnabled());
    click("addPhotos");
    expectNotice("Image already added.");
}

TEST_F(LocationScreenTest, ACancelledPanelChangesNothing) {
    click("mainScanButton");
    click("addFolders");
    EXPECT_EQ(rows().size(), 1U);
}

TEST_F(LocationScreenTest, TheContextMenuTogglesARowAndRemovesIt) {
    click("mainScanButtonFolder");
    LocationTable& table = *window().locations->tableExact;
    Q_EMIT table.customContextMenuRequested(table.visualRect(table.model()->index(1, 0)).center());
    EXPECT_EQ(window().locations->markMenuTable->text(), QStringLiteral("Mark"));
    EXPECT_FALSE(window().locations->unMarkAllMenu->isVisible());
    window().locations->markMenuTable->trigger();
    EXPECT_TRUE(rows()[1].state);
    EXPECT_EQ(table.currentIndex().row(), 1);
    EXPECT_TRUE(delegate->locations().list().stateArray().empty());
    Q_EMIT table.customContextMenuRequested(table.visualRect(table.model()->index(1, 0)).center());
    EXPECT_EQ(window().locations->markMenuTable->text(), QStringLiteral("Unmark"));
    window().locations->removeFromListMenu->trigger();
    EXPECT_EQ(rows().size(), 3U);
}

}  // namespace
}  // namespace tarvin
