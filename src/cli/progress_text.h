#pragma once

#include "scan/progress_mailbox.h"

#include <cstddef>
#include <string>

namespace tarvin {

/// The line that shows the progress, at most `columns` wide: "Collecting Files: photo.jpg
/// 00:00:02" or "[##########          ] 50%  photo.jpg  1.05 MB  00:00:12". Where it is narrow the
/// file's name is cut first. Harmless on a terminal whatever the file is called; widths are as most
/// terminals have them. Any thread.
[[nodiscard]] std::string progressText(const Progress& progress, std::size_t columns);

}  // namespace tarvin
