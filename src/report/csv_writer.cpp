#include "report/csv_field.h"
#include "report/result_writer.h"
#include "report/value_texts.h"
#include "scan/category.h"

#include <optional>
#include <string>

namespace tarvin {

namespace {

std::string dateField(std::optional<Timestamp> date) {
    return date ? isoDate(*date) : "";
}

/// The columns that all rows of one extension share.
struct RowContext {
    Display display;
    std::string beginning;
    std::uint64_t setNumber = 0;
    bool hasMarks = false;
};

void writeFile(const File& file, const RowContext& context, Output& output) {
    output.append(context.beginning);
    output.appendNumber(context.setNumber);
    output.append(",");
    output.appendNumber(static_cast<std::uint64_t>(file.index()));
    output.append(",");
    output.appendNumber(file.fileSize());
    output.append(",");
    output.append(dateField(file.fileModificationDate()));
    output.append(",");
    output.append(dateField(file.fileCreationDate()));
    output.append(",");
    output.append(csvPath(file.filePath(), context.display));
    if (context.hasMarks) {
        output.append(file.state() == CheckState::off ? ",true" : ",");
    }
    output.append("\r\n");
}

/// The category and extension columns, with a trailing comma.
std::string beginningOf(Category category, const Extensions& extension, Display display) {
    std::string beginning(categoryName(category));
    beginning += ',';
    beginning += csvName(extension.name(), display);
    return beginning += ',';
}

}  // namespace

void writeCsv(const ScanReport& report, Output& output) {
    output.append("category,extension,set,index,size,modified,created,path,path_bytes");
    output.append(report.hasMarks ? ",keep\r\n" : "\r\n");
    RowContext context;
    context.display = displayOf(output.descriptor());
    context.hasMarks = report.hasMarks;
    for (const ScanReport::CategoryReport& category : report.categories) {
        for (const std::shared_ptr<Extensions>& extension : category.result->extensions()) {
            context.beginning = beginningOf(category.category, *extension, context.display);
            for (const std::shared_ptr<Set>& set : extension->sets()) {
                ++context.setNumber;
                for (const std::shared_ptr<File>& file : set->files()) {
                    writeFile(*file, context, output);
                }
            }
        }
    }
}

}  // namespace tarvin
