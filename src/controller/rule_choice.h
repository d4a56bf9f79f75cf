#pragma once

#include "model/marking_rule.h"

#include <QSettings>
#include <string>
#include <vector>

namespace tarvin {

/// What the user has chosen in "Mark by Rule…". Paths are absolute, native bytes.
struct RuleChoice {
    KeepRule keep = KeepRule::first;
    std::vector<std::string> preferred{};  ///< best first; also while another rule is chosen
    std::vector<std::string> protectedFolders{};

    bool operator==(const RuleChoice&) const = default;

    /// Whether it says which file stays: the rule of preferred folders needs one.
    [[nodiscard]] bool isComplete() const {
        return keep != KeepRule::preferred || !preferred.empty();
    }
};

// The choice is kept for the next time in the settings, as a word and as lists of paths whose
// unusual bytes are percent-encoded. Main thread only.

/// The first found and no folders, if nothing is stored. Ignores an unknown word, and paths that
/// are not absolute.
[[nodiscard]] RuleChoice storedRuleChoice(const QSettings& settings);
void storeRuleChoice(QSettings& settings, const RuleChoice& choice);

}  // namespace tarvin
