#pragma once

#include "platform/file_system.h"
#include "platform/timestamp.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace tarvin {

class FileStore;
class SetMover;

/// A check box's state, at every level of the result tree.
enum class CheckState : std::int8_t {
    off = 0,    ///< nothing marked
    on = 1,     ///< fully marked (for a set: every file but one)
    mixed = -1  ///< partly marked
};

/// One folder of a scan, shared by the files in it so that a path is held once and not once per
/// file. Lives as long as the FileStore that made it; only its identity is filled in later, by the
/// thread that added it.
struct Directory {
    const Directory* parent = nullptr;  ///< none for the folder a walk began at
    /// Last component, ended by a zero byte; for the first folder its whole path.
    const char* name = nullptr;
    std::uint32_t nameLength = 0;  ///< bytes
    std::uint32_t pathLength = 0;  ///< bytes of the absolute path, without a slash at its end
    bool insideBundle = false;     ///< a ".app/" or ".framework/" stands in the paths below it
    /// What the system knows the folder by; inode 0 while it is not known.
    FileIdentity identity;

    /// The absolute path in native bytes, without a slash at its end ("/" itself is the exception).
    [[nodiscard]] std::string path() const;
    /// The absolute path of the entry `name` of this folder.
    [[nodiscard]] std::string pathOf(std::string_view entryName) const;
};

/// What a file was when its bytes were compared, beside its recorded size and date.
struct ComparedState {
    FileIdentity identity;
    std::optional<Timestamp> changed;  ///< none where the file system keeps no such date

    bool operator==(const ComparedState&) const = default;
};

/// One collected file. Made and owned by a FileStore; 56 bytes, because a scan holds millions.
/// Paths and names are native bytes and need not be UTF-8. `state` and `index` change on the one
/// thread that changes the result tree; everything else is fixed.
class File final {
 public:
    /// `name` is not copied.
    File(const Directory* directory, std::string_view name, std::uint64_t fileSize,
         std::optional<Timestamp> fileModificationDate, std::optional<Timestamp> fileCreationDate);

    /// Moves the file to the Trash. True only if it existed and the move reported no error; on
    /// false nothing has changed on disk.
    bool removeFile(SetMover& mover) const;

    /// The file's name as its folder lists it.
    [[nodiscard]] std::string_view fileName() const { return {name_, nameLength_}; }
    /// The absolute path: the file's identity everywhere. Put together on each call.
    [[nodiscard]] std::string filePath() const;
    /// Appends the absolute path to `out`, for callers that reuse one buffer.
    void appendFilePath(std::string& out) const;
    [[nodiscard]] const Directory* directory() const { return directory_; }
    /// Bytes, as recorded when the file was collected.
    [[nodiscard]] std::uint64_t fileSize() const { return fileSize_; }
    [[nodiscard]] std::optional<Timestamp> fileModificationDate() const {
        return fromRaw(modified_);
    }
    [[nodiscard]] std::optional<Timestamp> fileCreationDate() const { return fromRaw(created_); }

    /// 1 marked, 0 unmarked; no other value occurs.
    [[nodiscard]] CheckState state() const {
        return (indexAndMark_ & 1U) != 0 ? CheckState::on : CheckState::off;
    }
    void setState(CheckState state) {
        indexAndMark_ = (indexAndMark_ & ~1U) | (state == CheckState::off ? 0U : 1U);
    }
    /// 0-based position in the set when the set was built; kept when other files leave the set.
    [[nodiscard]] std::int64_t index() const {
        return static_cast<std::int32_t>(indexAndMark_) >> 1U;
    }
    /// 31 bits: no set is larger.
    void setIndex(std::int64_t index) {
        indexAndMark_ = static_cast<std::uint32_t>(index) << 1U | (indexAndMark_ & 1U);
    }

    /// None if the file is in no set, or was not then what had been recorded of it.
    [[nodiscard]] const ComparedState* compared() const { return compared_; }

 private:
    friend class FileStore;

    static constexpr std::int64_t noDate = std::numeric_limits<std::int64_t>::min();
    static std::int64_t toRaw(std::optional<Timestamp> date);
    static std::optional<Timestamp> fromRaw(std::int64_t raw);

    const Directory* directory_;
    const char* name_;
    std::uint64_t fileSize_;
    std::int64_t modified_;
    std::int64_t created_;
    const ComparedState* compared_ = nullptr;  // of the same store
    std::uint32_t nameLength_;                 // bytes
    std::uint32_t indexAndMark_ = 0;           // the mark is the lowest bit
};

static_assert(sizeof(File) <= 56);

}  // namespace tarvin
