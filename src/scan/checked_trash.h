#pragma once

#include "model/set.h"
#include "platform/file_system.h"
#include "platform/trash.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace tarvin {

/// What became of one marked file.
enum class MoveOutcome : std::uint8_t {
    moved,     ///< it is in the Trash
    gone,      ///< nothing stands at its path any more
    changed,   ///< not what was compared: other size, date or kind
    lastCopy,  ///< no other file of its set is there as it was compared
    refused,   ///< the system did not move it
    stopped    ///< a stop came first
};

/// A Trash that takes a file only while it is what the scan compared and another file of its set is
/// there, too, also as compared: a result may be hours old. What it does not take stays where it
/// is. One thread, the one that changes the result tree.
class CheckedTrash final : public Trash {
 public:
    using Report = std::function<void(const File& file, MoveOutcome outcome)>;

    /// What becomes of a set whose every file is marked, which takes a person's own hand.
    enum class WholeSets : std::uint8_t {
        keepOne,    ///< the last one is not taken
        goIfMarked  ///< it is
    };

    /// Both outlive it. `report` is told of each file that is asked for; `stopped` is asked before
    /// each. Either may be empty.
    CheckedTrash(FileSystem& fileSystem, Trash& trash, Report report = {},
                 std::function<bool()> stopped = {});
    CheckedTrash(FileSystem& fileSystem, Trash& trash, WholeSets wholeSets);

    /// Says which set the files asked for from now on are of. It must live until the next.
    void beginSet(const Set& set);

    /// True for every file of the set: what is there is looked at when it is asked to be moved.
    bool fileExistsAtPath(const std::string& path) override;
    bool trashItemAtPath(const std::string& path) override;

 private:
    /// A name in a folder, and what stands there.
    struct Place {
        FileIdentity folder;
        FileAttributes attributes;
    };

    [[nodiscard]] Result<Place> look(const File& file);
    [[nodiscard]] MoveOutcome move(const File& file, const std::string& path);
    [[nodiscard]] bool anotherIsThere(const File& file, const Place& place);
    [[nodiscard]] bool isAnother(const File& other, const File& file, const Place& place);

    FileSystem& fileSystem_;
    Trash& trash_;
    const Report report_;
    const std::function<bool()> stopped_;
    const WholeSets wholeSets_ = WholeSets::keepOne;
    bool mayTakeAll_ = false;         // of the set
    std::vector<const File*> files_;  // of the set, as it was at its begin
    std::unordered_map<std::string, const File*> byPath_;
    std::size_t survivor_ = 0;  // in `files_`: the one found there last
};

}  // namespace tarvin
