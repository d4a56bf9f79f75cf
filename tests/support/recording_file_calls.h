#pragma once

#include "platform/atomic_file.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

/// The real calls, recorded in order as "sync NAME" and "rename NAME NAME" with the last components
/// of the paths. The call that `failing` begins with returns `failure` instead.
class RecordingFileCalls final : public FileCalls {
 public:
    explicit RecordingFileCalls(std::string failing = "", int failure = 0)
        : failing_(std::move(failing)), failure_(failure) {}

    int sync(int descriptor) override {
        const auto link = "/proc/self/fd/" + std::to_string(descriptor);
        return record("sync " + nameOf(std::filesystem::read_symlink(link)))
                   ? failure_
                   : FileCalls::sync(descriptor);
    }

    int rename(const char* from, const char* to) override {
        return record("rename " + nameOf(from) + ' ' + nameOf(to)) ? failure_
                                                                   : FileCalls::rename(from, to);
    }

    [[nodiscard]] const std::vector<std::string>& calls() const { return calls_; }

 private:
    static std::string nameOf(const std::filesystem::path& path) {
        return path.filename().native();
    }

    /// Whether the call is to fail.
    bool record(std::string call) {
        calls_.push_back(std::move(call));
        return !failing_.empty() && calls_.back().starts_with(failing_);
    }

    std::string failing_;
    int failure_;
    std::vector<std::string> calls_;
};

}  // namespace tarvin
