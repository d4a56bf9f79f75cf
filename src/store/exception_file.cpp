#include "store/exception_file.h"

#include "platform/durable_file.h"
#include "store/stored_list.h"

#include <cstddef>
#include <utility>

namespace tarvin {

namespace {

/// Without duplicates; the first of equal paths stays.
std::vector<std::string> joined(std::vector<std::string> paths,
                                const std::vector<std::string>& more) {
    paths.insert(paths.end(), more.begin(), more.end());
    std::unordered_set<std::string_view> met;
    std::vector<std::string> once;
    for (const std::string& path : paths) {
        if (met.insert(path).second) {
            once.push_back(path);
        }
    }
    return once;
}

}  // namespace

ExceptionList readExceptionFile(const std::string& path) {
    const auto read = readStoredList(path);
    if (const auto* error = std::get_if<StoreError>(&read)) {
        return {{}, *error};
    }
    const auto& list = std::get<PropertyList>(read);
    if (!list.isArray()) {
        return {{}, StoreError{path, "not a property list of paths"}};
    }
    return {list.paths(), std::nullopt};
}

ExceptionFile::ExceptionFile(std::optional<std::string> folder)
    : folder_(std::move(folder)), path_(folder_ ? *folder_ + "/exception.plist" : std::string()) {}

std::optional<StoreError> ExceptionFile::load() {
    if (!folder_) {
        paths_.clear();
        return std::nullopt;
    }
    ExceptionList list = readExceptionFile(path_);
    paths_ = std::move(list.paths);
    const bool isWrong = list.error && list.error->kind != StoreError::Kind::missing;
    return isWrong ? std::move(list.error) : std::nullopt;
}

std::optional<StoreError> ExceptionFile::addExceptions(const std::vector<std::string>& paths) {
    paths_ = joined(std::move(paths_), paths);
    unsaved_.insert(unsaved_.end(), paths.begin(), paths.end());
    return folder_ ? store(Keep::whatIsStored) : std::nullopt;
}

std::optional<StoreError> ExceptionFile::removeExceptions() {
    paths_.clear();
    unsaved_.clear();
    return folder_ ? store(Keep::nothing) : std::nullopt;
}

std::optional<StoreError> ExceptionFile::removeExceptions(const std::vector<std::string>& paths) {
    putAside_.clear();
    const std::unordered_set<std::string_view> removed(paths.begin(), paths.end());
    if (folder_) {
        if (std::optional<StoreError> failure = storeWithout(removed)) {
            return failure;
        }
    }
    const auto isRemoved = [&](const std::string& path) { return removed.contains(path); };
    std::erase_if(paths_, isRemoved);
    std::erase_if(unsaved_, isRemoved);
    return std::nullopt;
}

/// Writes what the file holds now, without these paths; nothing if it holds none of them.
std::optional<StoreError> ExceptionFile::storeWithout(
    const std::unordered_set<std::string_view>& paths) const {
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access): there is a path.
    const Result<FolderLock> lock = FolderLock::take(*folder_);
    if (!lock) {
        // NOLINTNEXTLINE(bugprone-unchecked-optional-access): there is a path.
        return storeErrorOf(*folder_, lock.error());
    }
    ExceptionList stored = readExceptionFile(path_);
    if (stored.error.has_value()) {
        const bool isMissing = stored.error->kind == StoreError::Kind::missing;
        return isMissing ? std::nullopt : std::move(stored.error);
    }
    const std::size_t erased =
        std::erase_if(stored.paths, [&](const std::string& path) { return paths.contains(path); });
    return erased == 0 ? std::nullopt
                       : writeStoredList(path_, PropertyList::arrayOfPaths(stored.paths));
}

std::optional<StoreError> ExceptionFile::store(Keep keep) {
    putAside_.clear();
    // NOLINTNEXTLINE(bugprone-unchecked-optional-access): there is a path.
    const Result<FolderLock> lock = FolderLock::take(*folder_);
    if (!lock) {
        // NOLINTNEXTLINE(bugprone-unchecked-optional-access): there is a path.
        return storeErrorOf(*folder_, lock.error());
    }
    ExceptionList stored = readExceptionFile(path_);
    if (stored.error) {
        auto aside = moveAside(*stored.error);
        if (auto* failure = std::get_if<StoreError>(&aside)) {
            return std::move(*failure);
        }
        putAside_ = std::get<std::string>(std::move(aside));
    }
    if (keep == Keep::nothing) {
        stored.paths.clear();
    }
    const std::vector<std::string>& added = stored.error ? paths_ : unsaved_;
    std::optional<StoreError> failure =
        writeStoredList(path_, PropertyList::arrayOfPaths(joined(std::move(stored.paths), added)));
    if (!failure) {
        unsaved_.clear();
    }
    return failure;
}

}  // namespace tarvin
