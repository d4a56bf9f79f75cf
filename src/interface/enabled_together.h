#pragma once

#include <optional>
#include <utility>
#include <vector>

class QWidget;

namespace tarvin {

/// Enables and disables controls in one step, enabling first: then the focus can move from a button
/// that is disabled to its counterpart that is enabled in the same step. A control without a state
/// does not change. Main thread only.
void setEnabledTogether(const std::vector<std::pair<QWidget*, std::optional<bool>>>& controls);

}  // namespace tarvin
