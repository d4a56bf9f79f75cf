#pragma once

#include "platform/platform.h"

#include <atomic>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tarvin::bench {

/// A Trash that can be switched to a free one, which reports each file as moved and leaves it at
/// its path.
class SwitchedTrash final : public TrashMover {
 public:
    /// `isFree` must outlive this object.
    SwitchedTrash(std::unique_ptr<TrashMover> real, const std::atomic<bool>& isFree)
        : real_(std::move(real)), isFree_(isFree) {}

    Result<TrashPlace, TrashRefusal> move(const OpenFolder& folder, const char* name) override {
        if (isFree_) {
            return TrashPlace{folder.path, name};
        }
        return real_->move(folder, name);
    }
    Result<FileAttributes, TrashRefusal> attributes(const TrashPlace& place) override {
        if (!isFree_) {
            return real_->attributes(place);
        }
        auto attributes = systemFileSystem().attributesAtPath(place.trash + '/' + place.name);
        if (!attributes) {
            const SystemError error = attributes.error();
            return TrashRefusal{TrashRefusalKind::system, error, error.text()};
        }
        return *attributes;
    }
    std::optional<TrashRefusal> putBack(const TrashPlace& place, const Descriptor& folder,
                                        const char* name) override {
        return isFree_ ? std::nullopt : real_->putBack(place, folder, name);
    }
    Result<std::vector<TrashedFile>, TrashRefusal> find(
        const std::string& trash, std::span<const FileIdentity> wanted) override {
        return real_->find(trash, wanted);
    }
    std::optional<TrashRefusal> repairTrashInfo(const TrashPlace& place, const std::string& path,
                                                Timestamp moved) override {
        return real_->repairTrashInfo(place, path, moved);
    }
    std::optional<TrashRefusal> removeUnusedTrashInfos(
        const std::string& trash, const std::vector<std::string>& paths) override {
        return real_->removeUnusedTrashInfos(trash, paths);
    }
    [[nodiscard]] std::optional<TrashRefusal> flush() override { return real_->flush(); }
    [[nodiscard]] std::string filesFolder(const std::string& trash) const override {
        return real_->filesFolder(trash);
    }
    [[nodiscard]] std::vector<std::string> trashesFor(const std::string& path) const override {
        return real_->trashesFor(path);
    }

 private:
    const std::unique_ptr<TrashMover> real_;
    const std::atomic<bool>& isFree_;
};

/// The real platform except for the Trash.
class SwitchedPlatform final : public Platform {
 public:
    /// Call while no run uses a Trash.
    void setTrashFree(bool isFree) { isTrashFree_ = isFree; }

    FileSystem& fileSystem() override { return systemPlatform().fileSystem(); }
    tarvin::Clock& clock() override { return systemPlatform().clock(); }
    std::unique_ptr<TrashMover> makeTrashMover() override {
        return std::make_unique<SwitchedTrash>(systemPlatform().makeTrashMover(), isTrashFree_);
    }
    RunningInstances& runningInstances() override { return systemPlatform().runningInstances(); }
    std::vector<Volume> mountedVolumes() override { return systemPlatform().mountedVolumes(); }
    MountPlaces mountPlaces() override { return systemPlatform().mountPlaces(); }
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
    std::atomic<bool> isTrashFree_{false};
};

}  // namespace tarvin::bench
