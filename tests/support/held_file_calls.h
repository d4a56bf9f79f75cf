#pragma once

#include "platform/atomic_file.h"

#include <atomic>
#include <cstdint>

namespace tarvin {

/// The real calls, of which those that reach the drive block until release(), like calls on a
/// network volume that does not respond.
class HeldFileCalls final : public FileCalls {
 public:
    enum class Step : std::uint8_t { creating, flushing };

    /// Blocks at `held`.
    explicit HeldFileCalls(Step held) : held_(held) {}
    ~HeldFileCalls() override { release(); }

    int createFile(const char* path, int flags, UniqueFd& file) override {
        hold(Step::creating);
        return FileCalls::createFile(path, flags, file);
    }
    int sync(int descriptor) override {
        hold(Step::flushing);
        return FileCalls::sync(descriptor);
    }

    /// Whether a thread has been blocked.
    [[nodiscard]] bool hasHeld() const { return hasHeld_; }

    void release() {
        isOpen_ = true;
        isOpen_.notify_all();
    }

 private:
    void hold(Step step) {
        if (step == held_) {
            hasHeld_ = true;
            isOpen_.wait(false);
        }
    }

    const Step held_;
    std::atomic<bool> hasHeld_{false};
    std::atomic<bool> isOpen_{false};
};

}  // namespace tarvin
