#pragma once

#include "work_folder.h"

#include <string>

namespace tarvin::bench {

/// A home of its own for the product, so that neither settings nor totals nor running copies of the
/// person who measures are touched or counted: an empty one, with Desktop, Documents and Pictures.
/// Made before the application object; goes with the object.
class PrivateHome final {
 public:
    /// Sets HOME and the XDG folders of this process and its children to a new folder in `in`.
    explicit PrivateHome(const std::string& in);

 private:
    WorkFolder folder_;
};

}  // namespace tarvin::bench
