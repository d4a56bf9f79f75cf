#include "store/exception_file.h"

#include "platform/durable_file.h"
#include "store/stored_list.h"

#include <cstddef>
#include <cstdint>
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
    // Views of the strings: `paths` must not change before the last of them has been met.
    std::unordered_set<std::string_view> met(paths.size());
    std::vector<bool> isFirst(paths.size());
    for (std::size_t number = 0; number < paths.size(); ++number) {
        isFirst[number] = met.insert(paths[number]).second;
    }
    std::size_t kept = 0;
    for (std::size_t number = 0; number < paths.size(); ++number) {
        if (isFirst[number] && kept++ != number) {
            paths[kept - 1] = std::move(paths[number]);
        }
    }
    paths.resize(kept);
    return paths;
}

enum class Keep : std::uint8_t { whatIsStored, nothing };

/// Writes `added` behind what is to be kept or, without a usable file, behind `all`.
ExceptionWrite store(const std::string& folder, Keep keep, const std::vector<std::string>& added,
                     const std::function<std::vector<std::string>()>& all) {
    const Result<FolderLock> lock = FolderLock::take(folder);
    if (!lock) {
        return {storeErrorOf(folder, lock.error()), {}};
    }
    const std::string path = listIn(folder);
    ExceptionWrite write;
    ExceptionList stored = readExceptionFile(path);
    if (stored.error) {
        auto aside = moveAside(*stored.error);
        if (auto* failure = std::get_if<StoreError>(&aside)) {
            return {std::move(*failure), {}};
        }
        write.putAside = std::get<std::string>(std::move(aside));
    }
    if (keep == Keep::nothing) {
        stored.paths.clear();
    } else if (stored.error) {
        stored.paths = all();
    }
    write.failure =
        writeStoredList(path, PropertyList::arrayOfPaths(joined(std::move(stored.paths), added)));
    return write;
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

ExceptionWrite addStoredExceptions(const std::string& folder, const std::vector<std::string>& added,
                                   const std::function<std::vector<std::string>()>& all) {
    return store(folder, Keep::whatIsStored, added, all);
}

ExceptionWrite clearStoredExceptions(const std::string& folder) {
    return store(folder, Keep::nothing, {}, {});
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
    hasRepeats_ = !paths_.empty();
    const bool isWrong = list.error && list.error->kind != StoreError::Kind::missing;
    return isWrong ? std::move(list.error) : std::nullopt;
}

std::optional<StoreError> ExceptionFile::addExceptions(const std::vector<std::string>& paths) {
    include(paths);
    unsaved_.insert(unsaved_.end(), paths.begin(), paths.end());
    if (!folder_) {
        return std::nullopt;
    }
    ExceptionWrite write = addStoredExceptions(*folder_, unsaved_, [this] { return paths_; });
    putAside_ = std::move(write.putAside);
    if (!write.failure) {
        unsaved_.clear();
    }
    return std::move(write.failure);
}

std::optional<StoreError> ExceptionFile::removeExceptions() {
    forgetAll();
    if (!folder_) {
        return std::nullopt;
    }
    ExceptionWrite write = clearStoredExceptions(*folder_);
    putAside_ = std::move(write.putAside);
    return std::move(write.failure);
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

void ExceptionFile::include(const std::vector<std::string>& paths) {
    if (std::exchange(hasRepeats_, false)) {
        paths_ = joined(std::move(paths_), paths);
        return;
    }
    // In a long list most of the time goes into hashing it.
    std::unordered_set<std::string_view> missing(paths.begin(), paths.end());
    for (const std::string& path : paths_) {
        missing.erase(path);
    }
    for (const std::string& path : paths) {
        if (missing.erase(path) != 0) {
            paths_.push_back(path);
        }
    }
}

void ExceptionFile::forget(const std::vector<std::string>& paths) {
    eraseFrom(paths_, paths);
    eraseFrom(unsaved_, paths);
}

void ExceptionFile::forgetAll() {
    paths_.clear();
    unsaved_.clear();
}

}  // namespace tarvin
