#include "controller/product_fixture.h"
#include "controls/button_style.h"
#include "controls/view_transparent.h"
#include "controls/windows_like_button.h"

#include <cstddef>
#include <iterator>

namespace tarvin {
namespace {

/// Object names of the window, each of which must exist once.
constexpr const char* outlets[] = {
    "HomePage",
    "OView2",
    "aboutVersion",
    "addEceptionBtn",
    "addFolders",
    "addPhotos",
    "allButton",
    "allCheckAlertView",
    "allCheckOk",
    "animationImage",
    "asscendingBtn",
    "audioButton",
    "backFolderButton",
    "buttonHelpManual",
    "buttonHomeExactPage",
    "buttonHomePage",
    "cancelNo",
    "cancelYes",
    "cleanHistory",
    "confirmationView",
    "deletePermanently",
    "deletionIndicator",
    "deletionPreview",
    "deletionStatus",
    "documentButton",
    "exactSimilarTabView",
    "excCancelBtn",
    "excOKBtn",
    "exceptionTextField",
    "exceptionWindow",
    "findDuplicateExact",
    "finishButton",
    "helpMenu",
    "imView",
    "imageButton",
    "informationHeader",
    "informationWindow",
    "loadingIndicator",
    "loadingView",
    "mainScanButton",
    "mainScanButtonFolder",
    "markAll",
    "markAllExactBtn",
    "markAllMenu",
    "markMenuTable",
    "nextFolderButton",
    "otherButton",
    "pauseResume",
    "pauseResumeBtn",
    "progressTypeText",
    "progressWindow",
    "removeExceptionBtn",
    "removeFromListExactBtn",
    "removeFromListMenu",
    "resultTable",
    "runningAlert",
    "runningAlertOk",
    "runningAlertText",
    "savedOk",
    "scanInfoCount",
    "scanInfoImage",
    "scanInfoSize",
    "scanInforOKBtn",
    "scanOtherInfo",
    "searchStatus",
    "selectedCount",
    "selectedPath",
    "selectedSize",
    "sendToRecycle",
    "settingsWindow",
    "similarIndicator",
    "similarProcessing",
    "sortBtn",
    "sortPopupBtn",
    "stopButton",
    "stopDeleteBtn",
    "tabViewMain",
    "tableExact",
    "textField",
    "textelapse",
    "unMarkAll",
    "unMarkAllMenu",
    "unmarkAllExactBtn",
    "videoButton",
    "windowAboutPanel",
};

/// Counts these operations; a missing one does not compile.
template <auto... operation>
constexpr std::size_t count() {
    return sizeof...(operation);
}

using FixedNames = ProductFixture;

TEST_F(FixedNames, OfControlsFindOneEach) {
    make();
    for (const char* name : outlets) {
        EXPECT_EQ(window().findChildren<QObject*>(QLatin1String(name)).size(), 1) << name;
    }
    EXPECT_EQ(std::size(outlets), 85U);
}

TEST(FixedNamesOfActions, AreThose) {
    EXPECT_EQ((count<&AppDelegate::awakeFromNib, &AppDelegate::initializeArrays,
                     &AppDelegate::applicationDidFinishLaunching, &AppDelegate::homeCleanup,
                     &AppDelegate::buttonHomeExactPageClicked, &AppDelegate::buttonHomePageClicked,
                     &AppDelegate::buttonHomeSimilarPageClicked, &AppDelegate::windowShouldClose,
                     &AppDelegate::runningAlertOK, &AppDelegate::windowWillClose,
                     &AppDelegate::applicationWillTerminate, &AppDelegate::showLoading,
                     &AppDelegate::updateProgress, &AppDelegate::startAnimation,
                     &AppDelegate::stopAnimation>()),
              15U);
    EXPECT_EQ((count<&Locations::buttonScanDriveClicked, &Locations::buttonScanFoldersClicked,
                     &Locations::buttonScanFolderClicked, &Locations::didClickedRow,
                     &Locations::backFolderClicked, &Locations::nextFolderClicked,
                     &Locations::markAllExact, &Locations::unmarkAllExact,
                     &Locations::removeFromListExact, &Locations::addFolders, &Locations::addFiles,
                     &Locations::reflectMarkStatusForRemoveButton, &Locations::menuNeedsUpdate,
                     &Locations::markUnmarkTable, &Locations::removeFromListMenuClicked,
                     &Locations::markAllMenuClicked, &Locations::unMarkAllMenuClicked>()),
              17U);
    EXPECT_EQ(
        (count<&ScanTask::buttonFindDuplicatesExactClicked, &ScanTask::pause, &ScanTask::stop,
               &ScanTask::stopYesClicked, &ScanTask::stopNOClicked, &ScanTask::updateTextField>()),
        6U);
    EXPECT_EQ((count<&Help::buttonHelpManualClicked, &Help::helpMenuClicked,
                     &Help::supportMenuClicked, &Help::aboutMenuClicked, &Help::openURLS,
                     &UpdateCheck::updateMenuClicked, &UpdateCheck::showIfUpdateAvailable,
                     &UpdateCheck::checkForupUpdates, &UpdateCheck::launchApp>()),
              9U);
}

TEST(FixedNamesOfActions, OfAResultAreThose) {
    EXPECT_EQ(
        (count<&ResultViews::allClicked, &ResultViews::imageClicked, &ResultViews::videoClicked,
               &ResultViews::audioClicked, &ResultViews::docsClicked, &ResultViews::otherClicked,
               &ResultViews::showDuplicateScanResult,
               &ResultViews::showInformationWindowAccordingTab,
               &ResultViews::selectionShouldChangeInOutlineView,
               &ResultViews::outlineViewSelectionDidChange, &ResultViews::treeView,
               &ResultViews::rightClicked>()),
        12U);
    EXPECT_EQ((count<&OutlineMenu::righClickMenuItemClicked, &SortControls::popupButtonClicked,
                     &SortControls::asscendingDescendingClicked, &SortControls::sortByMenuClicked,
                     &SortControls::sortingOrderMenuClicked>()),
              5U);
    EXPECT_EQ(
        (count<&MarkingTask::markAllClicked, &MarkingTask::unMarkAllClicked,
               &MarkingTask::checkBoxClicked, &MarkingTask::tableCheckBoxClicked,
               &MarkingTask::checkButtonClicked, &MarkingTask::collectionViewCheckButtonCLicked,
               &MarkingTask::setMarkedFilesDetails, &MarkingTask::enableNecessaryButton,
               &MarkingTask::showAllCheckAlert, &MarkingTask::checkALertOK>()),
        10U);
    EXPECT_EQ(
        (count<&DeletionTask::deleteButtonExactPageClicked, &DeletionTask::sendToRecycleClicked,
               &DeletionTask::pauseDeletionProcess, &DeletionTask::stopDeletionProcess>()),
        4U);
}

TEST(FixedNamesOfActions, KeepTheirSpelling) {
    EXPECT_EQ((count<&Extensions::nummberOfSets, &setButtonAtrribute, &NSColorToCGColor,
                     &ViewTransparent::setviewsOverlaidCount, &SummariesShown::othrTabInfo>()),
              5U);
    EXPECT_STREQ(WIndowsLikeButton::staticMetaObject.className(), "tarvin::WIndowsLikeButton");
}

}  // namespace
}  // namespace tarvin
