#pragma once

#include "model/file.h"

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace tarvin {

/// Records which threads of a scan are inside a file-system call, on which folder or file and for
/// how long, so that a call that does not return (a network mount whose server is gone) can be
/// reported and worked around. Time is counted in calls of tick(), so that recording a call costs a
/// few stores and no clock access.
///
/// The recorded folders and files must outlive this object.
class IoWatch final {
    struct Slot;

 public:
    IoWatch();
    IoWatch(const IoWatch&) = delete;
    IoWatch& operator=(const IoWatch&) = delete;
    ~IoWatch();

    /// Records one call (or several short ones) during its lifetime. Used on one thread; must not
    /// be nested.
    class Call final {
     public:
        Call(IoWatch& watch, const Directory& folder) : Call(watch, &folder, nullptr) {}
        Call(IoWatch& watch, const File& file) : Call(watch, nullptr, &file) {}
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;
        ~Call();

     private:
        Call(IoWatch& watch, const Directory* folder, const File* file);

        Slot* slot_;
    };

    /// A call that has lasted for `ticks` on this folder or file.
    struct Waiting {
        std::string path;
        std::uint32_t ticks = 0;
    };

    /// To be called at regular intervals, on one thread.
    void tick() { now_.fetch_add(1, std::memory_order_relaxed); }
    /// The longest current call, if it has lasted at least `ticks`; else nullopt. Any thread.
    [[nodiscard]] std::optional<Waiting> longest(std::uint32_t ticks) const;
    /// How many current calls have lasted at least `ticks`. Any thread.
    [[nodiscard]] unsigned lasting(std::uint32_t ticks) const;

 private:
    Slot& slotOfThisThread();

    const std::uint64_t number_;  // distinguishes objects that have had the same address
    std::atomic<std::uint32_t> now_{1};
    mutable std::mutex mutex_;
    std::deque<std::unique_ptr<Slot>> slots_;  // guarded by mutex_; one per thread, never removed
};

}  // namespace tarvin
