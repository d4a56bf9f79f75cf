#include "interface/main_window.h"

#include "controls/button_settings_saved.h"
#include "controls/hover_button.h"
#include "controls/images.h"
#include "controls/look.h"
#include "controls/menu_button.h"
#include "controls/notice_strip.h"
#include "controls/solid_bars.h"
#include "controls/spinner.h"
#include "interface/about_panel.h"
#include "interface/appearance.h"
#include "interface/exception_list_panel.h"
#include "interface/home_screen.h"
#include "interface/list_panel.h"
#include "interface/loading_overlay.h"
#include "interface/location_screen.h"
#include "interface/location_table.h"
#include "interface/making.h"
#include "interface/notice_panel.h"
#include "interface/open_panels.h"
#include "interface/placement.h"
#include "interface/press_guard.h"
#include "interface/product_title.h"
#include "interface/progress_screen.h"
#include "interface/put_back_panels.h"
#include "interface/result_panels.h"
#include "interface/result_screen.h"
#include "interface/result_table.h"
#include "interface/rule_panel.h"
#include "interface/shortcuts.h"
#include "interface/text_block.h"
#include "interface/window_covers.h"

#include <QAction>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QStackedWidget>
#include <QSysInfo>
#include <QToolTip>
#include <algorithm>
#include <utility>

