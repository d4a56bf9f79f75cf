#pragma once

#include "model/modal.h"
#include "report/scan_report.h"
#include "scan/scan_run.h"

namespace tarvin {

/// The report of the sets of `list` with their marks, by category. `list` is a result of `scan`, of
/// all categories or of one; an extension of no category of the scan counts as "Other". Extensions
/// without sets are left out, and the totals are summed again. Shares the sets. Pure.
[[nodiscard]] ScanReport exportReport(const ScanRun& scan, const Modal& list);

}  // namespace tarvin
