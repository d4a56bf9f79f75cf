#pragma once

#include "platform/file_system.h"
#include "platform/timestamp.h"

#include <atomic>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace tarvin {

class FileStore;
class SetMover;

/// The state of a check box, at every level of the result tree.
enum class CheckState : std::int8_t {
    off = 0,    ///< nothing marked
    on = 1,     ///< fully marked (for a set: every file but one)
    mixed = -1  ///< partly marked
};

/// One folder of a scan, shared by its files so that its path is stored once. Lives as long as its
/// FileStore. Immutable except for `identity`, which the thread that added the folder sets later.
struct Directory {
    const Directory* parent = nullptr;  ///< nullptr for the folder at which a walk began
    /// Null-terminated last component; the whole path for the folder at which a walk began.
    const char* name = nullptr;
    std::uint32_t nameLength = 0;  ///< bytes
    std::uint32_t pathLength = 0;  ///< bytes of the absolute path, without a trailing slash
    bool insideBundle = false;     ///< the paths below it contain ".app/" or ".framework/"
    /// Inode 0 while it is unknown.
    FileIdentity identity;

    /// The absolute path in native bytes, without a trailing slash (except for "/").
    [[nodiscard]] std::string path() const;
    /// The absolute path of the entry `name` of this folder.
    [[nodiscard]] std::string pathOf(std::string_view entryName) const;
};

/// The metadata of a file when its bytes were compared, besides its recorded size and date.
struct ComparedState {
    FileIdentity identity;
    std::optional<Timestamp> changed;  ///< nullopt if the file system has no such date

    bool operator==(const ComparedState&) const = default;
};

/// What a scan keeps besides with each file if it uses the results of earlier scans. Its state is
/// that at which the file was collected, and that of its comparison if `isCompared`.
struct FileVersion : ComparedState {
    /// The comparison that last decided how the contents of files relate; 0 if there is none. Files
    /// of one comparison that have different contents were compared and are different.
    std::uint64_t comparison = 0;
    /// Files with the same number are equal byte for byte; 0 if nothing is known.
    std::uint64_t content = 0;
    std::uint32_t linkCount = 0;
    bool isCompared = false;
    bool isFading = false;  ///< the numbers are to be stored again, or they will be dropped
    /// The file could not be read, or was not the collected one any more. Any thread.
    std::atomic<bool> isDoubtful{false};
};

/// One collected file. Created and owned by a FileStore; 56 bytes, because a scan holds millions.
/// Paths and names are native bytes and need not be UTF-8. Only the thread that changes the result
/// tree may change the state, and one thread at a time the index, which may be another one;
/// everything else is immutable.
class File final {
 public:
    /// `name` is null-terminated, not copied, and must outlive the file.
    File(const Directory* directory, std::string_view name, std::uint64_t fileSize,
         std::optional<Timestamp> fileModificationDate, std::optional<Timestamp> fileCreationDate);

    /// Moves the file to the Trash. Returns true only if it existed and was moved without an error;
    /// on false nothing has changed on disk.
    bool removeFile(SetMover& mover) const;

    /// The file's name as its folder lists it; null-terminated.
    [[nodiscard]] std::string_view fileName() const { return {name_, nameLength_}; }
    /// The absolute path, by which the file is identified. Built on each call.
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

    /// On (marked) or off; never mixed.
    [[nodiscard]] CheckState state() const { return isMarked_ ? CheckState::on : CheckState::off; }
    void setState(CheckState state) { isMarked_ = state != CheckState::off; }
    /// 0-based position in the set when the set was built; does not change when files are removed.
    [[nodiscard]] std::int64_t index() const { return index_; }
    /// At most 31 bits.
    void setIndex(std::int64_t index) { index_ = static_cast<std::int32_t>(index); }

    /// nullptr if the file is in no set, or had changed since it was collected when it was
    /// compared.
    [[nodiscard]] const ComparedState* compared() const {
        return !hasVersion_ || version()->isCompared ? state_ : nullptr;
    }
    /// nullptr if the file's store keeps no versions.
    [[nodiscard]] FileVersion* version() const {
        return hasVersion_ ? static_cast<FileVersion*>(state_) : nullptr;
    }

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
    ComparedState* state_ = nullptr;    // of the same store; a FileVersion if hasVersion_
    std::uint32_t nameLength_ : 23;     // bytes
    std::uint32_t hasVersion_ : 1 = 0;  // set with the file
    bool isMarked_ = false;             // no bit: two threads may write it and the index
    std::int32_t index_ = 0;
};

static_assert(sizeof(File) <= 56);

}  // namespace tarvin
