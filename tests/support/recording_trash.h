#pragma once

#include "platform/trash.h"

#include <filesystem>
#include <string>
#include <system_error>
#include <unordered_set>
#include <vector>

namespace tarvin {

/// A Trash that moves nothing: the test says which paths exist and which of them refuse to go, and
/// reads afterwards what was asked of it. A path that was moved exists no more. Given a folder, it
/// moves files there that really exist.
class RecordingTrash final : public Trash {
 public:
    void addExisting(const std::string& path) { existing_.insert(path); }
    /// Lets `path` disappear as if another program had deleted it.
    void vanish(const std::string& path) { existing_.erase(path); }
    /// What stands on the disk exists, and is moved to this folder, which is there, by a number.
    void moveTo(const std::string& folder) { folder_ = folder; }
    /// Every move of `path` fails from now on.
    void refuse(const std::string& path) { refusing_.insert(path); }

    bool fileExistsAtPath(const std::string& path) override { return existing_.contains(path); }

    bool trashItemAtPath(const std::string& path) override {
        attempts_.push_back(path);
        if (refusing_.contains(path) || !take(path)) {
            return false;
        }
        moves_.push_back(path);
        return true;
    }

    /// Every path a move was asked for, in order.
    [[nodiscard]] const std::vector<std::string>& attempts() const { return attempts_; }
    /// The paths whose move was done, in order.
    [[nodiscard]] const std::vector<std::string>& moves() const { return moves_; }

 private:
    bool take(const std::string& path) {
        if (folder_.empty()) {
            return existing_.erase(path) > 0;
        }
        std::error_code failure;
        std::filesystem::rename(path, folder_ + '/' + std::to_string(moves_.size()), failure);
        return !failure;
    }

    std::string folder_;
    std::unordered_set<std::string> existing_;
    std::unordered_set<std::string> refusing_;
    std::vector<std::string> attempts_;
    std::vector<std::string> moves_;
};

}  // namespace tarvin
