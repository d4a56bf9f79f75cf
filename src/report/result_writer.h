#pragma once

#include "report/output.h"
#include "report/scan_report.h"

#include <cstdint>

namespace tarvin {

/// The value of the first key of the JSON, "version". A change that an older reader would
/// misunderstand makes it higher; a new key does not.
inline constexpr std::uint64_t jsonListVersion = 1;

enum class ResultFormat : std::uint8_t { text, json, csv };

// The report of a scan, set by set: a result of a million files is not copied. Each function
// appends the whole report to `output`, which keeps the first error and is not flushed. Any thread.

void writeReport(ResultFormat format, const ScanReport& report, Output& output);

/// Text: categories, extensions, sets, and one file per line, with a summary at the end. Names are
/// written by shownName(). Headings are bold where there is colour. With marks, each path is
/// preceded by "[x]" if it is marked and by "[ ]" if it stays.
void writeText(const ScanReport& report, Output& output);

/// One JSON object with the version, the keys of the result tree, and dates in UTC. In a name that
/// is not valid UTF-8, U+FFFD replaces the invalid bytes, and another key has its exact bytes in
/// hexadecimal. Control and bidirectional characters are escaped. All five categories are always
/// present. With marks, a file that is not marked has the last key "keep", which is true. Ends with
/// a newline.
void writeJson(const ScanReport& report, Output& output);

/// CSV (RFC 4180): a row of headings, then one row per file with the number of its set, counted
/// from 1 over the whole output. The last column has the exact bytes of a path in hexadecimal if
/// the path is not valid UTF-8 or, on a terminal, not safe to print. Texts are written by
/// csvField(). Dates are in UTC, empty if unknown. With marks there is another last column, which
/// is "true" for a file that is not marked and empty for the others.
void writeCsv(const ScanReport& report, Output& output);

}  // namespace tarvin
