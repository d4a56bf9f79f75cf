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

/// The location screen: entering the list in one of its modes, browsing, checking, adding by file
/// dialog and by drop. Owned by AppDelegate. Main thread only.
class Locations final : public QObject {
    Q_OBJECT

 public:
    /// The referenced objects must outlive this one. `previewProgram` is the path of the program
    /// that makes thumbnails.
    Locations(Session& session, MainWindow& window, Alerts& alerts, FilePanels& panels,
              QString previewProgram);

    void buttonScanDriveClicked();
    void buttonScanFoldersClicked();
    /// Drive mode for a scan for similar images, which never begins. Nothing calls it.
    void buttonScanFolderClicked();

    /// Shows the list in folder mode, unless it is shown already, and adds and checks these
    /// folders.
    void openWith(const std::vector<std::string>& folders);

    /// Opens the folder of a row, counted from the top.
    void didClickedRow(int row);
    void backFolderClicked();
    void nextFolderClicked();

    void markAllExact();
    void unmarkAllExact();
    void removeFromListExact();
    void addFolders();
    void addFiles();
    void reflectMarkStatusForRemoveButton();

    // The context menu. It updates the buttons of the screen like the buttons themselves do.

    void menuNeedsUpdate();
    void markUnmarkTable();
    void removeFromListMenuClicked();
    void markAllMenuClicked() { markAllExact(); }
    void unMarkAllMenuClicked() { unmarkAllExact(); }

    /// Forgets rows, levels and check states.
    void homeCleanup();
    /// Call when the collection has finished with the rows.
    void removeAllRows() { list_.removeAllRows(); }

    [[nodiscard]] const LocationList& list() const { return list_; }
    [[nodiscard]] const BrowseHistory& history() const { return history_; }

 private:
    // In pixels; a row shows it in 40 logical pixels.
    static constexpr QSize thumbnailSize{74, 74};

    /// Whether an open panel prevents leaving the screen.
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
