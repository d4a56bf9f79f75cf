#include "clean/clean_up.h"

#include "platform/file_paths.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

/// A few more than the sets planned together have folders in most trees.
constexpr std::size_t maxOpenFolders = 128;
/// Folders whose resolved path is cached.
constexpr std::size_t maxRealFolders = 4096;
/// While waiting for the lock.
constexpr std::chrono::milliseconds stopPollInterval{100};

/// Returns 0 if unknown.
std::uint64_t inodeOf(const File& file) {
    const ComparedState* const compared = file.compared();
    return compared == nullptr ? 0 : compared->identity.inode;
}

}  // namespace

/// The moves of one set.
class CleanUp::Turn final : public SetMover {
 public:
    Turn(CleanUp& cleanUp, const Set& set)
        : cleanUp_(cleanUp),
          refusal_(cleanUp.takeTurn()),
          moves_(cleanUp.tools_, set, cleanUp.settings_.wholeSets == WholeSets::goIfMarked) {}
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    ~Turn() override { cleanUp_.turn_.release(); }

    bool move(const File& file) override {
        const Planned* const planned = cleanUp_.plannedFor(file);
        TrashPlace place;
        const MoveResult result = planned == nullptr ? unplanned() : resultOf(file, place);
        if (planned != nullptr) {
            cleanUp_.record(*planned, result, std::move(place));
        }
        if (cleanUp_.settings_.report) {
            cleanUp_.settings_.report(file, result);
        }
        return result.outcome == MoveOutcome::moved;
    }

 private:
    static MoveResult unplanned() {
        return {.outcome = MoveOutcome::refused,
                .reason = "it was not written down before",
                .isUnplanned = true};
    }

    MoveResult resultOf(const File& file, TrashPlace& place) {
        if (!refusal_) {
            return moves_.move(file, place);
        }
        return cleanUp_.endsWaiting() ? MoveResult{MoveOutcome::stopped, {}}
                                      : MoveResult{MoveOutcome::refused, refusal_->text(),
                                                   TrashRefusalKind::system, *refusal_};
    }

    CleanUp& cleanUp_;
    const std::optional<SystemError> refusal_;  // why the lock could not be taken
    SetMove moves_;
};

CleanUp::CleanUp(FileSystem& fileSystem, TrashMover& trash, CleanUpJournal& journal,
                 const LockFile& turns, Clock& clock, Settings settings)
    : journal_(journal),
      turn_(turns, cleanUpTurn),
      clock_(clock),
      settings_(std::move(settings)),
      folders_(fileSystem, unsteadyVolumes_, settings_.folderMaxAge, maxOpenFolders),
      tools_{fileSystem,          trash, folders_, unsteadyVolumes_, settings_.stopped,
             settings_.beforeStep} {}

bool CleanUp::prepare(std::span<const std::shared_ptr<Set>> sets) {
    planned_.clear();
    nextPlanned_ = 0;
    const std::optional<CleanUpId> id = begunId();
    if (!id) {
        return false;
    }
    const std::vector<PlannedMove> moves = listMarked(sets);
    auto first = journal_.plan(*id, moves);
    if (auto* error = std::get_if<StoreError>(&first)) {
        planned_.clear();
        return keepFirst(std::move(*error));
    }
    MoveRow row = std::get<MoveRow>(first);
    for (Planned& planned : planned_) {
        planned.row = row++;
    }
    return true;
}

/// Begins the clean-up in the journal on the first call. Returns nullopt on failure.
std::optional<CleanUpId> CleanUp::begunId() {
    if (!id_) {
        auto begun = journal_.begin(clock_.now());
        if (auto* error = std::get_if<StoreError>(&begun)) {
            static_cast<void>(keepFirst(std::move(*error)));
        } else {
            id_ = std::get<CleanUpId>(begun);
        }
    }
    return id_;
}

/// Fills `planned_` with the marked files; returns their moves in the same order.
std::vector<PlannedMove> CleanUp::listMarked(std::span<const std::shared_ptr<Set>> sets) {
    std::vector<PlannedMove> moves;
    for (const std::shared_ptr<Set>& set : sets) {
        const File* const staying = stayingFor(*set);
        for (const std::shared_ptr<File>& file : set->files()) {
            if (file->state() != CheckState::off) {
                planned_.push_back({file.get(), 0});
                moves.push_back(planFor(*file, staying));
            }
        }
    }
    return moves;
}

