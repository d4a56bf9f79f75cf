#include "clean/put_back.h"

#include "platform/open_folder.h"
#include "platform/varied_name.h"
#include "store/clean_up_totals.h"

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <span>
#include <utility>

namespace tarvin {

namespace {

/// What is written down at a time; a crash has the next look find out so many again.
constexpr std::size_t rowsAtOnce = 512;
/// Bytes of a name, on the file systems that people use.
constexpr std::size_t longestName = 255;
/// Beyond it a file stays in the Trash.
constexpr std::uint64_t mostNames = 10'000;

std::string_view nameOf(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string nameAtTry(const std::string& own, std::uint64_t number) {
    return number == 0 ? own : putBackName(own, number, longestName);
}

PutBackFile fileOf(const JournalMove& move) {
    PutBackFile file;
    file.row = move.row;
    file.path = move.path;
    file.size = move.size;
    file.name = nameOf(move.path);
    return file;
}

bool isSameFile(const JournalMove& move, const FileAttributes& now) {
    return now.type == EntryType::regular && now.identity.inode == move.inode &&
           now.size == move.size && now.modified == move.modified;
}

void refuse(PutBackFile& file, SystemError error, std::string reason) {
    file.outcome = PutBackOutcome::refused;
    file.error = error;
    file.reason = std::move(reason);
}

void refuse(PutBackFile& file, const TrashRefusal& refusal) {
    refuse(file, refusal.error, refusal.text);
    file.refusal =
        refusal.kind == TrashRefusalKind::system ? PutBackRefusal::system : PutBackRefusal::trash;
    file.trash = refusal.kind;
}

/// Because the folder cannot be opened or made.
void refuseFolder(PutBackFile& file, SystemError error) {
    switch (error.code) {
        case ELOOP:
            refuse(file, error, "its folder is a link now");
            file.refusal = PutBackRefusal::link;
            break;
        case ENOTDIR:
            refuse(file, error, "something else is where its folder was");
            file.refusal = PutBackRefusal::notFolder;
            break;
        default:
            refuse(file, error, error.text());
            break;
    }
}

/// The top folder of the volume that a Trash is on; empty if it is the home Trash.
std::string topOf(const std::string& trash) {
    const std::filesystem::path path(trash);
    if (path.filename().native().starts_with(".Trash-")) {
        return path.parent_path();
    }
    if (path.parent_path().filename() == ".Trash") {
        return path.parent_path().parent_path();
    }
    return {};
}

/// Writes down in portions what became of moves.
class Marks final {
 public:
    using Write = std::optional<StoreError> (CleanUpJournal::*)(std::span<const MoveRow>);

    Marks(CleanUpJournal& journal, Write write) : journal_(journal), write_(write) {}

    void add(MoveRow row, std::optional<StoreError>& failure) {
        rows_.push_back(row);
        if (rows_.size() >= rowsAtOnce) {
            writeOut(failure);
        }
    }

    void writeOut(std::optional<StoreError>& failure) {
        std::optional<StoreError> now = rows_.empty() ? std::nullopt : (journal_.*write_)(rows_);
        if (now && !failure) {
            failure = std::move(now);
        }
        rows_.clear();
    }

 private:
    CleanUpJournal& journal_;
    const Write write_;
    std::vector<MoveRow> rows_;
};

}  // namespace

std::string_view putBackWord(PutBackOutcome outcome) {
    switch (outcome) {
        case PutBackOutcome::toItsPlace:
            return "toItsPlace";
        case PutBackOutcome::underOtherName:
            return "underOtherName";
        case PutBackOutcome::withItsFolder:
            return "withItsFolder";
        case PutBackOutcome::lost:
            return "lost";
        case PutBackOutcome::changed:
            return "changed";
        case PutBackOutcome::notAttached:
            return "notAttached";
        case PutBackOutcome::refused:
            return "refused";
        case PutBackOutcome::stopped:
            break;
    }
    return "stopped";
}

std::string putBackName(std::string_view name, std::uint64_t number, std::size_t longest) {
    const std::string addition =
        number == 1 ? " (put back)" : " (put back " + std::to_string(number) + ")";
    return variedName(name, addition, longest);
}

StoreResult<std::unique_ptr<PutBack>> PutBack::open(Platform& platform, DataFile& totals) {
    auto opened = openRecovered(platform, totals);
    if (auto* error = std::get_if<StoreError>(&opened)) {
        return std::move(*error);
    }
    return std::unique_ptr<PutBack>(
        new PutBack(platform, std::get<RecoveredJournal>(std::move(opened)), totals));
}

PutBack::PutBack(Platform& platform, RecoveredJournal opened, DataFile& totals)
    : fileSystem_(platform.fileSystem()),
      totals_(totals),
      journal_(std::move(opened.journal)),
      trash_(std::move(opened.trash)),
      folders_(fileSystem_) {}

StoreResult<std::vector<CleanUpSummary>> PutBack::cleanUps() {
    auto all = journal_.cleanUps();
    if (auto* known = std::get_if<std::vector<CleanUpSummary>>(&all)) {
        std::erase_if(*known, [this](const CleanUpSummary& cleanUp) {
            return cleanUp.movedFiles == 0 || (!cleanUp.finished && isInUse(cleanUp.id));
        });
    }
    return all;
}

/// One that could not be recovered whole, as its drive is not there, is not.
bool PutBack::isInUse(CleanUpId id) {
    if (journal_.claim(id)) {
        return true;
    }
    journal_.release(id);
    return false;
}

StoreResult<std::variant<CleanUpSummary, NothingToPutBack>> PutBack::last(
    const std::function<bool()>& stopped) {
    auto all = cleanUps();
    if (auto* error = std::get_if<StoreError>(&all)) {
        return std::move(*error);
    }
    std::optional<NothingToPutBack> nothing;
    for (const CleanUpSummary& cleanUp : std::get<std::vector<CleanUpSummary>>(all)) {
        if (stopped && stopped()) {
            break;
        }
        bool isWorthATry = false;
        bool isAllBack = cleanUp.lostFiles == 0;
        auto failure = examine(cleanUp.id, [&](const PutBackFile& file) {
            if (stopped && stopped()) {
                return false;
            }
            isAllBack = false;
            isWorthATry =
                file.outcome != PutBackOutcome::lost && file.outcome != PutBackOutcome::changed;
            return !isWorthATry;
        });
        if (failure) {
            return std::move(*failure);
        }
        if (isWorthATry) {
            return std::variant<CleanUpSummary, NothingToPutBack>(cleanUp);
        }
        if (!nothing) {
            nothing = isAllBack ? NothingToPutBack::allBack : NothingToPutBack::noneInTrash;
        }
    }
    return std::variant<CleanUpSummary, NothingToPutBack>(
        nothing.value_or(NothingToPutBack::neverCleaned));
}

std::optional<StoreError> PutBack::examine(CleanUpId id,
                                           const std::function<bool(const PutBackFile&)>& visit) {
    std::optional<StoreError> failure;
    Marks putBack(journal_, &CleanUpJournal::markPutBack);
    bool hasNews = false;
    auto unread = journal_.forEachMove(
        id, {MoveState::moved}, CleanUpJournal::Order::asPlanned, [&](const JournalMove& move) {
            const PutBackFile file = lookAt(move);
            if (file.outcome == PutBackOutcome::lost && isBackAlready(move)) {
                putBack.add(move.row, failure);
                hasNews = true;
                return true;
            }
            return visit(file);
        });
    putBack.writeOut(failure);
    if (hasNews && !failure) {
        failure = settleTotals(totals_, journal_);
    }
    return unread ? unread : failure;
}

std::optional<StoreError> PutBack::run(CleanUpId id, const Settings& settings) {
    if (auto inUse = journal_.claim(id)) {
        return inUse;
    }
    std::optional<StoreError> failure;
    Marks putBack(journal_, &CleanUpJournal::markPutBack);
    Marks lost(journal_, &CleanUpJournal::markLost);
    bool isStopped = false;
    auto unread = journal_.forEachMove(
        id, {MoveState::moved}, CleanUpJournal::Order::asPlanned, [&](const JournalMove& move) {
            isStopped = isStopped || (settings.stopped && settings.stopped());
            PutBackFile file = isStopped ? fileOf(move) : bring(move);
            if (isStopped) {
                file.outcome = PutBackOutcome::stopped;
            } else if (file.outcome == PutBackOutcome::lost) {
                if (isBackAlready(move)) {
                    putBack.add(move.row, failure);
                    return true;
                }
                lost.add(move.row, failure);
            } else if (isBack(file.outcome)) {
                putBack.add(move.row, failure);
            }
            if (settings.report) {
                settings.report(file);
            }
            return true;
        });
    putBack.writeOut(failure);
    lost.writeOut(failure);
    journal_.release(id);
    std::optional<StoreError> unsettled = settleTotals(totals_, journal_);
    failure = failure ? failure : std::move(unread);
    return failure ? failure : unsettled;
}

/// Whether what was moved is there. The outcome is to its place if it is.
PutBackFile PutBack::inTrash(const JournalMove& move) {
    PutBackFile file = fileOf(move);
    const auto there = trash_->look({move.trashFolder, move.trashName});
    if (there) {
        if (!isSameFile(move, *there)) {
            file.outcome = PutBackOutcome::changed;
        }
        return file;
    }
    const TrashRefusal& refusal = there.error();
    const bool isGone = refusal.kind == TrashRefusalKind::gone || refusal.error.code == ENOENT ||
                        refusal.error.code == ENOTDIR;
    if (!isGone) {
        refuse(file, refusal);
    } else {
        file.outcome =
            isAttached(move.trashFolder) ? PutBackOutcome::lost : PutBackOutcome::notAttached;
    }
    return file;
}

PutBackFile PutBack::lookAt(const JournalMove& move) {
    PutBackFile file = inTrash(move);
    if (isBack(file.outcome)) {
        lookForRoom(folderOf(move.path), file);
    }
    return file;
}

/// What becomes of a file of which nothing but its place is looked at.
void PutBack::lookForRoom(const std::string& folder, PutBackFile& file) {
    std::string nearest = folder;
    ReturnFolders::Opened opened = folders_.open(nearest);
    while (!opened && opened.error().code == ENOENT && nearest != "/") {
        file.outcome = PutBackOutcome::withItsFolder;
        nearest = folderOf(nearest);
        opened = folders_.open(nearest);
    }
    if (!opened) {
        refuseFolder(file, opened.error());
        return;
    }
    if (const auto refusal = refusalOfNames((*opened)->descriptor)) {
        refuse(file, *refusal, refusal->text());
        return;
    }
    if (file.outcome == PutBackOutcome::withItsFolder) {
        return;
    }
    const std::string own = file.name;
    for (std::uint64_t number = 0; number < mostNames; ++number) {
        file.name = nameAtTry(own, number);
        if (!fileSystem_.attributesAt((*opened)->descriptor, file.name.c_str())) {
            file.outcome =
                number == 0 ? PutBackOutcome::toItsPlace : PutBackOutcome::underOtherName;
            return;
        }
    }
    refuse(file, SystemError{EEXIST}, SystemError{EEXIST}.text());
}

PutBackFile PutBack::bring(const JournalMove& move) {
    PutBackFile file = inTrash(move);
    if (!isBack(file.outcome)) {
        return file;
    }
    const std::string path = folderOf(move.path);
    ReturnFolders::Opened folder = folders_.open(path);
    const bool isMade = !folder && folder.error().code == ENOENT;
    if (isMade) {
        file.outcome = PutBackOutcome::withItsFolder;
        folder = folders_.openOrMake(path);
    }
    if (folder) {
        bringTo(**folder, move, file);
    } else {
        refuseFolder(file, folder.error());
    }
    if (isMade && !isBack(file.outcome)) {
        folders_.removeMade();
    }
    return file;
}

void PutBack::bringTo(const OpenFolder& folder, const JournalMove& move, PutBackFile& file) {
    const TrashPlace place{move.trashFolder, move.trashName};
    const std::string own = file.name;
    for (std::uint64_t number = 0; number < mostNames; ++number) {
        file.name = nameAtTry(own, number);
        const auto refusal = trash_->putBack(place, folder.descriptor, file.name.c_str());
        if (!refusal) {
            if (number != 0) {
                file.outcome = PutBackOutcome::underOtherName;
            }
            return;
        }
        if (refusal->kind == TrashRefusalKind::gone) {
            file.outcome = PutBackOutcome::lost;
            return;
        }
        if (refusal->kind != TrashRefusalKind::taken) {
            refuse(file, *refusal);
            return;
        }
    }
    refuse(file, SystemError{EEXIST}, SystemError{EEXIST}.text());
}

/// Where a process ended before it could write that down, or another program put it back. Looks at
/// the names that it would have got, up to the first that nothing has.
bool PutBack::isBackAlready(const JournalMove& move) {
    const std::string folder = folderOf(move.path);
    const std::string own(nameOf(move.path));
    for (std::uint64_t number = 0; number < mostNames; ++number) {
        const auto now = fileSystem_.attributesAtPath((folder == "/" ? "" : folder) + '/' +
                                                      nameAtTry(own, number));
        if (!now) {
            return false;
        }
        if (isSameFile(move, *now)) {
            return true;
        }
    }
    return false;
}

/// Whether the volume of a Trash is mounted at its place. A volume is another device than the
/// folder it is mounted in.
bool PutBack::isAttached(const std::string& trash) {
    const std::string top = topOf(trash);
    if (top.empty() || top == "/" || fileSystem_.attributesAtPath(trash)) {
        return true;
    }
    const auto mounted = fileSystem_.attributesAtPath(top);
    const auto above = fileSystem_.attributesAtPath(folderOf(top));
    return mounted && above && mounted->identity.device != above->identity.device;
}

}  // namespace tarvin
