#include "scan/io_watch.h"

namespace tarvin {

namespace {

constexpr std::uint32_t noCall = 0;

std::uint64_t nextNumber() {
    static std::atomic<std::uint64_t> numbers{0};
    return ++numbers;
}

}  // namespace

/// The call of one thread. `since` is written last when a call begins and first when it ends.
struct IoWatch::Slot {
    std::atomic<std::uint32_t> since{noCall};
    std::atomic<const Directory*> folder{nullptr};
    std::atomic<const File*> file{nullptr};
};

IoWatch::IoWatch() : number_(nextNumber()) {}
IoWatch::~IoWatch() = default;

IoWatch::Call::Call(IoWatch& watch, const Directory* folder, const File* file) {
    Slot& slot = watch.slotOfThisThread();
    slot_ = &slot;
    slot.folder.store(folder, std::memory_order_relaxed);
    slot.file.store(file, std::memory_order_relaxed);
    slot.since.store(watch.now_.load(std::memory_order_relaxed), std::memory_order_release);
}

IoWatch::Call::~Call() {
    slot_->since.store(noCall, std::memory_order_release);
}

IoWatch::Slot& IoWatch::slotOfThisThread() {
    struct Known {
        std::uint64_t number = 0;
        Slot* slot = nullptr;
    };
    thread_local Known known;
    if (known.number != number_ || known.slot == nullptr) {
        const std::lock_guard lock(mutex_);
        slots_.push_back(std::make_unique<Slot>());
        known = {number_, slots_.back().get()};
    }
    return *known.slot;
}

std::optional<IoWatch::Waiting> IoWatch::longest(std::uint32_t ticks) const {
    const std::uint32_t now = now_.load(std::memory_order_relaxed);
    std::optional<Waiting> longest;
    const std::lock_guard lock(mutex_);
    for (const std::unique_ptr<Slot>& slot : slots_) {
        const std::uint32_t since = slot->since.load(std::memory_order_acquire);
        if (since == noCall || now - since < ticks || (longest && now - since <= longest->ticks)) {
            continue;
        }
        const Directory* folder = slot->folder.load(std::memory_order_relaxed);
        const File* file = slot->file.load(std::memory_order_relaxed);
        // The call may end at any moment, but its folder or file outlives this object.
        if (folder != nullptr) {
            longest = Waiting{folder->path(), now - since};
        } else if (file != nullptr) {
            longest = Waiting{file->filePath(), now - since};
        }
    }
    return longest;
}

unsigned IoWatch::lasting(std::uint32_t ticks) const {
    const std::uint32_t now = now_.load(std::memory_order_relaxed);
    unsigned count = 0;
    const std::lock_guard lock(mutex_);
    for (const std::unique_ptr<Slot>& slot : slots_) {
        const std::uint32_t since = slot->since.load(std::memory_order_acquire);
        count += since != noCall && now - since >= ticks ? 1U : 0U;
    }
    return count;
}

}  // namespace tarvin
