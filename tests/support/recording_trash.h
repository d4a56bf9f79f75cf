#pragma once

#include "model/file.h"
#include "model/file_mover.h"

#include <memory>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

namespace tarvin {

/// A Trash that moves nothing: the test says which paths exist and which of them refuse to go, and
/// reads afterwards what was asked of it. A path that was moved exists no more.
class RecordingTrash final : public FileMover {
 public:
    void addExisting(const std::string& path) { existing_.insert(path); }
    /// Lets `path` disappear as if another program had deleted it.
    void vanish(const std::string& path) { existing_.erase(path); }
    /// Every move of `path` fails from now on.
    void refuse(const std::string& path) { refusing_.insert(path); }
    /// Nothing can be prepared from now on.
    void refuseToPrepare() { prepares_ = false; }

    [[nodiscard]] bool fileExistsAtPath(const std::string& path) const {
        return existing_.contains(path);
    }

    bool trashItemAtPath(const std::string& path) {
        attempts_.push_back(path);
        if (refusing_.contains(path) || existing_.erase(path) == 0) {
            return false;
        }
        moves_.push_back(path);
        return true;
    }

    bool prepare(std::span<const std::shared_ptr<Set>> sets) override {
        prepared_.push_back(sets.size());
        return prepares_;
    }

    std::unique_ptr<SetMover> begin(const Set& /*set*/) override {
        return std::make_unique<Moves>(*this);
    }

    /// Every path a move was asked for, in order.
    [[nodiscard]] const std::vector<std::string>& attempts() const { return attempts_; }
    /// The paths whose move was done, in order.
    [[nodiscard]] const std::vector<std::string>& moves() const { return moves_; }
    /// How many sets came with each call of prepare().
    [[nodiscard]] const std::vector<std::size_t>& prepared() const { return prepared_; }

 private:
    class Moves final : public SetMover {
     public:
        explicit Moves(RecordingTrash& trash) : trash_(trash) {}

        bool move(const File& file) override {
            const std::string path = file.filePath();
            return trash_.fileExistsAtPath(path) && trash_.trashItemAtPath(path);
        }

     private:
        RecordingTrash& trash_;
    };

    std::unordered_set<std::string> existing_;
    std::unordered_set<std::string> refusing_;
    std::vector<std::string> attempts_;
    std::vector<std::string> moves_;
    std::vector<std::size_t> prepared_;
    bool prepares_ = true;
};

}  // namespace tarvin
