#include "controller/locations.h"

#include "controller/location_buttons.h"
#include "controller/location_texts.h"
#include "controls/button_hover_complex.h"
#include "controls/button_settings_saved.h"
#include "controls/button_style.h"
#include "controls/hover_button.h"
#include "controls/windows_like_button.h"
#include "interface/about_panel.h"
#include "interface/enabled_together.h"
#include "interface/home_screen.h"
#include "interface/location_screen.h"
#include "interface/location_table.h"
#include "interface/main_window.h"
#include "interface/notice_panel.h"
#include "interface/text_block.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <utility>

namespace tarvin {

namespace {

constexpr QPoint noticeOrigin{220, 50};
constexpr int scanTitleSize = 14;

/// The types offered by the file dialog for photos, in its order.
QStringList photoTypes() {
    return {QStringLiteral("jpg"),  QStringLiteral("jpeg"), QStringLiteral("psd"),
            QStringLiteral("png"),  QStringLiteral("bmp"),  QStringLiteral("dng"),
            QStringLiteral("tiff"), QStringLiteral("gif"),  QStringLiteral("pspimage"),
            QStringLiteral("thm"),  QStringLiteral("tif"),  QStringLiteral("yuv"),
            QStringLiteral("ai"),   QStringLiteral("cr2"),  QStringLiteral("crw"),
            QStringLiteral("kdc"),  QStringLiteral("nef"),  QStringLiteral("mrw"),
            QStringLiteral("orf"),  QStringLiteral("x3f"),  QStringLiteral("raw"),
            QStringLiteral("raf"),  QStringLiteral("dcx")};
}

}  // namespace

Locations::Locations(Session& session, MainWindow& window, Alerts& alerts, FilePanels& panels,
                     QString previewProgram)
    : session_(session),
      window_(window),
      alerts_(alerts),
      panels_(panels),
      list_(session.platform),
      model_(list_),
      thumbnails_(thumbnailSize, std::move(previewProgram)) {
    window_.locations->tableExact->setModel(&model_);
    connectControls();
}

void Locations::connectControls() {
    const HomeScreen& home = *window_.home;
    connect(home.mainScanButton, &QAbstractButton::clicked, this,
            &Locations::buttonScanDriveClicked);
    connect(home.mainScanButtonFolder, &QAbstractButton::clicked, this,
            &Locations::buttonScanFoldersClicked);
    const LocationScreen& screen = *window_.locations;
    const auto onClick = [this](QAbstractButton* button, void (Locations::*action)()) {
        connect(button, &QAbstractButton::clicked, this, action);
    };
    onClick(screen.backFolderButton, &Locations::backFolderClicked);
    onClick(screen.nextFolderButton, &Locations::nextFolderClicked);
    onClick(screen.markAllExactBtn, &Locations::markAllExact);
    onClick(screen.unmarkAllExactBtn, &Locations::unmarkAllExact);
    onClick(screen.removeFromListExactBtn, &Locations::removeFromListExact);
    onClick(screen.addPhotos, &Locations::addFiles);
    onClick(screen.addFolders, &Locations::addFolders);
    connect(screen.tableExact, &LocationTable::rowOpened, this,
            [this](const QModelIndex& index) { didClickedRow(index.row()); });
    connect(screen.tableMenu, &QMenu::aboutToShow, this, &Locations::menuNeedsUpdate);
    connect(screen.markMenuTable, &QAction::triggered, this, &Locations::markUnmarkTable);
    connect(screen.removeFromListMenu, &QAction::triggered, this,
            &Locations::removeFromListMenuClicked);
    connect(screen.markAllMenu, &QAction::triggered, this, &Locations::markAllMenuClicked);
    connect(screen.unMarkAllMenu, &QAction::triggered, this, &Locations::unMarkAllMenuClicked);
    connect(&model_, &LocationModel::checkButtonClicked, this, &Locations::checked);
    connect(&model_, &LocationModel::dropped, this, &Locations::dropped);
    model_.setThumbnailSource([this](const std::string& path) { return thumbnails_.of(path); });
    connect(&thumbnails_, &Thumbnails::ready, this,
            [this](const QByteArray& path) { model_.thumbnailArrived(path.toStdString()); });
}

bool Locations::isBlockedByPanel() const {
    return window_.settingsWindow->isVisible() || window_.windowAboutPanel->isVisible();
}

void Locations::buttonScanDriveClicked() {
    if (!isBlockedByPanel()) {
        enter(LocationTexts::header(false));
    }
}

void Locations::buttonScanFoldersClicked() {
    // Set even if a panel prevents leaving the screen.
    list_.setScanFolderClicked(true);
    if (!isBlockedByPanel()) {
        enter(LocationTexts::header(true));
    }
}

void Locations::buttonScanFolderClicked() {
    buttonScanDriveClicked();
    session_.exact = false;
    session_.similar = true;
    window_.home->cleanHistory->hide();
}

void Locations::enter(const QString& header) {
    const LocationScreen& screen = *window_.locations;
    window_.selectTabViewItem(screen.identifier());
    model_.setHeader(header);
    session_.exact = true;
    session_.similar = false;
    for (HoverButton* button : {screen.markAllExactBtn, screen.unmarkAllExactBtn,
                                screen.removeFromListExactBtn, screen.findDuplicateExact}) {
        button->setEnabled(false);
    }
    screen.findDuplicateExact->setAlpha(0.6);
    window_.home->cleanHistory->hide();
    window_.home->mainScanButton->setAlpha(1.0);
    window_.home->mainScanButtonFolder->setAlpha(1.0);
    history_.enter();
    showLevelButtons();
    list_.setInitialState();
}

void Locations::openWith(const std::vector<std::string>& folders) {
    const bool listed = window_.selectedTabViewItem() == window_.locations->identifier() &&
                        list_.scanFolderClicked();
    if (!listed) {
        buttonScanFoldersClicked();
    }
    list_.openFolders(folders);
    reflectMarkStatusForRemoveButton();
}

void Locations::didClickedRow(int row) {
    if (row < 0 || static_cast<std::size_t>(row) >= list_.rows().size()) {
        return;
    }
    if (!list_.scanFolderClicked()) {
        alerts_.show(noticeOf(LocationTexts::proceedWithScan()));
        return;
    }
    const std::string name = list_.rows()[static_cast<std::size_t>(row)].name;
    if (list_.getFoldersAtPath(name).empty()) {
        alerts_.show(noticeOf(LocationTexts::noFolders()));
        return;
    }
    history_.open(name);
    showLevel();
}

void Locations::showLevel() {
    if (history_.currentPath() == 0) {
        list_.showTopLevel();
        reflectMarkStatusForRemoveButton();
    } else {
        loadFolder();
    }
}

void Locations::loadFolder() {
    if (history_.isAtTopLevel()) {
        list_.showTopLevel();
    } else if (!list_.loadFolder(history_.current())) {
        alerts_.show(noticeOf(LocationTexts::noFolders()));
        return;
    }
    showLevelButtons();
    reflectMarkStatusForRemoveButton();
}

void Locations::showLevelButtons() {
    const LocationScreen& screen = *window_.locations;
    const bool hadFocus =
        screen.backFolderButton->hasFocus() || screen.nextFolderButton->hasFocus();
    setEnabledTogether({{screen.backFolderButton, history_.isBackEnabled()},
                        {screen.nextFolderButton, history_.isNextEnabled()}});
    // With both disabled Qt would move the focus to "Mark All".
    if (hadFocus && !screen.backFolderButton->hasFocus() && !screen.nextFolderButton->hasFocus()) {
        screen.tableExact->setFocus();
    }
}

void Locations::backFolderClicked() {
    if (history_.back()) {
        loadFolder();
    }
}

void Locations::nextFolderClicked() {
    if (history_.next()) {
        loadFolder();
    }
}

void Locations::checked(int row) {
    window_.locations->tableExact->selectRow(row);
    reflectMarkStatusForRemoveButton();
}

void Locations::markAllExact() {
    list_.markAllExact();
    reflectMarkStatusForRemoveButton();
}

void Locations::unmarkAllExact() {
    list_.unmarkAllExact();
    reflectMarkStatusForRemoveButton();
}

void Locations::removeFromListExact() {
    list_.removeFromListExact();
    reflectMarkStatusForRemoveButton();
}

void Locations::reflectMarkStatusForRemoveButton() {
    const LocationScreen& screen = *window_.locations;
    const LocationButtons buttons = tarvin::reflectMarkStatusForRemoveButton(list_.rows());
    setEnabledTogether({{screen.markAllExactBtn, buttons.markAllExactBtn},
                        {screen.unmarkAllExactBtn, buttons.unmarkAllExactBtn},
                        {screen.removeFromListExactBtn, buttons.removeFromListExactBtn},
                        {screen.findDuplicateExact, buttons.findDuplicateExact}});
    screen.findDuplicateExact->setAlpha(buttons.findDuplicateExactAlpha);
    if (buttons.givesScanTitle) {
        screen.findDuplicateExact->setAttributedTitle(setCenterAttributes(
            Qt::white, LocationTexts::scan(), false, Qt::AlignHCenter, scanTitleSize));
    }
}

void Locations::addFolders() {
    panels_.open({.canChooseDirectories = true, .allowedFileTypes = {}},
                 [this](const std::vector<std::string>& paths) { foldersChosen(paths); });
}

void Locations::addFiles() {
    panels_.open({.canChooseDirectories = false, .allowedFileTypes = photoTypes()},
                 [this](const std::vector<std::string>& paths) { filesChosen(paths); });
}

void Locations::foldersChosen(const std::vector<std::string>& paths) {
    const Addition addition = list_.addFolders(paths);
    if (addition.rows > 0) {
        reflectMarkStatusForRemoveButton();
    }
    showNotice(addition.notice);
}

void Locations::filesChosen(const std::vector<std::string>& paths) {
    const Addition addition = list_.addFiles(paths);
    reflectMarkStatusForRemoveButton();
    showNotice(addition.notice);
}

void Locations::dropped(const Addition& addition) {
    if (addition.rows > 0) {
        reflectMarkStatusForRemoveButton();
    }
    showNotice(addition.notice);
}

void Locations::showNotice(LocationNotice notice) {
    if (notice != LocationNotice::none) {
        window_.runningAlertText->setText(LocationTexts::notice(notice));
        window_.showNoticeInList(window_.runningAlert, noticeOrigin);
    }
}

void Locations::menuNeedsUpdate() {
    const LocationScreen& screen = *window_.locations;
    const int row = screen.clickedRow();
    const bool onRow = row >= 0 && static_cast<std::size_t>(row) < list_.rows().size();
    screen.markMenuTable->setVisible(onRow);
    screen.removeFromListMenu->setVisible(onRow);
    screen.markAllMenu->setVisible(onRow && screen.markAllExactBtn->isEnabled());
    screen.unMarkAllMenu->setVisible(onRow && screen.unmarkAllExactBtn->isEnabled());
    if (onRow) {
        screen.markMenuTable->setText(
            LocationTexts::markMenu(list_.rows()[static_cast<std::size_t>(row)].state));
    }
}

void Locations::markUnmarkTable() {
    const LocationScreen& screen = *window_.locations;
    const bool marks = screen.markMenuTable->text() == LocationTexts::markMenu(false);
    list_.setState(static_cast<std::size_t>(screen.clickedRow()), marks);
    screen.tableExact->selectRow(screen.clickedRow());
    reflectMarkStatusForRemoveButton();
}

void Locations::removeFromListMenuClicked() {
    list_.removeRow(static_cast<std::size_t>(window_.locations->clickedRow()));
    reflectMarkStatusForRemoveButton();
}

void Locations::homeCleanup() {
    history_.clear();
    list_.removeAllRows();
    list_.clearStateArray();
    list_.setScanFolderClicked(false);
}

}  // namespace tarvin
