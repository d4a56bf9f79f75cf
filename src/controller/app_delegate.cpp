#include "controller/app_delegate.h"

#include "controller/file_dialogs.h"
#include "controller/home_image.h"
#include "controller/message_boxes.h"
#include "controls/button_hover_complex.h"
#include "controls/button_hover_simple.h"
#include "controls/button_settings_saved.h"
#include "controls/hover_button.h"
#include "controls/images.h"
#include "controls/spinner.h"
#include "interface/about_panel.h"
#include "interface/home_screen.h"
#include "interface/location_screen.h"
#include "interface/notice_panel.h"
#include "interface/picture_view.h"
#include "interface/progress_screen.h"
#include "interface/result_screen.h"
#include "interface/text_block.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileOpenEvent>
#include <QIcon>
#include <QLabel>
#include <utility>

namespace tarvin {

namespace {

constexpr QPoint closingNoticeOrigin{275, 225};
constexpr QColor helpTitleColor{255, 255, 255};
constexpr int helpTitleSize = 13;

void giveHomeImages(ButtonHoverSimple& button) {
    button.setImageNormal(pictureIcon(QStringLiteral("Home Normal.png")),
                          pictureIcon(QStringLiteral("Home Hover.png")),
                          pictureIcon(QStringLiteral("Home Normal Disabled.png")),
                          pictureIcon(QStringLiteral("Back Onclick.png")));
    button.setResetImageWhenNotHovering(true);
}

}  // namespace

AppDelegate::AppDelegate(Surroundings surroundings)
    : surroundings_(std::move(surroundings)),
      singleInstance_(std::make_unique<SingleInstance>(surroundings_.platform.runningInstances())),
      session_(surroundings_.platform) {
    if (surroundings_.alerts == nullptr) {
        ownAlerts_ = std::make_unique<MessageBoxes>(&window_);
        surroundings_.alerts = ownAlerts_.get();
    }
    if (surroundings_.panels == nullptr) {
        ownPanels_ = std::make_unique<FileDialogs>(&window_);
        surroundings_.panels = ownPanels_.get();
    }
    locations_ = std::make_unique<Locations>(session_, window_, *surroundings_.alerts,
                                             *surroundings_.panels, surroundings_.previewProgram);
    scan_ = std::make_unique<ScanTask>(session_, window_, *surroundings_.alerts, *locations_);
    help_ = std::make_unique<Help>(window_, surroundings_.desktop, surroundings_.guide);
    updates_ = std::make_unique<UpdateCheck>(window_, *surroundings_.alerts, surroundings_.desktop,
                                             UpdateCheck::Subject{.version = surroundings_.version,
                                                                  .updater = surroundings_.updater,
                                                                  .read = surroundings_.readUrl});
    makeResultTasks();
    rememberChoice(window_.skipHiddenItem, skipHiddenKey);
    rememberChoice(window_.rememberScansItem, rememberScansKey);
    rememberChoice(window_.backgroundItem, backgroundKey);
    connectControls();
    connectRequests();
    QCoreApplication::instance()->installEventFilter(this);
    awakeFromNib();
}

AppDelegate::~AppDelegate() {
    singleInstance_.reset();  // instances started from now on do not see this one
}

/// Stored at once: the choice applies to later scans, even if the program is killed.
void AppDelegate::rememberChoice(QAction* item, const char* key) {
    QSettings& settings = surroundings_.settings;
    item->setChecked(settings.value(key, false).toBool());
    connect(item, &QAction::toggled, this,
            [&settings, key](bool isChosen) { settings.setValue(key, isChosen); });
}

void AppDelegate::makeResultTasks() {
    results_ = std::make_unique<Results>(scan_->run());
    marking_ = std::make_unique<MarkingTask>(session_, *results_, window_, information_);
    markByRule_ = std::make_unique<MarkByRuleTask>(*results_, window_, *surroundings_.panels,
                                                   surroundings_.settings, session_.platform);
    preview_ =
        std::make_unique<Preview>(session_, *results_, window_, surroundings_.previewProgram);
    views_ = std::make_unique<ResultViews>(session_, *results_, window_, information_, *marking_,
                                           *preview_, window_.loading());
    exceptions_ = std::make_unique<ExceptionsTask>(session_, *results_, window_,
                                                   *surroundings_.alerts, information_);
    fileActions_ = std::make_unique<FileActions>(session_, *results_, window_, information_,
                                                 *exceptions_, surroundings_.desktop);
    exceptionList_ = std::make_unique<ExceptionListTask>(session_, window_, information_);
    deletion_ = std::make_unique<DeletionTask>(session_, *results_, window_, *surroundings_.alerts,
                                               information_);
    putBack_ = std::make_unique<PutBackTask>(session_, window_, information_);
    notRead_ = std::make_unique<NotReadList>(window_, information_);
    export_ = std::make_unique<ExportTask>(scan_->run(), *results_, window_, *surroundings_.panels,
                                           session_.platform.clock(), information_,
                                           surroundings_.fileCalls);
}

void AppDelegate::awakeFromNib() {
    showHomeImage();
    if (session_.awake) {
        return;
    }
    initializeArrays();
    setUpButtons();
}

void AppDelegate::showHomeImage() {
    homeImageCounter_ = homeImageCounter(surroundings_.settings.value(homeImageKey));
    window_.home->homePage->setPictureName(homeImageName(homeImageCounter_));
}

void AppDelegate::initializeArrays() {
    session_.loadDataFile();
    exceptions_->loaded();
    recoverCleanUps();
    session_.totalSize = 0;
    session_.totalSelected = 0;
    session_.similarIndex = 1;
}

void AppDelegate::recoverCleanUps() {
    recovery_ = std::make_unique<RecoveryTask>(session_.platform);
    connect(recovery_.get(), &RecoveryTask::totalsSettled, this, [this] {
        if (deletion_->isRunning()) {
            return;  // it updates the totals itself
        }
        session_.data.refresh();
        if (window_.selectedTabViewItem() == window_.home->identifier()) {
            showCleanHistory();
        }
    });
}

void AppDelegate::setUpButtons() const {
    HoverButton& help = *window_.buttonHelpManual;
    help.setAttributedTitle(setAttributes(helpTitleColor, help.text(), helpTitleSize));
    giveHomeImages(*window_.locations->buttonHomeExactPage);
    giveHomeImages(*window_.results->buttonHomePage);
}

void AppDelegate::connectControls() {
    connect(window_.locations->buttonHomeExactPage, &QAbstractButton::clicked, this,
            &AppDelegate::buttonHomeExactPageClicked);
    connect(window_.results->buttonHomePage, &QAbstractButton::clicked, this,
            &AppDelegate::buttonHomePageClicked);
    connect(window_.runningAlertOk, &QAbstractButton::clicked, this, &AppDelegate::runningAlertOK);
    connect(scan_.get(), &ScanTask::collectionStopped, this, &AppDelegate::homeCleanup);
    connect(scan_.get(), &ScanTask::endedWithoutFiles, this,
            &AppDelegate::buttonHomeExactPageClicked);
    connect(scan_.get(), &ScanTask::notReadRequested, this, [this] {
        notRead_->setFiles(NotReadFiles(scan_->run().result()));
        notRead_->show();
    });
    connect(notRead_.get(), &NotReadList::closed, this, [this] {
        if (window_.selectedTabViewItem() == window_.progress->identifier()) {
            scan_->showNoDuplicates();
        }
    });
    connect(scan_.get(), &ScanTask::finished, this, &AppDelegate::showDuplicateScanResult);
    connect(views_.get(), &ResultViews::shown, this, &AppDelegate::comeToFront);
    connect(exceptionList_.get(), &ExceptionListTask::listChanged, exceptions_.get(),
            &ExceptionsTask::loaded);
    connect(putBack_.get(), &PutBackTask::totalsChanged, this, &AppDelegate::showCleanHistory);
    connect(views_.get(), &ResultViews::homeRequested, this,
            &AppDelegate::buttonHomeExactPageClicked);
    connect(&window_, &MainWindow::windowWillClose, this, &AppDelegate::windowWillClose);
    connect(this, &AppDelegate::notif, this, &AppDelegate::updateProgress);
    connect(this, &AppDelegate::rightClicked, views_.get(), &ResultViews::rightClicked);
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
            &AppDelegate::applicationWillTerminate);
    window_.setClosePermission([this] { return windowShouldClose(); });
}

