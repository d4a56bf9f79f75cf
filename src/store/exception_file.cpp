#include "store/exception_file.h"

#include "platform/durable_file.h"
#include "store/stored_list.h"

#include <cstddef>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace tarvin {

namespace {

std::string listIn(const std::string& folder) {
    return folder + "/exception.plist";
}

/// Returns how many there were.
std::size_t eraseFrom(std::vector<std::string>& list, const std::vector<std::string>& paths) {
    const std::unordered_set<std::string_view> erased(paths.begin(), paths.end());
    return std::erase_if(list, [&](const std::string& path) { return erased.contains(path); });
}

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

std::optional<StoreError> removeStoredExceptions(const std::string& folder,
                                                 const std::vector<std::string>& paths) {
    const Result<FolderLock> lock = FolderLock::take(folder);
    if (!lock) {
        return storeErrorOf(folder, lock.error());
    }
    ExceptionList stored = readExceptionFile(listIn(folder));
    if (stored.error.has_value()) {
        const bool isMissing = stored.error->kind == StoreError::Kind::missing;
        return isMissing ? std::nullopt : std::move(stored.error);
    }
    return eraseFrom(stored.paths, paths) == 0
               ? std::nullopt
               : writeStoredList(listIn(folder), PropertyList::arrayOfPaths(stored.paths));
}

ExceptionFile::ExceptionFile(std::optional<std::string> folder)
    : folder_(std::move(folder)), path_(folder_ ? listIn(*folder_) : std::string()) {}

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
    if (folder_) {
        if (std::optional<StoreError> failure = removeStoredExceptions(*folder_, paths)) {
            return failure;
        }
    }
    forget(paths);
    return std::nullopt;
}

void ExceptionFile::forget(const std::vector<std::string>& paths) {
    eraseFrom(paths_, paths);
    eraseFrom(unsaved_, paths);
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
