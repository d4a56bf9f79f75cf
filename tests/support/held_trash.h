#pragma once

#include "platform/trash_move.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

/// Forwards to another Trash and calls the test before each restored file, with its new name.
class HeldTrash final : public TrashMover {
 public:
    using BeforePutBack = std::function<void(const std::string& name)>;

    HeldTrash(std::unique_ptr<TrashMover> trash, BeforePutBack beforePutBack)
        : trash_(std::move(trash)), beforePutBack_(std::move(beforePutBack)) {}

    Result<TrashPlace, TrashRefusal> move(const OpenFolder& folder, const char* name) override {
        return trash_->move(folder, name);
    }
    Result<FileAttributes, TrashRefusal> attributes(const TrashPlace& place) override {
        return trash_->attributes(place);
    }
    std::optional<TrashRefusal> putBack(const TrashPlace& place, const Descriptor& folder,
                                        const char* name) override {
        beforePutBack_(name);
        return trash_->putBack(place, folder, name);
    }
    [[nodiscard]] std::string filesFolder(const std::string& trash) const override {
        return trash_->filesFolder(trash);
    }
    Result<std::vector<TrashedFile>, TrashRefusal> find(
        const std::string& trash, std::span<const FileIdentity> wanted) override {
        return trash_->find(trash, wanted);
    }
    std::optional<TrashRefusal> repairTrashInfo(const TrashPlace& place, const std::string& path,
                                                Timestamp moved) override {
        return trash_->repairTrashInfo(place, path, moved);
    }
    std::optional<TrashRefusal> removeUnusedTrashInfos(
        const std::string& trash, const std::vector<std::string>& paths) override {
        return trash_->removeUnusedTrashInfos(trash, paths);
    }
    [[nodiscard]] std::optional<TrashRefusal> flush() override { return trash_->flush(); }
    [[nodiscard]] std::vector<std::string> trashesFor(const std::string& path) const override {
        return trash_->trashesFor(path);
    }

 private:
    const std::unique_ptr<TrashMover> trash_;
    const BeforePutBack beforePutBack_;
};

}  // namespace tarvin
