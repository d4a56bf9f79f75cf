#pragma once

#include "model/file.h"

#include <functional>
#include <optional>

namespace tarvin {

/// What a model of a result needs while another thread changes the marks of its list. Until the
/// marks are released, it shows those that it showed before.
struct HeldMarks {
    /// Returns when the marks may be read: for what the model has not shown before. Not on any
    /// usual way, because it waits for the other thread.
    std::function<void()> wait;
    /// The state that everything will have, if it is the same. Shown by a model that is filled anew
    /// meanwhile.
    std::optional<CheckState> after{};
};

}  // namespace tarvin
