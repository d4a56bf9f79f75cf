#include "store/data_file.h"

#include "platform/durable_file.h"
#include "store/stored_list.h"

#include <algorithm>
#include <utility>

namespace tarvin {

namespace {

constexpr const char* countKey = "deletedCount";
constexpr const char* sizeKey = "deletedSize";

StoredTotals totalsOf(const PropertyList& list) {
    return {list.signedNumber(countKey).value_or(0), list.number(sizeKey).value_or(0)};
}

void setTotals(PropertyList& list, const StoredTotals& totals) {
    list.setSignedNumber(countKey, totals.count);
    list.setNumber(sizeKey, totals.size);
}

PropertyList defaultList() {
    PropertyList list = PropertyList::dictionary();
    setTotals(list, {});
    list.setNumber("matchingLevel", 5);
    list.setNumber("matchingSize", 2);
    return list;
}

/// A missing total counts as 0; one that is not a number makes the list unusable.
bool hasUsableTotals(const PropertyList& list) {
    return (!list.has(countKey) || list.signedNumber(countKey)) &&
           (!list.has(sizeKey) || list.number(sizeKey));
}

std::variant<PropertyList, StoreError> readData(const std::string& path) {
    auto read = readStoredList(path);
    if (const auto* list = std::get_if<PropertyList>(&read);
        list != nullptr && !(list->isDictionary() && hasUsableTotals(*list))) {
        return StoreError{path, "not a property list of totals"};
    }
    return read;
}

/// A list to write the totals into, with its current totals.
struct OpenedData {
    PropertyList list;
    StoredTotals totals;
    bool isStored = false;  ///< the list is that of the file
    std::string aside;      ///< new path of an unusable file; empty if there was none
};

/// The list in the file, or a new one with the known totals. Requires the folder lock.
std::variant<OpenedData, StoreError> openData(const std::string& path, const StoredTotals& known) {
    auto read = readData(path);
    if (auto* list = std::get_if<PropertyList>(&read)) {
        const StoredTotals totals = totalsOf(*list);
        return OpenedData{std::move(*list), totals, true, {}};
    }
    auto aside = moveAside(std::get<StoreError>(read));
    if (auto* failure = std::get_if<StoreError>(&aside)) {
        return std::move(*failure);
    }
    auto& newPath = std::get<std::string>(aside);
    PropertyList list = newPath.empty() ? defaultList() : PropertyList::dictionary();
    return OpenedData{std::move(list), known, false, std::move(newPath)};
}

}  // namespace

DataFile::DataFile(std::optional<std::string> folder)
    : folder_(std::move(folder)), dataPath_(folder_ ? *folder_ + "/data.plist" : std::string()) {}

std::optional<StoreError> DataFile::loadDataFile() {
    remember({});
    if (!folder_) {
        return std::nullopt;
    }
    const auto read = readData(dataPath_);
    if (const auto* error = std::get_if<StoreError>(&read)) {
        if (error->kind != StoreError::Kind::missing) {
            return *error;
        }
        makeFirst();
        return std::nullopt;
    }
    remember(totalsOf(std::get<PropertyList>(read)));
    return std::nullopt;
}

void DataFile::remember(const StoredTotals& totals) {
    known_ = totals;
    showInMemory(totals);
}

/// Ignores failures: the file is created with the first totals.
void DataFile::makeFirst() const {
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access): there is a path.
    const Result<FolderLock> lock = FolderLock::take(*folder_);
    if (!lock) {
        return;
    }
    // Another instance may have been faster.
    const auto read = readData(dataPath_);
    const auto* error = std::get_if<StoreError>(&read);
    if (error != nullptr && error->kind == StoreError::Kind::missing) {
        static_cast<void>(writeStoredList(dataPath_, defaultList()));
    }
}

void DataFile::showAtLeast(const StoredTotals& before, std::uint64_t count, std::uint64_t size) {
    showInMemory({std::max(count_, raised(before.count, count)),
                  std::max(size_, raised(before.size, size))});
}

void DataFile::refresh() {
    if (folder_) {
        const auto read = readData(dataPath_);
        if (const auto* list = std::get_if<PropertyList>(&read)) {
            remember(totalsOf(*list));
        }
    }
}

std::variant<LockedTotals, StoreError> DataFile::lock() {
    putAside_.clear();
    if (!folder_) {
        remember(known_);
        return LockedTotals(*this, std::nullopt, PropertyList::dictionary(), known_);
    }
    Result<FolderLock> folderLock = FolderLock::take(*folder_);
    if (!folderLock) {
        return storeErrorOf(*folder_, folderLock.error());
    }
    auto opened = openData(dataPath_, known_);
    if (auto* error = std::get_if<StoreError>(&opened)) {
        return std::move(*error);
    }
    auto& data = std::get<OpenedData>(opened);
    putAside_ = std::move(data.aside);
    LockedTotals totals(*this, std::move(*folderLock), std::move(data.list), data.totals);
    if (data.isStored) {
        remember(data.totals);
    } else if (auto error = totals.store(data.totals)) {
        return std::move(*error);
    }
    return totals;
}

std::optional<StoreError> LockedTotals::store(const StoredTotals& totals) {
    if (lock_) {
        setTotals(list_, totals);
        if (auto error = writeStoredList(owner_->dataPath_, list_)) {
            setTotals(list_, stored_);
            return error;
        }
    }
    stored_ = totals;
    owner_->remember(totals);
    return std::nullopt;
}

}  // namespace tarvin
