#pragma once

#include "clean/move_outcome.h"
#include "clean/open_folders.h"
#include "clean/set_move.h"
#include "model/file_mover.h"
#include "model/set.h"
#include "platform/clock.h"
#include "platform/file_lock.h"
#include "platform/trash_move.h"
#include "platform/unsteady_volumes.h"
#include "store/clean_up_journal.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace tarvin {

/// The lock in the turn file (`turns`) by which clean-ups of one user exclude each other, set by
/// set.
inline constexpr std::uint64_t cleanUpTurn = 0;

/// One clean-up: moves the marked files of a result tree to the Trash and keeps one file of each
/// set in its place (SetMove). Every move is stored in the journal first; a move that is not stored
/// is not made. A lock excludes other clean-ups of the user, set by set. Used only by the thread
/// that changes the result tree.
class CleanUp final : public FileMover {
 public:
    using Report = std::function<void(const File& file, const MoveResult& result)>;

    /// What to do with a set in which every file is marked; only a user can mark so.
    enum class WholeSets : std::uint8_t {
        keepOne,    ///< keep the last file
        goIfMarked  ///< move all files if each is as compared
    };

    struct Settings {
        WholeSets wholeSets = WholeSets::keepOne;
        Report report;                  ///< called for each file; may be empty
        std::function<bool()> stopped;  ///< polled before each file and chunk; may be empty
        /// Polled while another clean-up holds the lock: true gives up waiting; may be empty.
        std::function<bool()> endsWaiting;
        std::function<void(MoveStep)> beforeStep;  ///< for tests; may be empty
        /// Age after which the identity of an open folder is checked again.
        std::chrono::milliseconds folderMaxAge{100};
        /// Maximum wait for the lock, which another clean-up holds for one set.
        std::chrono::milliseconds patience = std::chrono::minutes(10);
    };

    /// All arguments must outlive this object except `turns`, the user's turn file, which is
    /// copied.
    CleanUp(FileSystem& fileSystem, TrashMover& trash, CleanUpJournal& journal,
            const LockFile& turns, Clock& clock, Settings settings);
    CleanUp(const CleanUp&) = delete;
    CleanUp& operator=(const CleanUp&) = delete;
    /// Without finish() the clean-up counts as crashed and is recovered at the next start.
    ~CleanUp() override = default;

    /// Returns false if the journal cannot be written; failure() says why.
    bool prepare(std::span<const std::shared_ptr<Set>> sets) override;
    std::unique_ptr<SetMover> begin(const Set& set) override;

    /// Finishes the clean-up in the journal. Planned files that were never moved count as stopped.
    /// Returns failure().
    [[nodiscard]] std::optional<StoreError> finish();

    /// The first failure to write the journal.
    [[nodiscard]] const std::optional<StoreError>& failure() const { return failure_; }
    /// nullopt until something has been planned.
    [[nodiscard]] std::optional<CleanUpId> id() const { return id_; }

 private:
    class Turn;

    /// A planned move without an outcome.
    struct Planned {
        const File* file = nullptr;
        MoveRow row = 0;
    };

    [[nodiscard]] std::optional<SystemError> takeTurn();
    [[nodiscard]] bool endsWaiting() const;
    [[nodiscard]] std::optional<CleanUpId> begunId();
    [[nodiscard]] std::vector<PlannedMove> listMarked(std::span<const std::shared_ptr<Set>> sets);
    [[nodiscard]] PlannedMove planFor(const File& file, const File* staying);
    [[nodiscard]] const File* stayingFor(const Set& set) const;
    [[nodiscard]] std::string realPathOf(const File& file);
    [[nodiscard]] const std::string& realFolderOf(const Directory& folder);
    [[nodiscard]] bool keepFirst(std::optional<StoreError> failure);
    [[nodiscard]] const Planned* plannedFor(const File& file);
    void record(const Planned& planned, const MoveResult& result, TrashPlace place);

    CleanUpJournal& journal_;
    RepeatedLock turn_;
    Clock& clock_;
    const Settings settings_;
    UnsteadyVolumes unsteadyVolumes_;
    OpenFolders folders_;
    const MoveTools tools_;
    std::optional<CleanUpId> id_;
    std::vector<Planned> planned_;  // in the order of the moves
    std::size_t nextPlanned_ = 0;
    std::unordered_map<const Directory*, std::string> realFolders_;
    std::optional<StoreError> failure_;
};

}  // namespace tarvin
