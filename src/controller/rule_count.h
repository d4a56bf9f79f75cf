#pragma once

#include "controller/rule_choice.h"
#include "model/marking_rule.h"
#include "platform/file_system.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarvin {

/// What a chosen rule means for a list.
struct CountedRule {
    MarkingRule rule;  ///< with the paths by which the scan names the folders
    MarkingOutcome outcome;
    std::vector<std::string> gone;  ///< folders that cannot be listed now
};

/// Finds the folders of a rule on disk and counts what the rule would mark, on a background thread,
/// one rule at a time. Nothing waits for a volume that does not respond: its thread is left behind.
/// Main thread only.
class RuleCount final {
 public:
    /// `fileSystem` must outlive every thread, so normally the process.
    explicit RuleCount(FileSystem& fileSystem) : fileSystem_(fileSystem) {}
    RuleCount(const RuleCount&) = delete;
    RuleCount& operator=(const RuleCount&) = delete;
    ~RuleCount() { abandon(); }

    /// Starts counting in `list`, which no thread may change until take() has returned a result or
    /// abandon() has returned. Abandons an earlier count.
    void start(std::shared_ptr<const Modal> list, const RuleChoice& choice);
    [[nodiscard]] bool isRunning() const { return job_ != nullptr; }
    /// The result, once; nullopt while there is none.
    [[nodiscard]] std::optional<CountedRule> take();
    /// Ends a count, whose result is dropped. Afterwards its thread does not read the list. Waits
    /// for a pass over the list, 0.1 s for 200,000 sets.
    void abandon();

    /// The threads of all counts that have not ended, left behind or not. Any thread.
    [[nodiscard]] static int running();

 private:
    struct Job;

    FileSystem& fileSystem_;
    std::shared_ptr<Job> job_;  // shared with its thread
};

}  // namespace tarvin
