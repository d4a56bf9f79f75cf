#include "platform/unsteady_volumes.h"

namespace tarvin {

namespace {

/// With random dates each answer has an even chance of going back.
constexpr int answers = 8;

/// Whether no change of a file can cause the second answer after the first, for one open file.
bool contradict(const FileAttributes& one, const FileAttributes& next) {
    if (one.identity != next.identity) {
        return true;
    }
    // Programs can set the date of modification to any, but that sets the date of change to now.
    return one.changed && next.changed &&
           (*next.changed < *one.changed ||
            (next.changed == one.changed && next.modified != one.modified));
}

}  // namespace

bool UnsteadyVolumes::contains(std::uint64_t device) const {
    if (!any_.load(std::memory_order_relaxed)) {
        return false;
    }
    const std::lock_guard lock(mutex_);
    return devices_.contains(device);
}

bool UnsteadyVolumes::examine(FileSystem& fileSystem, const Descriptor& open) {
    Result<FileAttributes> last = fileSystem.currentAttributesOf(open);
    for (int answer = 1; answer < answers; ++answer) {
        if (!last) {
            return false;
        }
        if (contains(last->identity.device)) {
            return true;
        }
        const Result<FileAttributes> next = fileSystem.currentAttributesOf(open);
        if (next && contradict(*last, *next)) {
            add(last->identity.device);
        }
        last = next;
    }
    return last && contains(last->identity.device);
}

bool UnsteadyVolumes::addIfRenumbered(const FileAttributes& before, const FileAttributes& now) {
    if (before.identity.device == now.identity.device &&
        before.identity.inode != now.identity.inode && before.size == now.size && before.changed &&
        before.changed == now.changed && before.modified == now.modified) {
        add(now.identity.device);
    }
    return contains(now.identity.device);
}

void UnsteadyVolumes::add(std::uint64_t device) {
    const std::lock_guard lock(mutex_);
    devices_.insert(device);
    any_.store(true, std::memory_order_relaxed);
}

}  // namespace tarvin
