#include "report/result_writer.h"

namespace tarvin {

void writeReport(ResultFormat format, const ScanReport& report, Output& output) {
    switch (format) {
        case ResultFormat::text:
            writeText(report, output);
            break;
        case ResultFormat::json:
            writeJson(report, output);
            break;
        case ResultFormat::csv:
            writeCsv(report, output);
            break;
    }
}

}  // namespace tarvin