void AppDelegate::connectRequests() {
    connect(singleInstance_.get(), &SingleInstance::quitRequested, this, &AppDelegate::terminate);
    connect(singleInstance_.get(), &SingleInstance::frontRequested, this,
            [this](const QByteArray& token) {
                qputenv("XDG_ACTIVATION_TOKEN", token);
                comeToFront();
            });
    connect(singleInstance_.get(), &SingleInstance::foldersRequested, this,
            &AppDelegate::openFolders);
}

void AppDelegate::applicationDidFinishLaunching(const std::vector<std::string>& folders) {
    if (!singleInstance_->keepFirst(folders)) {
        // This instance shows no window. It ends when the event loop begins, even if the request
        // that it sent to itself is lost.
        QMetaObject::invokeMethod(this, "terminate", Qt::QueuedConnection);
        return;
    }
    session_.awake = true;
    session_.exact = false;
    session_.similar = false;
    window_.locations->findDuplicateExact->setEnabled(false);
    window_.locations->findDuplicateExact->setAlpha(0.6);
    const Urls urls = readUrls(surroundings_.urls);
    help_->setUrls(urls);
    updates_->setUrls(urls);
    help_->setVersion(surroundings_.version);
    showCleanHistory();
    session_.summaries = {};
    if (!folders.empty()) {
        openFolders(folders);
    }
    window_.show();
    comeToFront();
    singleInstance_->listen();
    // Queued, so that the window is shown first.
    QMetaObject::invokeMethod(updates_.get(), "checkAtLaunch", Qt::QueuedConnection);
}

