#pragma once

#include "platform/trash.h"

#include <string>
#include <unordered_set>
#include <vector>

namespace tarvin {

/// A Trash that moves nothing: the test says which paths exist and which of them refuse to go, and
/// reads afterwards what was asked of it. A path that was moved exists no more.
class RecordingTrash final : public Trash {
 public:
    void addExisting(const std::string& path) { existing_.insert(path); }
    /// Lets `path` disappear as if another program had deleted it.
    void vanish(const std::string& path) { existing_.erase(path); }
    /// Every move of `path` fails from now on.
    void refuse(const std::string& path) { refusing_.insert(path); }

    bool fileExistsAtPath(const std::string& path) override { return existing_.contains(path); }

    bool trashItemAtPath(const std::string& path) override {
        attempts_.push_back(path);
        if (refusing_.contains(path) || existing_.erase(path) == 0) {
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
    std::unordered_set<std::string> existing_;
    std::unordered_set<std::string> refusing_;
    std::vector<std::string> attempts_;
    std::vector<std::string> moves_;
};

}  // namespace tarvin
