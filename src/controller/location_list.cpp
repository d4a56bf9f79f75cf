#include "controller/location_list.h"

#include "controller/location_folders.h"
#include "scan/category.h"
#include "scan/texts.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <utility>

namespace tarvin {

namespace {

LocationRow folderRow(std::string path, std::string image, bool state) {
    return {.name = std::move(path),
            .image = std::move(image),
            .size = {},
            .state = state,
            .folder = true};
}

LocationRow fileRow(std::string path, std::uint64_t bytes) {
    return {.name = std::move(path),
            .image = {},
            .size = getFormattedStringForSize(bytes),
            .state = true,
            .folder = false};
}

}  // namespace

std::vector<LocationRow> LocationList::topLevelRows() const {
    const std::vector<Volume> volumes = platform_.mountedVolumes();
    const std::optional<std::string> desktop = platform_.userFolder(UserFolder::desktop);
    std::vector<LocationRow> rows;
    const auto add = [&](const std::string& path) {
        rows.push_back(
            folderRow(path, tarvin::imageNameOfPath(path, volumes, desktop), isInStateArray(path)));
    };
    if (scanFolderClicked_) {
        for (const std::optional<std::string>& folder :
             {desktop, platform_.userFolder(UserFolder::documents),
              platform_.userFolder(UserFolder::pictures)}) {
            if (folder && !platform_.isOnNetwork(*folder)) {
                add(*folder);
            }
        }
    }
    for (const Volume& volume : listedVolumes(volumes)) {
        add(volume.path);
    }
    return rows;
}

void LocationList::setInitialState() {
    std::vector<LocationRow> rows = topLevelRows();
    for (const LocationRow& row : rows) {
        index_.add(row.name);
    }
    insertRows(rows_.size(), std::move(rows));
}

bool LocationList::loadFolder(const std::string& path) {
    std::vector<std::string> folders = getFoldersAtPath(path);
    if (folders.empty()) {
        return false;
    }
    const bool isChecked = isInStateArray(path);
    if (isChecked) {
        stateArray_.insert(stateArray_.end(), folders.begin(), folders.end());
    }
    std::vector<LocationRow> rows;
    rows.reserve(folders.size());
    for (std::string& folder : folders) {
        rows.push_back(folderRow(std::move(folder), {}, isChecked));
    }
    showLevel(path, std::move(rows));
    return true;
}

void LocationList::showLevel(const std::string& level, std::vector<LocationRow> rows) {
    replaceRows(added_.changeLevel(level, rows_, std::move(rows)));
}

std::vector<std::string> LocationList::getFoldersAtPath(const std::string& path) const {
    return tarvin::getFoldersAtPath(platform_.fileSystem(), path);
}

std::string LocationList::imageNameOfPath(const std::string& path) const {
    return tarvin::imageNameOfPath(path, platform_.mountedVolumes(),
                                   platform_.userFolder(UserFolder::desktop));
}

Addition LocationList::addFiles(const std::vector<std::string>& paths) {
    Addition addition;
    std::vector<LocationRow> rows;
    for (const std::string& path : paths) {
        if (imageIsAlreadyThere(path)) {
            addition.notice = LocationNotice::imageAlreadyAdded;
        } else if (const auto attributes = platform_.fileSystem().attributesAtPath(path)) {
            prepareRow(fileRow(path, attributes->size), rows);
        }
    }
    addition.rows = rows.size();
    insertRows(rows_.size(), std::move(rows));
    return addition;
}

Addition LocationList::addFolders(const std::vector<std::string>& paths) {
    Addition addition;
    std::vector<LocationRow> rows;
    for (const std::string& path : paths) {
        if (imageIsAlreadyThere(path)) {
            addition.notice = LocationNotice::folderAlreadyAdded;
        } else {
            prepareRow(folderRow(path, {}, true), rows);
        }
    }
    addition.rows = rows.size();
    insertRows(rows_.size(), std::move(rows));
    return addition;
}

void LocationList::openFolders(const std::vector<std::string>& paths) {
    for (const std::string& path : paths) {
        const auto listed = std::find_if(rows_.begin(), rows_.end(),
                                         [&](const LocationRow& row) { return row.name == path; });
        if (listed != rows_.end()) {
            added_.add(path);
            setState(static_cast<std::size_t>(listed - rows_.begin()), true);
            continue;
        }
        std::vector<LocationRow> added;
        prepareRow(folderRow(path, {}, true), added);
        insertRows(rows_.size(), std::move(added));
    }
}

Addition LocationList::acceptDrop(std::size_t row, const std::vector<std::string>& paths) {
    Refusals refusals;
    std::vector<LocationRow> rows;
    for (const std::string& path : paths) {
        prepareDropped(path, rows, refusals);
    }
    const std::size_t count = rows.size();
    insertRows(std::min(row, rows_.size()), std::move(rows));
    if (count > 0) {
        return {count, LocationNotice::none};
    }
    if (refusals.alreadyAdded) {
        return {0, LocationNotice::fileAlreadyAdded};
    }
    return {0, refusals.notAdded ? LocationNotice::unsupportedFile : LocationNotice::none};
}

void LocationList::checkButtonExactFirstpage(std::size_t row, bool checked) {
    if (row >= rows_.size()) {
        return;
    }
    if (checked) {
        stateArray_.push_back(rows_[row].name);
    } else {
        std::erase(stateArray_, rows_[row].name);
    }
    added_.setState(rows_[row].name, checked);
    setState(row, checked);
}

void LocationList::setState(std::size_t row, bool state) {
    if (row >= rows_.size()) {
        return;
    }
    rows_[row].state = state;
    if (observer_ != nullptr) {
        observer_->statesChanged(row, 1);
    }
}

void LocationList::removeRow(std::size_t row) {
    if (row >= rows_.size()) {
        return;
    }
    std::vector<LocationRow> others = rows_;
    others.erase(others.begin() + static_cast<std::ptrdiff_t>(row));
    replaceRows(std::move(others));
}

void LocationList::removeFromListExact() {
    std::vector<LocationRow> unchecked;
    std::copy_if(rows_.begin(), rows_.end(), std::back_inserter(unchecked),
                 [](const LocationRow& row) { return !row.state; });
    if (unchecked.size() != rows_.size()) {
        replaceRows(std::move(unchecked));
    }
}

void LocationList::removeAllRows() {
    added_.clear();
    replaceRows({});
}

bool LocationList::isInStateArray(const std::string& path) const {
    return std::find(stateArray_.begin(), stateArray_.end(), path) != stateArray_.end();
}

void LocationList::prepareDropped(const std::string& path, std::vector<LocationRow>& rows,
                                  Refusals& refusals) {
    const auto attributes = platform_.fileSystem().attributesAtPath(path);
    const bool isFolder = attributes && attributes->type == EntryType::directory;
    if (!isFolder) {
        // Also set for images; it matters only if nothing is added.
        refusals.notAdded = true;
        if (!isSupportedImage(path)) {
            return;
        }
    }
    if (imageIsAlreadyThere(path)) {
        refusals.alreadyAdded = true;
    } else if (isFolder) {
        prepareRow(folderRow(path, {}, true), rows);
    } else if (attributes) {
        prepareRow(fileRow(path, attributes->size), rows);
    }
}

void LocationList::prepareRow(LocationRow row, std::vector<LocationRow>& rows) {
    // Indexed before insertion: the same path may occur twice in one call.
    index_.add(row.name);
    added_.add(row.name);
    rows.push_back(std::move(row));
}

void LocationList::insertRows(std::size_t first, std::vector<LocationRow> rows) {
    if (rows.empty()) {
        return;
    }
    if (observer_ != nullptr) {
        observer_->aboutToInsertRows(first, rows.size());
    }
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(first),
                 std::make_move_iterator(rows.begin()), std::make_move_iterator(rows.end()));
    if (observer_ != nullptr) {
        observer_->rowsInserted();
    }
}

void LocationList::replaceRows(std::vector<LocationRow> rows) {
    if (observer_ != nullptr) {
        observer_->aboutToReplaceRows();
    }
    rows_ = std::move(rows);
    index_.clear();
    for (const LocationRow& row : rows_) {
        index_.add(row.name);
    }
    if (observer_ != nullptr) {
        observer_->rowsReplaced();
    }
}

void LocationList::setAllStates(bool state) {
    for (LocationRow& row : rows_) {
        row.state = state;
    }
    if (observer_ != nullptr && !rows_.empty()) {
        observer_->statesChanged(0, rows_.size());
    }
}

}  // namespace tarvin