std::unique_ptr<SetMover> CleanUp::begin(const Set& set) {
    return std::make_unique<Turn>(*this, set);
}

std::optional<StoreError> CleanUp::finish() {
    if (!id_) {
        return failure_;
    }
    for (; nextPlanned_ < planned_.size(); ++nextPlanned_) {
        record(planned_[nextPlanned_], {MoveOutcome::stopped, {}}, {});
    }
    if (tools_.trash.flush()) {
        // It is unknown what a power failure would leave; the next start checks each file.
        journal_.release(*id_);
        return failure_;
    }
    static_cast<void>(keepFirst(journal_.finish(*id_)));
    return failure_;
}

/// Takes the lock of the set. A stop ends the wait.
std::optional<SystemError> CleanUp::takeTurn() {
    const auto deadline = std::chrono::steady_clock::now() + settings_.patience;
    std::optional<SystemError> refusal;
    do {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        refusal = turn_.take(std::clamp(left, std::chrono::milliseconds(0), stopPollInterval));
    } while (refusal && refusal->code == EBUSY && !endsWaiting() &&
             std::chrono::steady_clock::now() < deadline);
    return refusal;
}

bool CleanUp::endsWaiting() const {
    return (settings_.stopped && settings_.stopped()) ||
           (settings_.endsWaiting && settings_.endsWaiting());
}

/// Returns a file of the set that is not moved, or nullptr.
const File* CleanUp::stayingFor(const Set& set) const {
    const auto& files = set.files();
    const auto unmarked = std::find_if(files.begin(), files.end(), [](const auto& file) {
        return file->state() == CheckState::off;
    });
    if (unmarked != files.end()) {
        return unmarked->get();
    }
    // The last file, since SetMove keeps it when the others have been moved.
    const bool oneStays = settings_.wholeSets == WholeSets::keepOne && !files.empty();
    return oneStays ? files.back().get() : nullptr;
}

PlannedMove CleanUp::planFor(const File& file, const File* staying) {
    PlannedMove move{realPathOf(file), inodeOf(file), file.fileSize(), file.fileModificationDate(),
                     std::nullopt};
    if (staying != nullptr && staying != &file) {
        move.staying = {realPathOf(*staying), inodeOf(*staying), staying->fileModificationDate()};
    }
    return move;
}

std::string CleanUp::realPathOf(const File& file) {
    return pathIn(realFolderOf(*file.directory()), file.fileName());
}

/// Resolves symlinks, since Put Back follows none: they may have another target by then.
const std::string& CleanUp::realFolderOf(const Directory& folder) {
    const auto known = realFolders_.find(&folder);
    if (known != realFolders_.end()) {
        return known->second;
    }
    if (realFolders_.size() >= maxRealFolders) {
        realFolders_.clear();
    }
    const std::string path = folder.path();
    std::error_code unknown;
    const std::filesystem::path real = std::filesystem::canonical(path, unknown);
    return realFolders_.emplace(&folder, unknown ? path : real.native()).first->second;
}

/// Stores the first failure. Returns whether there was none.
bool CleanUp::keepFirst(std::optional<StoreError> failure) {
    const bool isGood = !failure.has_value();
    if (!isGood && !failure_) {
        failure_ = std::move(failure);
    }
    return isGood;
}

/// Files are moved in the order in which they were planned.
const CleanUp::Planned* CleanUp::plannedFor(const File& file) {
    for (std::size_t at = nextPlanned_; at < planned_.size(); ++at) {
        if (planned_[at].file == &file && planned_[at].row != 0) {
            nextPlanned_ = at + 1;
            return &planned_[at];
        }
    }
    return nullptr;
}

/// Outcomes that cannot be written are recovered at the next start.
void CleanUp::record(const Planned& planned, const MoveResult& result, TrashPlace place) {
    RecordedOutcome outcome;
    outcome.row = planned.row;
    if (result.outcome == MoveOutcome::moved) {
        outcome.trashFolder = std::move(place.trash);
        if (place.name != planned.file->fileName()) {
            outcome.trashName = std::move(place.name);
        }
    } else {
        outcome.state = MoveState::left;
        outcome.reason = std::string(outcomeWord(result.outcome));
        if (!result.reason.empty()) {
            outcome.reason += ": " + result.reason;
        }
    }
    static_cast<void>(keepFirst(journal_.record({&outcome, 1})));
}

}  // namespace tarvin