namespace tarvin {

namespace {

// The list area of the location screen, in the content.
constexpr QPoint listArea{55, 134};
constexpr int helpMenuWidth = 282;
constexpr int moreMenuWidth = 232;
constexpr int menuGap = 4;

/// The geometry of a panel whose lower left corner is counted from the lower left corner of the
/// content.
QRect fromLowerLeft(QPoint origin, QSize size) {
    return {{origin.x(), MainWindow::designSize.height() - origin.y() - size.height()}, size};
}

QWidget* makeHidden(const char* name, QWidget* parent) {
    auto* widget = named(new QWidget(parent), name);
    widget->hide();
    return widget;
}

}  // namespace

MainWindow::MainWindow(QWidget* parent)
    : QWidget(parent),
      topBar(named(new ViewTopBar, "topBar")),
      tabViewMain(named(new QStackedWidget, "tabViewMain")),
      home(named(new HomeScreen(topBar), "homeScreen")),
      locations(named(new LocationScreen(topBar), "locationScreen")),
      progress(named(new ProgressScreen(topBar), "progressScreen")),
      results(named(new ResultScreen(topBar), "resultScreen")),
      moreMenu(named(new QMenu(this), "moreMenu")),
      buttonMore(named(new MenuButton(QStringLiteral("ui/more"), moreMenu), "buttonMore")),
      markByRuleItem(named(moreMenu->addAction(tr("Mark by Rule…")), "markByRuleItem")),
      manageExceptionsItem(
          named(moreMenu->addAction(tr("Manage Exceptions…")), "manageExceptionsItem")),
      exportResultsItem(named(moreMenu->addAction(tr("Export Results…")), "exportResultsItem")),
      resultItemsEnd(moreMenu->addSeparator()),
      putBackItem(named(moreMenu->addAction(tr("Put Back Last Clean-up…")), "putBackItem")),
      locationItemsBegin(moreMenu->addSeparator()),
      skipHiddenItem(
          named(moreMenu->addAction(tr("Skip Hidden Files and Folders")), "skipHiddenItem")),
      rememberScansItem(named(moreMenu->addAction(tr("Remember Scans")), "rememberScansItem")),
      backgroundItem(named(moreMenu->addAction(tr("Scan in the Background")), "backgroundItem")),
      buttonHelpManual(
          named(new HoverButton(HoverButton::Kind::outline, tr("Help")), "buttonHelpManual")),
      helpMenu(named(new QMenu(this), "helpMenu")),
      helpMenuItem(named(helpMenu->addAction(tr("User Guide")), "helpMenuItem")),
      supportMenuItem(named(helpMenu->addAction(tr("Contact Support")), "supportMenuItem")),
      updateMenuItem(named(helpMenu->addAction(tr("Check for Updates...")), "updateMenuItem")),
      aboutMenuItem(
          named(new QAction(tr("About %1").arg(productTitle()), helpMenu), "aboutMenuItem")),
      runningAlert(named(new NoticePanel(466, "runningAlertText", this), "runningAlert")),
      runningAlertText(runningAlert->text),
      runningAlertOk(runningAlert->addButton("runningAlertOk", tr("Ok"))),
      confirmationView(named(new NoticePanel(316, "confirmationText", this), "confirmationView")),
      cancelNo(confirmationView->addButton("cancelNo", tr("No"))),
      cancelYes(confirmationView->addButton("cancelYes", tr("Yes"))),
      informationWindow(new InformationPanel(this)),
      exceptionWindow(new ExceptionPanel(this)),
      deletionPreview(new DeletionPanel(this)),
      keptWindow(ListPanel::makeKept(this)),
      notReadWindow(ListPanel::makeNotRead(this)),
      exceptionListWindow(new ExceptionListPanel(this)),
      putBackWindow(new PutBackPanel(this)),
      putBackProgress(new PutBackProgress(this)),
      putBackReport(new PutBackReport(this)),
      markByRuleWindow(new RulePanel(this)),
      allCheckAlertView(named(new NoticePanel(466, "allCheckText", this), "allCheckAlertView")),
      allCheckOk(allCheckAlertView->addButton("allCheckOk", tr("Ok"))),
      windowAboutPanel(new AboutPanel(this)),
      aboutVersion(windowAboutPanel->aboutVersion),
      settingsWindow(makeHidden("settingsWindow", this)),
      savedOk(named(new ButtonSettingsSaved(settingsWindow), "savedOk")),
      progressWindow(makeHidden("progressWindow", this)),
      loadingView(makeHidden("loadingView", this)),
      loadingIndicator(named(new Spinner, "loadingIndicator")),
      placement_(new Placement(this, designSize)),
      openPanels_(new OpenPanels(this)),
      pressGuard_(new PressGuard(this)),
      loading_(std::make_unique<LoadingOverlay>(*loadingView, *loadingIndicator, *placement_)),
      covers_(std::make_unique<WindowCovers>(*this, QVector<const QWidget*>{topBar, tabViewMain})),
      shortcuts_(std::make_unique<Shortcuts>(*this)) {
    setWindowTitle(productTitle());
    setWindowIcon(pictureIcon(QStringLiteral("app_icon")));
    setMinimumSize(designSize);
    resize(designSize);
    setPalette(lightPalette());
    savedOk->setTitle(tr("Ok"));
    QToolTip::setPalette(lightPalette());
    pressGuard_->setAreas({topBar, tabViewMain});
    placeFrame();
    loadingView->raise();
    makeNotices();
    makeHelpMenu();
    makeMoreMenu();
    orderKeyboard();
    selectTabViewItem(home->identifier());
}

/// Destroying the window hides open panels, whose signals must not reach the destroyed screens.
MainWindow::~MainWindow() {
    openPanels_->disconnect(this);
}

void MainWindow::placeFrame() {
    placement_->place(topBar, {{0, 0, 1016, Screen::barHeight}, stretching, atStart});
    placement_->place(tabViewMain,
                      {{{0, Screen::barHeight}, Screen::designSize}, stretching, stretching});
    for (Screen* screen : screens()) {
        tabViewMain->addWidget(screen);
    }
    auto* inBar = new Placement(topBar, {1016, Screen::barHeight});
    inBar->place(results->title(), {results->title()->geometry(), stretching, atStart});
    // Its row makes it as wide as its text.
    inBar->place(results->notReadNotice, {{883, 8, 0, NoticeStrip::fixedHeight}, atEnd, atStart});
    inBar->place(buttonMore, {{895, 8, 29, 29}, atEnd, atStart});
    inBar->place(buttonHelpManual, {{932, 8, 72, 29}, atEnd, atStart});
    inBar->row({results->notReadNotice, buttonMore, buttonHelpManual}, results->title());
}

void MainWindow::makeNotices() {
    confirmationView->text->setText(tr("Are you sure, you want to stop this process?"));
    allCheckAlertView->text->setText(tr("All the files of same set cannot be selected"));
    runningAlert->keyboard().setAnswers({runningAlertOk}, runningAlertOk, runningAlertOk);
    confirmationView->keyboard().setAnswers({cancelYes, cancelNo}, cancelNo, cancelNo);
    allCheckAlertView->keyboard().setAnswers({allCheckOk}, allCheckOk, allCheckOk);
    for (ButtonSettingsSaved* answer : {runningAlertOk, cancelYes, cancelNo, allCheckOk}) {
        answer->setViewTransparent(covers_->counter());
    }
    const auto watch = [this](auto* panel) { openPanels_->watch(panel, &panel->keyboard()); };
    for (NoticePanel* notice : {runningAlert, confirmationView, allCheckAlertView}) {
        watch(notice);
    }
    for (auto* panel : findChildren<DialogPanel*>(QString(), Qt::FindDirectChildrenOnly)) {
        watch(panel);
    }
    watch(windowAboutPanel);
    connect(openPanels_, &OpenPanels::anyChanged, this, [this](bool any) {
        for (Screen* screen : screens()) {
            screen->setShortcutsEnabled(!any);
        }
        shortcuts_->setEnabled(!any);
    });
    connect(openPanels_, &OpenPanels::keyboardFree, this,
            [this] { currentScreen()->beginWithKeyboard(); });
}

void MainWindow::makeHelpMenu() {
    helpMenu->addSeparator();
    helpMenu->addAction(aboutMenuItem);
    helpMenu->setMinimumWidth(helpMenuWidth);
    styleMenu(helpMenu);
    helpMenuItem->setShortcut(Qt::Key_F1);
    helpMenuItem->setAutoRepeat(false);
    helpMenuItem->setShortcutVisibleInContextMenu(false);
    addAction(helpMenuItem);
}

void MainWindow::makeMoreMenu() {
    for (QAction* const choice : {skipHiddenItem, rememberScansItem, backgroundItem}) {
        choice->setCheckable(true);
        choice->setVisible(false);
    }
    locationItemsBegin->setVisible(false);
    buttonMore->setToolTip(tr("More"));
    buttonMore->setAccessibleName(tr("More"));
    moreMenu->setMinimumWidth(moreMenuWidth);
    moreMenu->setAccessibleName(tr("More"));
    styleMenu(moreMenu);
    connect(buttonMore, &QAbstractButton::clicked, this, &MainWindow::popUpMoreMenu);
    if (QSysInfo::kernelType() != QLatin1String("darwin")) {  // there F10 is the system's
        shortcuts_->add({Qt::Key_F10}, [this] { openMoreByKey(); });
    }
    exportResultsItem->setVisible(false);
    resultItemsEnd->setVisible(false);
    const auto addShortcut = [this](const QKeySequence& keys, QAction* item) {
        shortcuts_->add({keys}, [this, item] {
            if (buttonMore->isEnabled()) {
                item->trigger();
            }
        });
    };
    addShortcut(Qt::CTRL | Qt::Key_Z, putBackItem);
    addShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_E, manageExceptionsItem);
    markByRuleItem->setVisible(false);
    const auto addResultShortcut = [this](const QKeySequence& keys, QAction* item) {
        shortcuts_->add({keys}, [this, item] {
            if (buttonMore->isEnabled() && item->isVisible()) {
                // It may still be disabled since the menu was opened without a result. Its owner
                // knows whether there is anything to do.
                item->setEnabled(true);
                item->trigger();
            }
        });
    };
    addResultShortcut(Qt::CTRL | Qt::Key_R, markByRuleItem);
    addResultShortcut(Qt::CTRL | Qt::Key_E, exportResultsItem);
    buttonHelpManual->installEventFilter(this);
}

