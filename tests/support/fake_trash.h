#pragma once

#include "platform/trash_move.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace tarvin {

/// A Trash that moves files into a folder of the test and names them by number, without a folder
/// "files" in between. The test sets which paths it refuses, and can read the calls afterwards. One
/// thread at a time.
class FakeTrash final {
 public:
    /// Sets the folder, which must exist.
    void moveTo(const std::string& folder) { folder_ = folder; }
    /// Makes every move of `path` fail from now on.
    void refuse(const std::string& path) { refusing_.insert(path); }

    /// The paths of all attempted moves, in order.
    [[nodiscard]] const std::vector<std::string>& attempts() const { return attempts_; }
    /// The paths of all completed moves, in order, including files that were moved back.
    [[nodiscard]] const std::vector<std::string>& moves() const { return moves_; }

    [[nodiscard]] std::unique_ptr<TrashMover> makeMover() { return std::make_unique<Mover>(*this); }

 private:
    static TrashRefusal refusalOf(int code) {
        const SystemError error{code};
        return {TrashRefusalKind::system, error, error.text()};
    }

    class Mover final : public TrashMover {
     public:
        explicit Mover(FakeTrash& trash) : trash_(trash) {}

        Result<TrashPlace, TrashRefusal> move(const OpenFolder& folder, const char* name) override {
            const std::string path = folder.path + '/' + name;
            trash_.attempts_.push_back(path);
            const TrashPlace place{trash_.folder_, std::to_string(trash_.moves_.size())};
            if (trash_.refusing_.contains(path)) {
                return refusalOf(EPERM);
            }
            if (std::rename(path.c_str(), pathOf(place).c_str()) != 0) {
                return refusalOf(errno);
            }
            trash_.moves_.push_back(path);
            return place;
        }

        Result<FileAttributes, TrashRefusal> attributes(const TrashPlace& place) override {
            Result<FileAttributes> attributes = systemFileSystem().attributesAtPath(pathOf(place));
            if (!attributes) {
                return refusalOf(attributes.error().code);
            }
            return *attributes;
        }

        std::optional<TrashRefusal> putBack(const TrashPlace& /*place*/,
                                            const Descriptor& /*folder*/,
                                            const char* /*name*/) override {
            return refusalOf(EPERM);
        }

        [[nodiscard]] std::string filesFolder(const std::string& trash) const override {
            return trash;
        }

        Result<std::vector<TrashedFile>, TrashRefusal> find(
            const std::string& trash, std::span<const FileIdentity> wanted) override {
            std::vector<TrashedFile> found;
            for (const auto& entry : std::filesystem::directory_iterator(trash)) {
                const auto attributes = systemFileSystem().attributesAtPath(entry.path());
                if (attributes &&
                    std::find(wanted.begin(), wanted.end(), attributes->identity) != wanted.end()) {
                    found.push_back({entry.path().filename(), *attributes});
                }
            }
            return found;
        }

        std::optional<TrashRefusal> repairTrashInfo(const TrashPlace& /*place*/,
                                                    const std::string& /*path*/,
                                                    Timestamp /*moved*/) override {
            return std::nullopt;
        }

        std::optional<TrashRefusal> removeUnusedTrashInfos(
            const std::string& /*trash*/, const std::vector<std::string>& /*paths*/) override {
            return std::nullopt;
        }

        [[nodiscard]] std::optional<TrashRefusal> flush() override { return std::nullopt; }

        [[nodiscard]] std::vector<std::string> trashesFor(
            const std::string& /*path*/) const override {
            return {trash_.folder_};
        }

     private:
        static std::string pathOf(const TrashPlace& place) {
            return place.trash + '/' + place.name;
        }

        FakeTrash& trash_;
    };

    std::string folder_;
    std::unordered_set<std::string> refusing_;
    std::vector<std::string> attempts_;
    std::vector<std::string> moves_;
};

}  // namespace tarvin
