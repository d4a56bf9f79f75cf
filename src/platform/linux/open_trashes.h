#pragma once

#include "platform/linux/mount_table.h"
#include "platform/linux/trash_folder.h"
#include "platform/linux/trash_mover.h"
#include "platform/open_folder.h"
#include "platform/trash_move.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// A Trash that is held open.
struct OpenTrash {
    TrashFolder folder;
    std::string top;          ///< top directory of the volume; empty for the home Trash
    std::uint64_t mount = 0;  ///< of the volume; 0 for the home Trash and one opened by path
    std::chrono::steady_clock::time_point checked;  ///< when its path was checked last
    bool isFlushed = true;
};

/// The Trash folders that a TrashMover uses, opened on demand. Each is checked again once a second
/// and closed if something else is at its path now. The pointers returned are valid until the next
/// call. One thread at a time.
class OpenTrashes final {
 public:
    /// `user` and what `around` refers to must outlive the object.
    OpenTrashes(const TrashUser& user, const TrashSurroundings& around)
        : user_(user), around_(around) {}

    /// The Trash for the files of an open folder. Creates its missing folders.
    Result<OpenTrash*, TrashRefusal> forFolder(const OpenFolder& folder);

    /// The Trash at a path; creates nothing.
    Result<OpenTrash*, TrashRefusal> at(const std::string& path);

    /// Closes each one whose path leads to another folder now.
    void closeChanged();

    /// Flushes all that have changed. Returns the first failure since the last call, also of those
    /// that have been closed since.
    std::optional<TrashRefusal> flush();

 private:
    using Time = std::chrono::steady_clock::time_point;

    Result<OpenTrash*, TrashRefusal> homeTrash();
    Result<OpenTrash*, TrashRefusal> volumeTrash(std::uint64_t mount);
    Result<TrashFolder, TrashRefusal> openVolume(const MountEntry& entry);
    Result<MountEntry, TrashRefusal> mountEntry(std::uint64_t mount);
    Result<std::uint64_t, TrashRefusal> homeDevice();
    template <typename Condition>
    OpenTrash* find(const Condition& condition);
    OpenTrash* add(OpenTrash trash);
    void flush(OpenTrash& trash);
    [[nodiscard]] bool isRecent(Time checked) const;

    const TrashUser& user_;
    const TrashSurroundings& around_;
    std::vector<std::unique_ptr<OpenTrash>> open_;
    std::optional<TrashRefusal> notFlushed_;
    std::optional<std::uint64_t> homeDevice_;
    Time homeChecked_;
};

}  // namespace tarvin
