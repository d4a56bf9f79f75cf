#include "scan/deletion_end.h"

#include "scan/clean_texts.h"

namespace tarvin {

namespace {

std::string cleanHistoryOf(const LifetimeTotals& totals) {
    return cleanedSoFarText(totals.alreadyDeletedCount, totals.alreadyDeletedSize);
}

}  // namespace

std::optional<std::string> cleanHistoryAtStart(const LifetimeTotals& totals) {
    return totals.alreadyDeletedCount == 0 ? std::nullopt : std::optional(cleanHistoryOf(totals));
}

DeletionEnd endDeletion(const RemovalResult& moved, const AddDeleted& addDeleted) {
    const LifetimeTotals totals = addDeleted(moved.deletedFilesCount, moved.deletedFilesSize);
    return {cleanHistoryOf(totals), duplicatesCleanedText(moved.deletedFilesCount),
            spaceRegainedText(moved.deletedFilesSize)};
}

}  // namespace tarvin
