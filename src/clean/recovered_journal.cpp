#include "clean/recovered_journal.h"

#include "clean/recovery.h"

#include <string>
#include <utility>

namespace tarvin {

namespace {

LockFile turnsIn(const std::string& folder) {
    return LockFile(folder + "/clean-up.turn");
}

}  // namespace

std::variant<RecoveredJournal, StoreError> openRecovered(
    Platform& platform, DataFile& totals,
    const std::function<void(CleanUpJournal&)>& beforeRecovery) {
    const std::optional<std::string> folder = platform.applicationSupportFolder();
    if (!folder) {
        return StoreError{"", "there is no home folder to keep the journal in",
                          StoreError::Kind::passing};
    }
    auto journal = CleanUpJournal::open(*folder);
    if (auto* error = std::get_if<StoreError>(&journal)) {
        return std::move(*error);
    }
    RecoveredJournal opened{turnsIn(*folder), std::get<CleanUpJournal>(std::move(journal)),
                            platform.makeTrashMover()};
    if (beforeRecovery) {
        beforeRecovery(opened.journal);
    }
    static_cast<void>(recoverCleanUps(platform.fileSystem(), *opened.trash, opened.turns,
                                      opened.journal, totals));
    return opened;
}

std::optional<std::string> moveJournalAside(Platform& platform, const StoreError& error) {
    const std::optional<std::string> folder = platform.applicationSupportFolder();
    if (!folder || error.kind != StoreError::Kind::unusable) {
        return std::nullopt;
    }
    auto aside = CleanUpJournal::moveAside(*folder);
    auto* const path = std::get_if<std::string>(&aside);
    return path == nullptr ? std::nullopt : std::optional(std::move(*path));
}

bool hasJournal(Platform& platform) {
    const std::optional<std::string> folder = platform.applicationSupportFolder();
    return folder && CleanUpJournal::isIn(*folder);
}

std::optional<StoreError> recoverAtStart(Platform& platform, DataFile& totals) {
    const std::optional<std::string> folder = platform.applicationSupportFolder();
    if (!folder || !CleanUpJournal::isIn(*folder)) {
        return std::nullopt;
    }
    auto journal = CleanUpJournal::open(*folder);
    if (auto* error = std::get_if<StoreError>(&journal)) {
        return std::move(*error);
    }
    const std::unique_ptr<TrashMover> trash = platform.makeTrashMover();
    return recoverCleanUps(platform.fileSystem(), *trash, turnsIn(*folder),
                           std::get<CleanUpJournal>(journal), totals);
}

}  // namespace tarvin
