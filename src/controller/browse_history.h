#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvin {

/// The levels of the location list that were visited, and where among them the list stands. Pure:
/// it moves its indices, and the caller shows the level that they name. A level that then turns out
/// to have nothing to show leaves the indices where they went. Main thread.
class BrowseHistory final {
 public:
    /// The marker that stands for the top level.
    static constexpr const char* topLevel = "Default";

    /// The list is entered: one more marker, and the position is at the first entry.
    void enter();
    /// Forgets all levels. The position stays until the next enter().
    void clear() { folderBrowser_.clear(); }

    /// A folder is opened. One that is in the history already becomes the last level, what was
    /// behind it is dropped. A new one becomes the last level, and every other folder whose path
    /// has as many parts or more is dropped; the root folder has fewer parts than any other.
    void open(const std::string& name);

    /// One level back, or forward. False, and nothing changes, if there is no such level: the
    /// buttons are disabled then, or should be.
    bool back();
    bool next();

    /// Whether the level shown is the top one.
    [[nodiscard]] bool isAtTopLevel() const { return current() == topLevel; }
    /// The entry of the level shown: a folder's path or the marker, which an empty history is at.
    [[nodiscard]] std::string current() const;

    /// Which of the two buttons can be pressed at the level shown.
    [[nodiscard]] bool isBackEnabled() const { return currentPath_ > 0; }
    [[nodiscard]] bool isNextEnabled() const;

    [[nodiscard]] const std::vector<std::string>& folderBrowser() const { return folderBrowser_; }
    /// Indices in folderBrowser(); -1 for none.
    [[nodiscard]] std::int64_t currentPath() const { return currentPath_; }
    [[nodiscard]] std::int64_t parentPath() const { return parentPath_; }
    [[nodiscard]] std::int64_t childPath() const { return childPath_; }

 private:
    [[nodiscard]] std::int64_t lastIndex() const;
    void returnTo(const std::string& name);
    bool prune(const std::string& name);
    void moveToLast();

    std::vector<std::string> folderBrowser_;
    std::int64_t currentPath_ = 0;
    std::int64_t parentPath_ = -1;
    std::int64_t childPath_ = -1;
};

}  // namespace tarvin
