#include "platform/macos/mount_list.h"

#include <sys/mount.h>
#include <sys/param.h>

#include <cstddef>

namespace tarvin::macos {

namespace {

constexpr int roomForNewMounts = 16;

Mount toMount(const struct statfs& row) {
    return {.device = static_cast<std::uint32_t>(row.f_fsid.val[0]),
            .mountPoint = row.f_mntonname,
            .fileSystemType = row.f_fstypename,
            .isRemovable = (row.f_flags & MNT_REMOVABLE) != 0,
            .isHidden = (row.f_flags & MNT_DONTBROWSE) != 0,
            .isSnapshot = (row.f_flags & MNT_SNAPSHOT) != 0};
}

}  // namespace

std::vector<Mount> readMounts() {
    std::vector<struct statfs> rows;
    for (;;) {
        const int count = ::getfsstat(nullptr, 0, MNT_NOWAIT);
        if (count < 0) {
            return {};
        }
        rows.resize(static_cast<std::size_t>(count + roomForNewMounts));
        const auto bytes = static_cast<int>(rows.size() * sizeof(struct statfs));
        const int filled = ::getfsstat(rows.data(), bytes, MNT_NOWAIT);
        if (filled < 0) {
            return {};
        }
        // A full list may have been cut off.
        if (static_cast<std::size_t>(filled) < rows.size()) {
            rows.resize(static_cast<std::size_t>(filled));
            break;
        }
    }
    std::vector<Mount> mounts;
    mounts.reserve(rows.size());
    for (const struct statfs& row : rows) {
        mounts.push_back(toMount(row));
    }
    return mounts;
}

}  // namespace tarvin::macos
