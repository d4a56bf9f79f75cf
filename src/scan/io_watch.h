#pragma once

#include "model/file.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace tarvin {

/// Knows which threads of a scan are inside a call of the file system, on what, and for how long,
/// so that a call that does not return (a network mount whose server is gone) can be told and
/// worked around. Time is counted in ticks of whoever calls tick(), which makes noting a call cost
/// a few stores and no look at a clock.
///
/// The folders and files named must live as long as this object.
class IoWatch final {
 public:
    IoWatch();
    IoWatch(const IoWatch&) = delete;
    IoWatch& operator=(const IoWatch&) = delete;
    ~IoWatch();

    /// One call (or several short ones), noted for the lifetime of the object. On one thread at a
    /// time; calls do not nest.
    class Call final {
     public:
        Call(IoWatch& watch, const Directory& folder) : Call(watch, &folder, nullptr) {}
        Call(IoWatch& watch, const File& file) : Call(watch, nullptr, &file) {}
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;
        ~Call();

     private:
        Call(IoWatch& watch, const Directory* folder, const File* file);

        void* slot_;
    };

    /// A call that has lasted for `ticks`.
    struct Waiting {
        std::string path;
        std::uint32_t ticks = 0;
    };

    /// One thread, at a steady pace.
    void tick() { now_.fetch_add(1, std::memory_order_relaxed); }
    /// The call that has lasted longest, if that is at least `ticks`. Any thread.
    [[nodiscard]] std::optional<Waiting> longest(std::uint32_t ticks) const;
    /// How many calls have lasted at least `ticks`. Any thread.
    [[nodiscard]] unsigned lasting(std::uint32_t ticks) const;

 private:
    struct Slot;

    Slot& slotOfThisThread();

    const std::uint64_t number_;  // tells objects apart that have had one address
    std::atomic<std::uint32_t> now_{1};
    mutable std::mutex mutex_;
    std::deque<std::unique_ptr<Slot>> slots_;  // guarded by mutex_; one a thread, never removed
};

}  // namespace tarvin
