#include "model/marking_rule.h"

#include "model/each_set.h"
#include "model/folder_ranks.h"

#include <cstddef>
#include <memory>
#include <optional>

namespace tarvin {

namespace {

std::size_t pathLengthOf(const File& file) {
    return file.directory()->pathLength + 1 + file.fileName().size();
}

/// Applies a rule to one set after the other.
class SetMarker final {
 public:
    explicit SetMarker(const MarkingRule& rule) : keep_(rule.keep) {
        if (keep_ == KeepRule::preferred) {
            std::uint32_t position = 0;
            for (const RuleFolder& folder : rule.preferred) {
                for (const std::string& path : folder.paths) {
                    ranks_.prefer(path, position);
                }
                for (const FileIdentity& identity : folder.identities) {
                    ranks_.prefer(identity, position);
                }
                ++position;
            }
        }
        for (const RuleFolder& folder : rule.protectedFolders) {
            for (const std::string& path : folder.paths) {
                ranks_.protect(path);
            }
            for (const FileIdentity& identity : folder.identities) {
                ranks_.protect(identity);
            }
        }
    }

    /// The marks of the set's files, valid until the next call. Adds to the outcome.
    const std::vector<CheckState>& marksOf(const Set& set) {
        const std::vector<std::shared_ptr<File>>& files = set.files();
        const std::size_t staying = stayingIn(files);
        marks_.assign(files.size(), CheckState::off);
        std::uint64_t marked = 0;
        for (std::size_t position = 0; position < files.size(); ++position) {
            const File& file = *files[position];
            if (position != staying && !ranks_.rankOf(*file.directory()).isProtected) {
                marks_[position] = CheckState::on;
                outcome_.bytes += file.fileSize();
                ++marked;
            }
        }
        outcome_.files += marked;
        outcome_.sets += std::uint64_t{marked > 0};
        outcome_.blocked += std::uint64_t{marked == 0 && files.size() > 1};
        return marks_;
    }

    [[nodiscard]] const MarkingOutcome& outcome() const { return outcome_; }

 private:
    std::size_t stayingIn(const std::vector<std::shared_ptr<File>>& files) {
        std::size_t best = 0;
        if (keep_ == KeepRule::first) {
            return best;
        }
        for (std::size_t position = 1; position < files.size(); ++position) {
            if (isBetter(*files[position], *files[best])) {
                best = position;
            }
        }
        return best;
    }

    /// Never true of equal candidates, so that the earlier one stays.
    bool isBetter(const File& file, const File& best) {
        switch (keep_) {
            case KeepRule::newest:
                // No date is less than every date.
                return file.fileModificationDate() > best.fileModificationDate();
            case KeepRule::oldest: {
                const std::optional<Timestamp> date = file.fileModificationDate();
                const std::optional<Timestamp> bestDate = best.fileModificationDate();
                return date && (!bestDate || *date < *bestDate);
            }
            case KeepRule::shortest:
                return pathLengthOf(file) < pathLengthOf(best);
            case KeepRule::longest:
                return pathLengthOf(file) > pathLengthOf(best);
            case KeepRule::preferred:
                return ranks_.rankOf(*file.directory()).preference <
                       ranks_.rankOf(*best.directory()).preference;
            case KeepRule::first:
                break;
        }
        return false;
    }

    KeepRule keep_;
    FolderRanks ranks_;
    MarkingOutcome outcome_;
    std::vector<CheckState> marks_;
};

}  // namespace

MarkingOutcome markByRule(Modal& modal, const MarkingRule& rule) {
    SetMarker marker(rule);
    modal.changeMarksOfSets([&marker](Set& set) { set.setMarks(marker.marksOf(set)); });
    return marker.outcome();
}

MarkingOutcome countByRule(const Modal& modal, const MarkingRule& rule,
                           const std::atomic<bool>* stop) {
    SetMarker marker(rule);
    for (const std::shared_ptr<Extensions>& extension : modal.extensions()) {
        const bool isWhole = forEachSet(extension->sets(), [&](const Set& set) {
            if (stop != nullptr && stop->load(std::memory_order_relaxed)) {
                return false;
            }
            marker.marksOf(set);
            return true;
        });
        if (!isWhole) {
            break;
        }
    }
    return marker.outcome();
}

}  // namespace tarvin
