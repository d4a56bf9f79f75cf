#pragma once

#include "controller/added_locations.h"
#include "controller/location_index.h"
#include "platform/platform.h"
#include "scan/location_row.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// The notice shown after adding to the list.
enum class LocationNotice {
    none,
    fileAlreadyAdded,    ///< by a drop
    unsupportedFile,     ///< by a drop
    imageAlreadyAdded,   ///< by the file panel
    folderAlreadyAdded,  ///< by the folder panel
};

/// The result of a drop or of a file panel.
struct Addition {
    std::size_t rows = 0;  ///< added
    LocationNotice notice = LocationNotice::none;

    bool operator==(const Addition&) const = default;
};

/// Is notified before and after each change of the rows. Main thread only.
class LocationListObserver {
 public:
    virtual ~LocationListObserver() = default;

    virtual void aboutToInsertRows(std::size_t first, std::size_t count) = 0;
    virtual void rowsInserted() = 0;
    virtual void aboutToReplaceRows() = 0;
    virtual void rowsReplaced() = 0;
    /// The check boxes of `count` rows, at least one.
    virtual void statesChanged(std::size_t first, std::size_t count) = 0;
};

/// The list of locations to scan, in display order, with the rules for filling, checking and
/// emptying it. Paths are native bytes. Main thread only.
class LocationList final {
 public:
    /// `platform` must outlive this object.
    explicit LocationList(Platform& platform) : platform_(platform) {}
    LocationList(const LocationList&) = delete;
    LocationList& operator=(const LocationList&) = delete;

    /// Replaces the observer; nullptr for none.
    void setObserver(LocationListObserver* observer) { observer_ = observer; }

    // The levels.

    /// Whether the top level begins with the user's folders (folder mode) or has only the volumes
    /// (drive mode).
    void setScanFolderClicked(bool clicked) { scanFolderClicked_ = clicked; }
    [[nodiscard]] bool scanFolderClicked() const { return scanFolderClicked_; }

    /// Appends the rows of the top level: in folder mode the user's Desktop, Documents and
    /// Pictures, then the mounted volumes. Network locations are not listed. Rows in stateArray()
    /// are checked. Does not empty the list first.
    void setInitialState();

    /// Replaces the rows by the top level.
    void showTopLevel() { showLevel({}, topLevelRows()); }

    /// Replaces the rows by the folders in a folder. If stateArray() holds the folder, they are
    /// checked and added to it. Returns false and changes nothing if there are no folders.
    bool loadFolder(const std::string& path);

    /// The visible folders in a folder, sorted by name; empty if there are none or it cannot be
    /// read.
    [[nodiscard]] std::vector<std::string> getFoldersAtPath(const std::string& path) const;

    /// The image name of a location, for the volumes mounted now.
    [[nodiscard]] std::string imageNameOfPath(const std::string& path) const;

    // Adding. Added rows are checked and are not put into stateArray(). They belong to the current
    // level and are restored with it, at their positions and with their check states.

    /// Whether a row is the path or a folder above it. A folder whose name has an extension covers
    /// only itself.
    [[nodiscard]] bool imageIsAlreadyThere(std::string_view path) const {
        return index_.covers(path);
    }

    /// Appends the files chosen in the file panel that still exist.
    Addition addFiles(const std::vector<std::string>& paths);
    /// Appends the folders chosen in the folder panel.
    Addition addFolders(const std::vector<std::string>& paths);

    /// Checks the rows of these folders and appends those that are not listed, also if they are
    /// below an unchecked row.
    void openFolders(const std::vector<std::string>& paths);

    /// Inserts dropped folders and images before the row `row`, in order, or at the end if there is
    /// no such row. A symbolic link counts as a file; a file must have an image extension. The
    /// notice is set only if nothing was added.
    Addition acceptDrop(std::size_t row, const std::vector<std::string>& paths);

    // Checking.

    /// Checks or unchecks one row and updates stateArray(). Does nothing if there is no such row.
    void checkButtonExactFirstpage(std::size_t row, bool checked);

    // Neither changes stateArray().

    void markAllExact() { setAllStates(true); }
    void unmarkAllExact() { setAllStates(false); }

    /// Removes every checked row.
    void removeFromListExact();

    // The context menu of a row. Neither changes stateArray(); both do nothing if there is no such
    // row.

    void setState(std::size_t row, bool state);
    void removeRow(std::size_t row);

    /// Empties the list, including rows added at other levels.
    void removeAllRows();
    /// Forgets which folders were checked; changes no row.
    void clearStateArray() { stateArray_.clear(); }

    [[nodiscard]] const std::vector<LocationRow>& rows() const { return rows_; }
    /// The paths that were checked one by one, and the subfolders of those that were opened. May
    /// hold a path more than once.
    [[nodiscard]] const std::vector<std::string>& stateArray() const { return stateArray_; }

 private:
    /// Why dropped paths were not added.
    struct Refusals {
        bool alreadyAdded = false;
        bool notAdded = false;
    };

    [[nodiscard]] bool isInStateArray(const std::string& path) const;
    [[nodiscard]] std::vector<LocationRow> topLevelRows() const;
    /// Shows `rows` with those added to them before; `level` is a folder's path, or empty for the
    /// top level.
    void showLevel(const std::string& level, std::vector<LocationRow> rows);
    void prepareDropped(const std::string& path, std::vector<LocationRow>& rows,
                        Refusals& refusals);
    /// Prepares a row for insertRows().
    void prepareRow(LocationRow row, std::vector<LocationRow>& rows);
    void insertRows(std::size_t first, std::vector<LocationRow> rows);
    void replaceRows(std::vector<LocationRow> rows);
    void setAllStates(bool state);

    Platform& platform_;
    LocationListObserver* observer_ = nullptr;
    std::vector<LocationRow> rows_;
    LocationIndex index_;  // of the names of rows_
    std::vector<std::string> stateArray_;
    AddedLocations added_;
    bool scanFolderClicked_ = false;
};

}  // namespace tarvin
