#pragma once

#include "cli/keep_options.h"
#include "report/result_writer.h"
#include "scan/scan_filter.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tarvin {

enum class ProgressWhen : std::uint8_t {
    automatic,  ///< when standard error is a terminal
    always,
    never
};

/// The options of a scan. Paths are as given, native bytes.
struct ScanOptions {
    std::vector<std::string> folders;    ///< and files
    std::vector<std::string> filesFrom;  ///< lists of more; "-" is standard input
    bool listIsNullTerminated = false;   ///< else each path in them ends with a newline
    ScanFilter filter;
    KeepOptions keep;
    ResultFormat format = ResultFormat::text;
    std::string output = "-";  ///< "-" is standard output
    bool useExceptions = true;
    std::optional<std::string> exceptionsFile;  ///< nullopt: the user's own list
    bool remembers = false;                     ///< uses the memory of earlier scans
    ProgressWhen progress = ProgressWhen::automatic;
};

/// Adds the options and the folders of a scan to a command, which stores into `options`; `options`
/// must outlive it.
void addScanOptions(CLI::App& command, ScanOptions& options);

}  // namespace tarvin
