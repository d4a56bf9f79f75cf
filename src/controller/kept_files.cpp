#include "controller/kept_files.h"

#include "controller/own_reasons.h"

#include <cerrno>

namespace tarvin {

void KeptFiles::add(const File& file, const MoveResult& result) {
    if (result.outcome != MoveOutcome::moved) {
        ++left_;
        keep(listedLeft_, file, result);
    } else if (!result.reason.empty()) {
        ++notBack_;
        keep(listedNotBack_, file, result);
    }
}

void KeptFiles::keep(std::vector<Kept>& files, const File& file, const MoveResult& result) {
    if (files.size() < FileReasons::maxListed) {
        files.push_back({file.filePath(), result});
    }
}

/// Selects the files as DeletionWalk does: it skips unmarked extensions and sets, but finishes the
/// current extension even if its removals left that unmarked.
void KeptFiles::addRest(const Modal& modal, const Set* last, const MoveResult& result) {
    bool isBehind = last == nullptr;
    for (const auto& extension : modal.extensionsArray()) {
        bool isWalked = extension->extensionState() != CheckState::off;
        for (const auto& set : extension->sets()) {
            const bool isNext = isBehind && isWalked && set->setsState() != CheckState::off;
            for (const auto& file : set->files()) {
                if (isNext && file->state() != CheckState::off) {
                    add(*file, result);
                }
            }
            if (set.get() == last) {
                isBehind = true;
                isWalked = true;
            }
        }
    }
}

QVector<FileReason> KeptFiles::reasons() const {
    QVector<FileReason> reasons;
    for (const std::vector<Kept>* files : {&listedNotBack_, &listedLeft_}) {
        for (const Kept& kept : *files) {
            if (static_cast<std::size_t>(reasons.size()) < FileReasons::maxListed) {
                reasons.push_back(fileReason(kept.path, reasonOf(kept.result)));
            }
        }
    }
    return reasons;
}

QString KeptFiles::reasonOf(const MoveResult& result) {
    switch (result.outcome) {
        case MoveOutcome::gone:
            return tr("Not there any more");
        case MoveOutcome::changed:
            return tr("Changed since the scan");
        case MoveOutcome::lastCopy:
            return result.reason.empty() ? tr("No other copy is left")
                                         : tr("Its copy on another volume may be the same file");
        case MoveOutcome::stopped:
            return tr("Stopped before its turn");
        case MoveOutcome::moved:
            return result.refusal == TrashRefusalKind::gone
                       ? refusalText(result)
                       : tr("In the Trash, not moved back: %1").arg(refusalText(result));
        case MoveOutcome::refused:
            break;
    }
    return refusalText(result);
}

QString KeptFiles::refusalText(const MoveResult& result) {
    if (result.isUnplanned) {
        return tr("Its move was not written down before");
    }
    if (result.refusal != TrashRefusalKind::system) {
        return OwnReasons::ofTrash(result.refusal, result.reason);
    }
    switch (result.error.code) {
        case 0:
            // An error of the journal, not of a file.
            return OwnReasons::ofStore(result.reason);
        case ENOSPC:
        case EDQUOT:
            return result.outcome == MoveOutcome::moved ? tr("The disk is full")
                                                        : tr("The Trash of this volume is full");
        case EACCES:
        case EPERM:
            return tr("Permission denied");
        default:
            return QString::fromStdString(result.reason);
    }
}

}  // namespace tarvin
