#pragma once

#include "model/file.h"
#include "model/file_mover.h"

#include <memory>
#include <span>
#include <string>
#include <unordered_set>
#include <vector>

namespace tarvin {

/// A fake mover: the test sets which paths exist and which of them cannot be moved, and reads the
/// calls afterwards. A moved path no longer exists.
class RecordingTrash final : public FileMover {
 public:
    void addExisting(const std::string& path) { existing_.insert(path); }
    /// Removes `path`, as if another program had deleted it.
    void vanish(const std::string& path) { existing_.erase(path); }
    /// Makes every move of `path` fail from now on.
    void refuse(const std::string& path) { refusing_.insert(path); }
    /// Makes prepare() fail from now on.
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

    /// The paths of all attempted moves, in order.
    [[nodiscard]] const std::vector<std::string>& attempts() const { return attempts_; }
    /// The paths of all completed moves, in order.
    [[nodiscard]] const std::vector<std::string>& moves() const { return moves_; }
    /// The number of sets in each call of prepare().
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