bool AppDelegate::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::FileOpen) {
        return QObject::eventFilter(watched, event);
    }
    const QString path = static_cast<QFileOpenEvent*>(event)->file();
    if (QFileInfo(path).isDir()) {
        openFolders({QFile::encodeName(QDir::cleanPath(path)).toStdString()});
    }
    return true;
}

void AppDelegate::openFolders(const std::vector<std::string>& folders) {
    const QString screen = window_.selectedTabViewItem();
    if (screen == window_.home->identifier() ||
        (screen == window_.locations->identifier() && locations_->list().scanFolderClicked())) {
        window_.windowAboutPanel->hide();
        locations_->openWith(folders);
    } else if (refusal_ == 0) {
        refusal_ = surroundings_.alerts->show(
            noticeOf(tr("To scan other folders, return to the start screen first.")),
            [this](int) { refusal_ = 0; });
    }
}

void AppDelegate::comeToFront() {
    // Clears only this flag, so that a maximised window stays maximised.
    window_.setWindowState(window_.windowState() & ~Qt::WindowMinimized);
    window_.raise();
    window_.activateWindow();
}

void AppDelegate::showCleanHistory() {
    const bool any = session_.alreadyDeletedCount() != 0;
    if (any) {
        window_.home->cleanHistory->setText(
            HomeTexts::cleanHistory(session_.alreadyDeletedCount(), session_.alreadyDeletedSize()));
    }
    window_.home->cleanHistory->setVisible(any);
}

void AppDelegate::homeCleanup() {
    views_->homeCleanup();
    notRead_->setFiles({});
    scan_->homeCleanup();
    locations_->homeCleanup();
    session_.totalSize = 0;
    session_.totalSelected = 0;
    session_.summaries = {};
    updateProgress();
    if (session_.alreadyDeletedCount() != 0) {
        window_.home->cleanHistory->show();
    }
    window_.results->finishButton->setEnabled(true);
    window_.results->finishButton->setAlpha(1.0);
    window_.home->buttonScanDrive->setAlpha(1.0);
}

void AppDelegate::goHome() {
    homeCleanup();
    window_.runningAlert->hide();  // belongs to the screen being left
    window_.selectTabViewItem(window_.home->identifier());
}

void AppDelegate::buttonHomeExactPageClicked() {
    if (window_.settingsWindow->isVisible() || window_.windowAboutPanel->isVisible()) {
        return;
    }
    goHome();
    giveHomeImages(*window_.locations->buttonHomeExactPage);
}

void AppDelegate::buttonHomePageClicked() {
    if (!window_.windowAboutPanel->isVisible()) {
        goHome();
    }
}

void AppDelegate::showDuplicateScanResult() {
    results_->begin();
    notRead_->setFiles(NotReadFiles(scan_->run().result()));
    views_->showDuplicateScanResult(true);
}

bool AppDelegate::windowShouldClose() {
    if (scan_->scanning()) {
        scan_->waitForAnswer();
        window_.runningAlertText->setText(
            tr("A operation is in progress. Please stop the current process."));
        window_.showNotice(window_.runningAlert, closingNoticeOrigin);
        return false;
    }
    surroundings_.settings.setValue(
        homeImageKey, storedHomeImageCounter(nextHomeImageCounter(homeImageCounter_)));
    homeImageCounter_ = nextHomeImageCounter(homeImageCounter_);
    terminate();
    return true;
}

void AppDelegate::runningAlertOK() {
    window_.runningAlert->hide();
    scan_->goOn();
}

void AppDelegate::startAnimation() const {
    window_.progressWindow->raise();
    window_.progressWindow->show();
}

}  // namespace tarvin
