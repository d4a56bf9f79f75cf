#pragma once

#include "clean/move_outcome.h"
#include "clean/open_folders.h"
#include "clean/set_move.h"
#include "model/file_mover.h"
#include "model/set.h"
#include "platform/clock.h"
#include "platform/file_lock.h"
#include "platform/trash_move.h"
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

/// The lock in the file of turns by which the clean-ups of a user exclude each other, set by set.
inline constexpr std::uint64_t cleanUpTurn = 0;

/// One clean-up: moves the marked files of a result tree to the Trash, keeps a living copy of each
/// content in its place (SetMove), and writes every move down before it happens. A move that the
/// journal does not hold is not made. The user's clean-ups take turns, set by set. One thread, the
/// one that changes the result tree.
class CleanUp final : public FileMover {
 public:
    using Report = std::function<void(const File& file, const MoveResult& result)>;

    /// What becomes of a set whose every file is marked, which takes a person's own hand.
    enum class WholeSets : std::uint8_t {
        keepOne,    ///< the last one is not moved
        goIfMarked  ///< it is, as long as every file is as compared
    };

    struct Settings {
        WholeSets wholeSets = WholeSets::keepOne;
        Report report;                  ///< told of each file; may be empty
        std::function<bool()> stopped;  ///< asked before each file; may be empty
        /// Asked while another clean-up has its turn, whether to go on without; may be empty.
        std::function<bool()> endsWaiting;
        std::function<void(MoveStep)> beforeStep;  ///< for tests; may be empty
        /// How long a folder that was looked at is believed to stand where it was.
        std::chrono::milliseconds folderMaxAge{100};
        /// How long another clean-up may take for one set.
        std::chrono::milliseconds patience = std::chrono::minutes(10);
    };

    /// All outlive it but `turns`, which is copied: the user's lock of clean-ups.
    CleanUp(FileSystem& fileSystem, TrashMover& trash, CleanUpJournal& journal,
            const LockFile& turns, Clock& clock, Settings settings);
    CleanUp(const CleanUp&) = delete;
    CleanUp& operator=(const CleanUp&) = delete;
    /// What finish() did not end counts as crashed, and is looked into at the next start.
    ~CleanUp() override = default;

    /// False if the journal cannot be written: failure() says why.
    bool prepare(std::span<const std::shared_ptr<Set>> sets) override;
    std::unique_ptr<SetMover> begin(const Set& set) override;

    /// Ends the clean-up in the journal. What was planned and not asked for has been stopped.
    [[nodiscard]] std::optional<StoreError> finish();

    /// What kept the journal from being written, first.
    [[nodiscard]] const std::optional<StoreError>& failure() const { return failure_; }
    /// None before something was planned.
    [[nodiscard]] std::optional<CleanUpId> id() const { return id_; }

 private:
    class Turn;

    /// A move that is written down and not made yet.
    struct Planned {
        const File* file = nullptr;
        MoveRow row = 0;
    };

    [[nodiscard]] std::optional<SystemError> takeTurn();
    [[nodiscard]] bool endsWaiting() const;
    [[nodiscard]] bool hasBegun();
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
    OpenFolders folders_;
    const MoveTools tools_;
    std::optional<CleanUpId> id_;
    std::vector<Planned> planned_;  // in the order in which they will be asked for
    std::size_t nextPlanned_ = 0;
    std::unordered_map<const Directory*, std::string> realFolders_;
    std::optional<StoreError> failure_;
};

}  // namespace tarvin
