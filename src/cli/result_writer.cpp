#include "cli/result_writer.h"

#include "cli/csv_writer.h"
#include "cli/json_writer.h"
#include "cli/text_writer.h"

namespace tarvin {

std::unique_ptr<ResultWriter> makeWriter(ResultFormat format) {
    switch (format) {
        case ResultFormat::json:
            return std::make_unique<JsonWriter>();
        case ResultFormat::csv:
            return std::make_unique<CsvWriter>();
        case ResultFormat::text:
            break;
    }
    return std::make_unique<TextWriter>();
}

}  // namespace tarvin
