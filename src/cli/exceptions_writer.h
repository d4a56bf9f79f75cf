#pragma once

#include "platform/platform.h"
#include "report/output.h"
#include "report/result_writer.h"

#include <string>
#include <vector>

namespace tarvin {

/// Appends the exceptions list to `output`, which keeps the first error and is not flushed. Text
/// has one path a line, by shownName(). JSON and CSV also have the presence of each file, which is
/// tested; this blocks while a volume does not respond. Paths are written as by writeJson() and
/// writeCsv(). Any thread.
void writeExceptions(ResultFormat format, const std::vector<std::string>& paths, Platform& platform,
                     Output& output);

}  // namespace tarvin
