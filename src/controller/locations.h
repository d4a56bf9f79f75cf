#pragma once

#include "controller/alerts.h"
#include "controller/browse_history.h"
#include "controller/file_panels.h"
#include "controller/location_list.h"
#include "controller/location_model.h"
#include "controller/session.h"
#include "controller/thumbnails.h"

#include <QObject>
#include <string>
#include <vector>

namespace tarvin {

class MainWindow;

/// The task of choosing what to scan: entering the list in one of its modes, browsing, checking,
/// adding by panel and by drop. Owned by AppDelegate; main thread.
class Locations final : public QObject {
    Q_OBJECT

 public:
    /// All outlive it. `previewProgram` is the path of the program that makes the small pictures.
    Locations(Session& session, MainWindow& window, Alerts& alerts, FilePanels& panels,
              QString previewProgram);

    void buttonScanDriveClicked();
    void buttonScanFoldersClicked();
    /// Drive mode for similar images, whose scan never begins. Nothing calls it.
    void buttonScanFolderClicked();

    /// Shows the list in folder mode, if it does not show already, with these folders added and
    /// checked.
    void openWith(const std::vector<std::string>& folders);

    /// The row that was double-clicked; rows are counted from the top.
    void didClickedRow(int row);
    void backFolderClicked();
    void nextFolderClicked();

    void markAllExact();
    void unmarkAllExact();
    void removeFromListExact();
    void addFolders();
    void addFiles();
    void reflectMarkStatusForRemoveButton();

    // The context menu. What it does counts for the buttons of the screen at once.

    void menuNeedsUpdate();
    void markUnmarkTable();
    void removeFromListMenuClicked();
    void markAllMenuClicked();
    void unMarkAllMenuClicked();

    /// Forgets rows, levels and what was checked.
    void homeCleanup();
    /// The collection has taken the rows.
    void removeAllRows() { list_.removeAllRows(); }

    [[nodiscard]] const LocationList& list() const { return list_; }
    [[nodiscard]] const BrowseHistory& history() const { return history_; }

 private:
    // In pixels; a row shows it in 40 logical pixels.
    static constexpr QSize thumbnailSize{74, 74};

    /// Whether a window stands in the way of leaving the screen.
    [[nodiscard]] bool isBlockedByPanel() const;
    void connectControls();
    void enter(const QString& header);
    void showLevel();
    void loadFolder();
    void showLevelButtons();
    void showNotice(LocationNotice notice);
    void foldersChosen(const std::vector<std::string>& paths);
    void filesChosen(const std::vector<std::string>& paths);
    void checked(int row);
    void dropped(const Addition& addition);

    Session& session_;
    MainWindow& window_;
    Alerts& alerts_;
    FilePanels& panels_;
    LocationList list_;
    BrowseHistory history_;
    LocationModel model_;
    Thumbnails thumbnails_;
};

}  // namespace tarvin
