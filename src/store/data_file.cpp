#include "store/data_file.h"

#include "platform/durable_file.h"
#include "store/stored_list.h"

#include <limits>
#include <utility>

namespace tarvin {

namespace {

constexpr const char* countKey = "deletedCount";
constexpr const char* sizeKey = "deletedSize";

struct Totals {
    std::int64_t count = 0;
    std::uint64_t size = 0;
};

Totals totalsOf(const PropertyList& list) {
    return {list.signedNumber(countKey).value_or(0), list.number(sizeKey).value_or(0)};
}

std::int64_t sumOf(std::int64_t one, std::uint64_t other) {
    constexpr auto most = std::numeric_limits<std::int64_t>::max();
    // Without a sign, what is left up to the largest number fits for a number below zero, too.
    const std::uint64_t room = static_cast<std::uint64_t>(most) - static_cast<std::uint64_t>(one);
    return other > room ? most : static_cast<std::int64_t>(static_cast<std::uint64_t>(one) + other);
}

std::uint64_t sumOf(std::uint64_t one, std::uint64_t other) {
    constexpr auto most = std::numeric_limits<std::uint64_t>::max();
    return other > most - one ? most : one + other;
}

void setTotals(PropertyList& list, const Totals& totals) {
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

/// A total that is missing counts as none; one that is no number makes the list unusable.
bool hasUsableTotals(const PropertyList& list) {
    return (!list.has(countKey) || list.signedNumber(countKey)) &&
           (!list.has(sizeKey) || list.number(sizeKey));
}

/// The dictionary in the file, or why there is none.
std::variant<PropertyList, StoreError> readData(const std::string& path) {
    auto read = readStoredList(path);
    if (const auto* list = std::get_if<PropertyList>(&read);
        list != nullptr && !(list->isDictionary() && hasUsableTotals(*list))) {
        return StoreError{path, "not a property list of totals"};
    }
    return read;
}

}  // namespace

DataFile::DataFile(std::optional<std::string> folder)
    : folder_(std::move(folder)), dataPath_(folder_ ? *folder_ + "/data.plist" : std::string()) {}

std::optional<StoreError> DataFile::loadDataFile() {
    count_ = 0;
    size_ = 0;
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
    const Totals totals = totalsOf(std::get<PropertyList>(read));
    count_ = totals.count;
    size_ = totals.size;
    return std::nullopt;
}

/// A failure costs nothing: the file is made when there is something to write.
void DataFile::makeFirst() const {
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access): there is a path.
    const Result<FolderLock> lock = FolderLock::take(*folder_);
    if (!lock) {
        return;
    }
    // Another copy of the program may have been faster.
    const auto read = readData(dataPath_);
    const auto* error = std::get_if<StoreError>(&read);
    if (error != nullptr && error->kind == StoreError::Kind::missing) {
        static_cast<void>(writeStoredList(dataPath_, defaultList()));
    }
}

std::optional<StoreError> DataFile::addDeleted(std::uint64_t count, std::uint64_t size) {
    putAside_.clear();
    const std::int64_t oldCount = std::exchange(count_, sumOf(count_, count));
    const std::uint64_t oldSize = std::exchange(size_, sumOf(size_, size));
    return folder_ ? store(count, size, oldCount, oldSize) : std::nullopt;
}

/// The old totals stand in for those of a file that has gone meanwhile.
std::optional<StoreError> DataFile::store(std::uint64_t count, std::uint64_t size,
                                          std::int64_t oldCount, std::uint64_t oldSize) {
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access): there is a path.
    const Result<FolderLock> lock = FolderLock::take(*folder_);
    if (!lock) {
        // NOLINTNEXTLINE(bugprone-unchecked-optional-access): there is a path.
        return storeErrorOf(*folder_, lock.error());
    }
    auto read = readData(dataPath_);
    Totals old{oldCount, oldSize};
    if (const auto* error = std::get_if<StoreError>(&read)) {
        auto aside = putUnusableAside(*error);
        if (auto* failure = std::get_if<StoreError>(&aside)) {
            return std::move(*failure);
        }
        putAside_ = std::get<std::string>(std::move(aside));
        read = putAside_.empty() ? defaultList() : PropertyList::dictionary();
    } else {
        old = totalsOf(std::get<PropertyList>(read));
    }
    auto& list = std::get<PropertyList>(read);
    setTotals(list, {sumOf(old.count, count), sumOf(old.size, size)});
    return writeStoredList(dataPath_, list);
}

}  // namespace tarvin
