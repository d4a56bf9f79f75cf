#pragma once

#include "platform/platform.h"

namespace tarvin::bench {

/// A Trash that can be made one that costs nothing: it says that a file is gone and leaves it.
class SwitchedTrash final : public Trash {
 public:
    /// While no run uses it.
    void setFree(bool isFree) { isFree_ = isFree; }

    bool fileExistsAtPath(const std::string& path) override {
        return isFree_ || systemTrash().fileExistsAtPath(path);
    }
    bool trashItemAtPath(const std::string& path) override {
        return isFree_ || systemTrash().trashItemAtPath(path);
    }

 private:
    bool isFree_ = false;
};

/// The machine, but for the Trash.
class SwitchedPlatform final : public Platform {
 public:
    [[nodiscard]] SwitchedTrash& switchedTrash() { return trash_; }

    FileSystem& fileSystem() override { return systemPlatform().fileSystem(); }
    tarvin::Clock& clock() override { return systemPlatform().clock(); }
    Trash& trash() override { return trash_; }
    RunningCopies& runningCopies() override { return systemPlatform().runningCopies(); }
    std::vector<Volume> mountedVolumes() override { return systemPlatform().mountedVolumes(); }
    bool isOnNetwork(const std::string& path) override {
        return systemPlatform().isOnNetwork(path);
    }
    std::optional<std::string> userName() override { return systemPlatform().userName(); }
    std::optional<std::string> userFolder(UserFolder folder) override {
        return systemPlatform().userFolder(folder);
    }
    std::optional<std::string> applicationSupportFolder() override {
        return systemPlatform().applicationSupportFolder();
    }

 private:
    SwitchedTrash trash_;
};

}  // namespace tarvin::bench
