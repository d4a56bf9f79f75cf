#pragma once

#include "model/marking_rule.h"
#include "platform/file_system.h"
#include "platform/result.h"

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tarvin {

/// The options that choose which file of each set stays. Paths are as given, native bytes.
struct KeepOptions {
    std::optional<KeepRule> keep;  ///< nullopt: not given
    std::vector<std::string> preferred;
    std::vector<std::string> protectedFolders;
};

/// Adds "--keep", "--prefer" and "--protect" to a command, which stores into `options`; `options`
/// must outlive it.
void addKeepOptions(CLI::App& command, KeepOptions& options);

/// The rule for a scan of `locations`, given by paths as on the command line; nullopt if no option
/// is given. Preferred folders without a rule imply KeepRule::preferred. The error is the text of
/// wrong usage: options that do not fit together, or a folder that cannot be listed. Main thread
/// only.
[[nodiscard]] Result<std::optional<MarkingRule>, std::string> markingRuleOf(
    const KeepOptions& options, const std::vector<std::string>& locations, FileSystem& fileSystem);

}  // namespace tarvin
