#include "report/display.h"
#include "report/result_writer.h"
#include "report/value_texts.h"
#include "scan/category.h"
#include "scan/texts.h"
#include "text/shown_name.h"

#include <string>
#include <string_view>

namespace tarvin {

namespace {

/// What all parts of one report share.
struct TextStyle {
    bool isColored = false;
    bool hasMarks = false;
};

void writeHeading(std::string_view text, bool isColored, Output& output) {
    output.append(isColored ? bold : "");
    output.append(text);
    output.append(isColored ? plain : "");
    output.append("\n");
}

void writeSet(const Set& set, TextStyle style, Output& output) {
    if (set.files().empty()) {
        return;  // all of its files were moved or excluded
    }
    output.append("    ");
    writeHeading(set.nameOfSet() + "  " +
                     getFormattedStringForSize(set.files().front()->fileSize()) + " each",
                 style.isColored, output);
    std::string path;
    for (const std::shared_ptr<File>& file : set.files()) {
        path.clear();
        file->appendFilePath(path);
        output.append("      ");
        if (style.hasMarks) {
            output.append(file->state() == CheckState::off ? "[ ] " : "[x] ");
        }
        output.append(shownName(path));
        output.append("\n");
    }
}

void writeExtension(const Extensions& extension, TextStyle style, Output& output) {
    output.append("  ");
    output.append(shownName(extension.name()));
    output.append("\n");
    for (const std::shared_ptr<Set>& set : extension.sets()) {
        writeSet(*set, style, output);
    }
}

void writeCategory(const ScanReport::CategoryReport& category, TextStyle style, Output& output) {
    if (category.result->extensionCount() == 0) {
        return;
    }
    writeHeading(categoryName(category.category), style.isColored, output);
    for (const std::shared_ptr<Extensions>& extension : category.result->extensions()) {
        writeExtension(*extension, style, output);
    }
    output.append("\n");
}

/// The sums of the sets, or why there are none.
std::string verdict(const ScanReport& report) {
    if (report.totalSets() > 0) {
        return counted(report.totalFiles(), "duplicate file") + " in " +
               counted(report.totalSets(), "set") + ". " +
               getFormattedStringForSize(report.reclaimable()) + " can be regained.\n";
    }
    if (report.stopped) {
        return "No duplicates found so far.\n";
    }
    return report.collected() == 0 ? std::string(noDuplicatesText()) + '\n'
                                   : "No duplicates found.\n";
}

void writeSummary(const ScanReport& report, Output& output) {
    if (report.hasMarks && report.totalSets() > 0) {
        output.append("Files marked [x] may be moved to the Trash, those marked [ ] stay.\n");
    }
    if (report.stopped) {
        output.append("Scan stopped early; the result is incomplete.\n");
    }
    output.append(verdict(report));
    output.append(counted(report.stopped ? report.collected() : report.compared(), "file"));
    output.append(report.stopped ? " collected. " : " compared. ");
    output.append(getTimeFormStringForInterval(report.elapsedSeconds));
    output.append("\n");
}

}  // namespace

void writeText(const ScanReport& report, Output& output) {
    const TextStyle style{.isColored = displayOf(output.descriptor()).isColored,
                          .hasMarks = report.hasMarks};
    for (const ScanReport::CategoryReport& category : report.categories) {
        writeCategory(category, style, output);
    }
    writeSummary(report, output);
}

}  // namespace tarvin