/// The focus returns to the button when the menu closes.
void MainWindow::openMoreByKey() const {
    if (buttonMore->isEnabled()) {
        buttonMore->setFocus(Qt::ShortcutFocusReason);
        buttonMore->click();
    }
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == buttonHelpManual && event->type() == QEvent::EnabledChange) {
        buttonMore->setEnabled(buttonHelpManual->isEnabled());
    }
    return QWidget::eventFilter(watched, event);
}

void MainWindow::orderKeyboard() {
    QWidget* before = nullptr;
    const auto next = [&before](QWidget* control) {
        if (before != nullptr) {
            setTabOrder(before, control);
        }
        before = control;
    };
    for (const Screen* screen : screens()) {
        for (QWidget* control : screen->readingOrder()) {
            next(control);
        }
    }
    next(buttonMore);
    next(buttonHelpManual);
    // A scan and a clean-up disable both.
    for (HoverButton* button : QVector<HoverButton*>{buttonMore, buttonHelpManual}) {
        button->setFocusAfterDisabling({results->resultTable, locations->tableExact});
    }
}

void MainWindow::selectTabViewItem(const QString& identifier) {
    for (Screen* screen : screens()) {
        if (screen->identifier() != identifier) {
            continue;
        }
        // Before the window is shown no click can have been meant for another screen.
        if (screen != currentScreen() && isVisible()) {
            pressGuard_->begin();
        }
        currentScreen()->setBarShown(false);
        tabViewMain->setCurrentWidget(screen);
        screen->setBarShown(true);
        markByRuleItem->setVisible(screen == results);
        exportResultsItem->setVisible(screen == results);
        resultItemsEnd->setVisible(screen == results);
        locationItemsBegin->setVisible(screen == locations);
        skipHiddenItem->setVisible(screen == locations);
        rememberScansItem->setVisible(screen == locations);
        backgroundItem->setVisible(screen == locations);
        if (!openPanels_->any()) {
            screen->beginWithKeyboard();
        }
        return;
    }
}

