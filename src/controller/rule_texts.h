#pragma once

#include "model/marking_rule.h"

#include <QCoreApplication>
#include <QString>
#include <cstdint>

namespace tarvin {

/// The changing texts of "Mark by Rule…". Main thread only.
class RuleTexts final {
    Q_DECLARE_TR_FUNCTIONS(tarvin::RuleTexts)

 public:
    /// "1,406 files (157.46 MB) will be marked in 812 sets."
    [[nodiscard]] static QString outcome(const MarkingOutcome& outcome);
    /// "3 sets have no copy that may be marked. Earlier marks are replaced."; either part may be
    /// missing.
    [[nodiscard]] static QString blocked(std::uint64_t sets, bool replacesMarks);
    /// While the outcome is unknown.
    [[nodiscard]] static QString counting() { return tr("Counting…"); }
    /// The rule needs a folder.
    [[nodiscard]] static QString noFolder() { return tr("No preferred folder yet."); }
    /// The tool tip of a folder that does not exist.
    [[nodiscard]] static QString gone(const QString& path) {
        return tr("%1 (not there now)").arg(path);
    }
};

}  // namespace tarvin
