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

/// What a person is told after adding to the list.
enum class LocationNotice {
    none,
    fileAlreadyAdded,    ///< of a drop
    unsupportedFile,     ///< of a drop
    imageAlreadyAdded,   ///< of the file panel
    folderAlreadyAdded,  ///< of the folder panel
};

/// What became of a drop or of the answer of a panel.
struct Addition {
    std::size_t rows = 0;  ///< that were added
    LocationNotice notice = LocationNotice::none;

    bool operator==(const Addition&) const = default;
};

/// Hears of each change of the rows, before and after it. Main thread.
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

/// The list of places to scan, in display order, and the rules by which it is filled, checked and
/// emptied. Paths are native bytes. Main thread.
class LocationList final {
 public:
    /// `platform` outlives the list.
    explicit LocationList(Platform& platform) : platform_(platform) {}
    LocationList(const LocationList&) = delete;
    LocationList& operator=(const LocationList&) = delete;

    /// At most one; none if null. It is told of every change from now on.
    void setObserver(LocationListObserver* observer) { observer_ = observer; }

    // The levels.

    /// Whether the top level begins with folders of the user's (folder mode) or is only the volumes
    /// (drive mode).
    void setScanFolderClicked(bool clicked) { scanFolderClicked_ = clicked; }
    [[nodiscard]] bool scanFolderClicked() const { return scanFolderClicked_; }

    /// Appends the rows of the top level: in folder mode the user's Desktop, Documents and
    /// Pictures, then the volumes as they are mounted now. Nothing of another machine is listed.
    /// Checked is what stateArray() holds. Does not empty the list.
    void setInitialState();

    /// Shows the top level instead of the rows.
    void showTopLevel();

    /// Shows the folders in a folder instead of the rows, all of them checked, and put into
    /// stateArray(), if stateArray() holds the folder. False, and nothing changes, if there are
    /// none.
    bool loadFolder(const std::string& path);

    /// The visible folders in a folder, sorted by name; empty if there is none or it cannot be
    /// read.
    [[nodiscard]] std::vector<std::string> getFoldersAtPath(const std::string& path) const;

    /// Which picture a location has; asks for the volumes as they are now.
    [[nodiscard]] std::string imageNameOfPath(const std::string& path) const;

    // Adding. What is added is checked and does not go into stateArray(). It belongs to the level
    // that is shown, and comes back with it, at its place and checked or not as it was left.

    /// Whether a row stands for the path or for a folder above it. A folder whose name has an
    /// extension covers nothing but itself.
    [[nodiscard]] bool imageIsAlreadyThere(std::string_view path) const;

    /// Appends the files that a person chose in the file panel, as far as they are there.
    Addition addFiles(const std::vector<std::string>& paths);
    /// Appends the folders that a person chose in the folder panel.
    Addition addFolders(const std::vector<std::string>& paths);

    /// Has a checked row for each folder: what is listed is checked, what is not is appended, also
    /// below a folder that is listed and unchecked.
    void openFolders(const std::vector<std::string>& paths);

    /// Inserts dropped folders and images before the row `row`, in their order; at the end if there
    /// is no such row. A link counts as a file, and a file must have the name of an image. The
    /// notice is for a drop of which nothing was added.
    Addition acceptDrop(std::size_t row, const std::vector<std::string>& paths);

    // Checking.

    /// Checks or unchecks one row and notes it in stateArray(). Nothing if there is no such row.
    void checkButtonExactFirstpage(std::size_t row, bool checked);
    /// Neither changes stateArray().
    void markAllExact() { setAllStates(true); }
    void unmarkAllExact() { setAllStates(false); }
    /// Removes every checked row.
    void removeFromListExact();

    /// What the context menu of a row does. Neither changes stateArray(); nothing if there is no
    /// such row.
    void setState(std::size_t row, bool state);
    void removeRow(std::size_t row);

    /// Empties the list, and forgets what was added at other levels.
    void removeAllRows();
    /// Forgets which folders are checked at other levels; changes no row.
    void clearStateArray() { stateArray_.clear(); }

    [[nodiscard]] const std::vector<LocationRow>& rows() const { return rows_; }
    /// The paths that were checked one by one, and the folders in them that were opened; may hold
    /// the same path more than once.
    [[nodiscard]] const std::vector<std::string>& stateArray() const { return stateArray_; }

 private:
    /// Why dropped paths were not added.
    struct Refusals {
        bool alreadyAdded = false;
        bool notAdded = false;
    };

    [[nodiscard]] bool isInStateArray(const std::string& path) const;
    [[nodiscard]] std::vector<LocationRow> topLevelRows() const;
    /// Shows `rows` and what was added to them before; `level` is a folder's path, or empty for the
    /// top level.
    void showLevel(const std::string& level, std::vector<LocationRow> rows);
    void prepareDropped(const std::string& path, std::vector<LocationRow>& rows,
                        Refusals& refusals);
    /// Takes a row that is to be added.
    void prepareRow(LocationRow row, std::vector<LocationRow>& rows);
    /// The rows have been gathered.
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
