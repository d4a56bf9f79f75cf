#include "interface/enabled_together.h"

#include <QWidget>

namespace tarvin {

void setEnabledTogether(const std::vector<std::pair<QWidget*, std::optional<bool>>>& controls) {
    for (const bool enabled : {true, false}) {
        for (const auto& [control, state] : controls) {
            if (state == enabled) {
                control->setEnabled(enabled);
            }
        }
    }
}

}  // namespace tarvin
