#pragma once

#include <optional>
#include <utility>
#include <vector>

class QWidget;

namespace tarvin {

/// Enables and disables controls at one go: those that are to be enabled first. So the keyboard can
/// go from a button that is disabled to its counterpart, which is enabled in the same moment. A
/// control without a state stays as it is. Main thread.
void setEnabledTogether(const std::vector<std::pair<QWidget*, std::optional<bool>>>& controls);

}  // namespace tarvin
