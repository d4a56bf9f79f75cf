#pragma once

#include "cli/output_file.h"

namespace tarvin {

/// Ends the process with ExitStatus::stopped, without waiting for other threads. Only the temporary
/// file of `output` is removed. Any thread.
[[noreturn]] void quitAtOnce(const OutputFile& output);

}  // namespace tarvin
