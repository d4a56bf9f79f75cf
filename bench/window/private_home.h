#pragma once

#include "work_folder.h"

#include <string>

namespace tarvin::bench {

/// A separate home for the product with empty folders Desktop, Documents and Pictures, so that the
/// settings, totals and running instances of the user are neither used nor changed. Create it
/// before the application object. Removed on destruction.
class PrivateHome final {
 public:
    /// Sets HOME and the XDG folders of this process and its children to a new folder in `in`.
    explicit PrivateHome(const std::string& in);

 private:
    WorkFolder folder_;
};

}  // namespace tarvin::bench
