#pragma once

#include "scan/progress_mailbox.h"

#include <cstddef>
#include <string>

namespace tarvin {

/// The progress in one line of at most `columns` columns: "Collecting Files: photo.jpg
/// 00:00:02" or "[##########          ] 50%  photo.jpg  1.05 MB  00:00:12". The file
/// name is truncated first. Safe to print; column widths are those of most terminals. Any thread.
[[nodiscard]] std::string progressText(const Progress& progress, std::size_t columns);

}  // namespace tarvin
