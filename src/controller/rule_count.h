#pragma once

#include "controller/rule_choice.h"
#include "controller/rule_lookup.h"
#include "model/marking_rule.h"
#include "platform/file_system.h"

#include <memory>
#include <optional>
#include <vector>

namespace tarvin {

/// What a chosen rule means for a list.
struct CountedRule {
    MarkingRule rule;  ///< with what is known of the folders
    MarkingOutcome outcome;
};

/// Finds the folders of a rule on disk and counts what the rule would mark, on background threads,
/// one rule at a time. Nothing waits for a volume that does not respond: a thread is left behind,
/// one for each of its folders (RuleLookup). Main thread only.
class RuleCount final {
 public:
    /// `fileSystem` must outlive every thread, so normally the process.
    explicit RuleCount(FileSystem& fileSystem)
        : lookup_(std::make_shared<RuleLookup>(fileSystem)) {}
    RuleCount(const RuleCount&) = delete;
    RuleCount& operator=(const RuleCount&) = delete;
    ~RuleCount() { abandon(); }

    /// Starts counting in `list`, which no thread may change until take() has returned a result or
    /// abandon() has returned; with nullptr only looks up the folders. Abandons an earlier count.
    void start(std::shared_ptr<const Modal> list, const RuleChoice& choice);
    /// The result, once; nullopt while there is none.
    [[nodiscard]] std::optional<CountedRule> take();
    /// Whether take() or takeLookedUp() will have something to return, unless a volume does not
    /// respond.
    [[nodiscard]] bool isRunning() const { return job_ != nullptr || lookup_->isAsking(); }
    /// The folders of the choices found or missed since the last call, also those that the rule
    /// does not need. A count does not wait for those.
    [[nodiscard]] std::vector<LookedUpFolder> takeLookedUp() { return lookup_->takeLookedUp(); }
    /// Ends a count, whose result is dropped. Afterwards its thread does not read the list. Takes
    /// about a millisecond at most.
    void abandon();

    /// The threads of all counts that have not ended, left behind or not. Any thread.
    [[nodiscard]] static int running();

 private:
    struct Job;

    const std::shared_ptr<RuleLookup> lookup_;
    std::shared_ptr<Job> job_;  // shared with its thread
};

}  // namespace tarvin