QString MainWindow::selectedTabViewItem() const {
    return currentScreen()->identifier();
}

void MainWindow::showNotice(NoticePanel* notice, QPoint origin) {
    showPanel(notice, fromLowerLeft(origin, notice->sizeHint()));
}

void MainWindow::showNoticeInList(NoticePanel* notice, QPoint origin) {
    showPanel(notice, {listArea + origin, notice->sizeHint()});
}

void MainWindow::showOver(QWidget* panel, QPoint origin) {
    covers_->add();
    showPanel(panel, fromLowerLeft(origin, panel->sizeHint()));
}

void MainWindow::showOver(DialogPanel* panel, const QRect& design, Growth across, Growth down) {
    covers_->add();
    showPanel(panel, design, across, down);
}

void MainWindow::showInPlaceOf(DialogPanel* before, DialogPanel* panel, const QRect& design,
                               Growth across, Growth down) {
    showPanel(panel, design, across, down);
    if (before != nullptr && before->isVisible()) {
        before->keyboard().handOver(panel->keyboard());
        before->hide();
    }
}

void MainWindow::showAbout() {
    constexpr QPoint corner{298, 120};
    showPanel(windowAboutPanel,
              {corner, QSize(AboutPanel::designSize.width(),
                             windowAboutPanel->heightForWidth(AboutPanel::designSize.width()))});
}

void MainWindow::showPanel(QWidget* panel, const QRect& design, Growth across, Growth down) {
    placement_->place(panel, {design, across, down});
    panel->raise();
    panel->show();
}

void MainWindow::popUpMoreMenu() const {
    popUp(*moreMenu, *buttonMore, moreMenuWidth);
}

void MainWindow::popUpHelpMenu() const {
    popUp(*helpMenu, *buttonHelpManual, helpMenuWidth);
}

void MainWindow::popUp(QMenu& menu, const QWidget& button, int minWidth) {
    const int width = std::max(menu.sizeHint().width(), minWidth);
    menu.popup(button.mapToGlobal(QPoint(button.width() - width, button.height() + menuGap)));
}

void MainWindow::setClosePermission(std::function<bool()> permission) {
    closePermission_ = std::move(permission);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    covers_->resize();
}

/// X11 and Wayland report only the Menu key as a request for a menu.
void MainWindow::keyPressEvent(QKeyEvent* event) {
    QWidget* holder = focusWidget();
    if (holder == nullptr || event->key() != Qt::Key_F10 ||
        event->modifiers() != Qt::ShiftModifier) {
        QWidget::keyPressEvent(event);
        return;
    }
    const QPoint middle = holder->rect().center();
    QContextMenuEvent request(QContextMenuEvent::Keyboard, middle, holder->mapToGlobal(middle));
    QCoreApplication::sendEvent(holder, &request);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (closePermission_ && !closePermission_()) {
        event->ignore();
        return;
    }
    event->accept();
    Q_EMIT windowWillClose();
}

QVector<Screen*> MainWindow::screens() const {
    return {home, locations, progress, results};
}

Screen* MainWindow::currentScreen() const {
    return static_cast<Screen*>(tabViewMain->currentWidget());
}

}  // namespace tarvin
