#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvin {

/// The visited levels of the location list and the position among them. It only moves its indices;
/// the caller shows the level. If that level turns out to be empty, the indices stay where they
/// are. Main thread only.
class BrowseHistory final {
 public:
    /// The entry of the top level.
    static constexpr const char* topLevel = "Default";

    /// Call when the list is entered. Appends a marker and moves to the first entry.
    void enter();
    /// Forgets all levels. The position stays until the next enter().
    void clear() { folderBrowser_.clear(); }

    /// Opens a folder, which becomes the last level. If it is in the history already, the entries
    /// after it are dropped; otherwise every other folder whose path has at least as many parts is
    /// dropped. The root folder has fewer parts than any other.
    void open(const std::string& name);

    /// Moves one level back or forward. Returns false and changes nothing if there is none.
    bool back();
    bool next();

    /// Whether the current level is the top level.
    [[nodiscard]] bool isAtTopLevel() const { return current() == topLevel; }
    /// The current entry: a folder's path, or the marker, also if the history is empty.
    [[nodiscard]] std::string current() const;

    // Which of the two buttons are enabled.
    [[nodiscard]] bool isBackEnabled() const { return currentPath_ > 0; }
    [[nodiscard]] bool isNextEnabled() const;

    [[nodiscard]] const std::vector<std::string>& folderBrowser() const { return folderBrowser_; }
    // Indices into folderBrowser(); -1 for none.
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
