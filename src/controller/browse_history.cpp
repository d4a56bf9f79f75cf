#include "controller/browse_history.h"

#include <algorithm>

namespace tarvin {

namespace {

/// Counts the parts between slashes, including the empty one at the front. The root folder counts
/// as one part, since it is above every other folder.
std::ptrdiff_t componentCount(const std::string& path) {
    return path == "/" ? 1 : std::count(path.begin(), path.end(), '/') + 1;
}

}  // namespace

void BrowseHistory::enter() {
    currentPath_ = 0;
    parentPath_ = -1;
    childPath_ = -1;
    folderBrowser_.emplace_back(topLevel);
}

void BrowseHistory::open(const std::string& name) {
    if (std::find(folderBrowser_.begin(), folderBrowser_.end(), name) != folderBrowser_.end()) {
        returnTo(name);
        return;
    }
    folderBrowser_.push_back(name);
    if (childPath_ != -1) {
        ++parentPath_;
        ++childPath_;
    } else {
        parentPath_ = currentPath_;
    }
    currentPath_ = lastIndex();
    if (prune(name)) {
        moveToLast();
    }
}

bool BrowseHistory::back() {
    if (parentPath_ < 0) {
        return false;
    }
    childPath_ = currentPath_;
    currentPath_ = parentPath_;
    --parentPath_;
    return true;
}

bool BrowseHistory::next() {
    if (currentPath_ >= lastIndex()) {
        return false;
    }
    ++currentPath_;
    ++parentPath_;
    ++childPath_;
    return true;
}

std::string BrowseHistory::current() const {
    const auto index = static_cast<std::size_t>(currentPath_);
    return index < folderBrowser_.size() ? folderBrowser_[index] : topLevel;
}

bool BrowseHistory::isNextEnabled() const {
    return childPath_ != -1 && currentPath_ != lastIndex();
}

std::int64_t BrowseHistory::lastIndex() const {
    return static_cast<std::int64_t>(folderBrowser_.size()) - 1;
}

void BrowseHistory::returnTo(const std::string& name) {
    while (folderBrowser_.back() != name) {
        folderBrowser_.pop_back();
    }
    moveToLast();
}

/// Drops the entries, except markers, that are not above `name`. Returns false if there were none.
bool BrowseHistory::prune(const std::string& name) {
    const std::ptrdiff_t parts = componentCount(name);
    return std::erase_if(folderBrowser_, [&](const std::string& entry) {
               return entry != topLevel && entry != name && componentCount(entry) >= parts;
           }) > 0;
}

void BrowseHistory::moveToLast() {
    currentPath_ = lastIndex();
    if (currentPath_ > 0) {
        parentPath_ = currentPath_ - 1;
        childPath_ = -1;
    }
}

}  // namespace tarvin
