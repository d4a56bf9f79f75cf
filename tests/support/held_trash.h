#pragma once

#include "platform/trash_move.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

/// A Trash that tells a test of each file before it puts it back, by the name that it is to get.
class HeldTrash final : public TrashMover {
 public:
    using BeforePutBack = std::function<void(const std::string& name)>;

    HeldTrash(std::unique_ptr<TrashMover> trash, BeforePutBack beforePutBack)
        : trash_(std::move(trash)), beforePutBack_(std::move(beforePutBack)) {}

    Result<TrashPlace, TrashRefusal> move(const Descriptor& folder, const std::string& folderPath,
                                          const char* name) override {
        return trash_->move(folder, folderPath, name);
    }
    Result<FileAttributes, TrashRefusal> look(const TrashPlace& place) override {
        return trash_->look(place);
    }
    std::optional<TrashRefusal> putBack(const TrashPlace& place, const Descriptor& folder,
                                        const char* name) override {
        beforePutBack_(name);
        return trash_->putBack(place, folder, name);
    }
    Result<std::vector<TrashedFile>, TrashRefusal> find(
        const std::string& trash, std::span<const FileIdentity> wanted) override {
        return trash_->find(trash, wanted);
    }
    [[nodiscard]] std::vector<std::string> trashesFor(const std::string& path) const override {
        return trash_->trashesFor(path);
    }

 private:
    const std::unique_ptr<TrashMover> trash_;
    const BeforePutBack beforePutBack_;
};

}  // namespace tarvin
