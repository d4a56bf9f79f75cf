#include "cli/clean_writer.h"

#include "cli/json_entries.h"
#include "report/csv_field.h"
#include "report/display.h"
#include "scan/texts.h"
#include "text/shown_name.h"
#include "text/utf8.h"

#include <nlohmann/json.hpp>

#include <string>

namespace tarvin {

namespace {

std::string_view wordFor(const std::optional<MoveResult>& result) {
    return result ? outcomeWord(result->outcome) : "planned";
}

/// The path of each file that was or would be moved, and the sums. Files that were not moved are
/// reported on standard error.
class CleanTextWriter final : public CleanWriter {
 public:
    CleanTextWriter(bool dryRun, Output& output) : dryRun_(dryRun), output_(output) {}

    void begin() override {}

    void file(const File& file, const std::optional<MoveResult>& result) override {
        if (result && result->outcome != MoveOutcome::moved) {
            return;
        }
        output_.append(dryRun_ ? "Would move to the Trash: " : "Moved to the Trash: ");
        output_.append(shownName(file.filePath()));
        output_.append("\n");
    }

    void end(const CleanSummary& summary) override {
        if (summary.stopped) {
            output_.append("Stopped early; the remaining files were not moved.\n");
        }
        if (dryRun_) {
            output_.append(markedFilesText(summary.deletedCount));
            output_.append("\n");
            output_.append(markedSizeText(summary.deletedSize));
            output_.append("\nDry run: nothing was moved.\n");
            return;
        }
        output_.append(duplicatesCleanedText(summary.deletedCount));
        output_.append("\n");
        output_.append(spaceRegainedText(summary.deletedSize));
        output_.append("\n");
    }

 private:
    const bool dryRun_;
    Output& output_;
};

class CleanJsonWriter final : public CleanWriter {
 public:
    CleanJsonWriter(bool dryRun, Output& output)
        : dryRun_(dryRun), output_(output), entries_(output) {}

    void begin() override {
        output_.append(dryRun_ ? "{\n  \"dryRun\": true,\n" : "{\n  \"dryRun\": false,\n");
        output_.append("  \"files\": [");
    }

    void file(const File& file, const std::optional<MoveResult>& result) override {
        nlohmann::ordered_json entry;
        addPath(entry, "filePath", file.filePath());
        entry["fileSize"] = file.fileSize();
        entry["outcome"] = wordFor(result);
        if (result && (result->outcome != MoveOutcome::moved || !result->reason.empty())) {
            entry["reason"] = withBadBytesReplaced(reasonFor(*result));
        }
        entries_.add(entry);
    }

    void end(const CleanSummary& summary) override {
        entries_.close();
        output_.append(",\n  \"deletedFilesCount\": ");
        output_.appendNumber(summary.deletedCount);
        output_.append(",\n  \"deletedFilesSize\": ");
        output_.appendNumber(summary.deletedSize);
        output_.append(summary.stopped ? ",\n  \"stopped\": true\n}\n"
                                       : ",\n  \"stopped\": false\n}\n");
    }

 private:
    const bool dryRun_;
    Output& output_;
    JsonEntries entries_;
};

class CleanCsvWriter final : public CleanWriter {
 public:
    CleanCsvWriter(Display display, Output& output) : display_(display), output_(output) {}

    void begin() override { output_.append("outcome,size,path,path_bytes\r\n"); }

    void file(const File& file, const std::optional<MoveResult>& result) override {
        output_.append(wordFor(result));
        output_.append(",");
        output_.appendNumber(file.fileSize());
        output_.append(",");
        output_.append(csvPath(file.filePath(), display_));
        output_.append("\r\n");
    }

    void end(const CleanSummary&) override {}

 private:
    const Display display_;
    Output& output_;
};

}  // namespace

std::unique_ptr<CleanWriter> makeCleanWriter(ResultFormat format, bool dryRun, Output& output) {
    switch (format) {
        case ResultFormat::json:
            return std::make_unique<CleanJsonWriter>(dryRun, output);
        case ResultFormat::csv:
            return std::make_unique<CleanCsvWriter>(displayOf(output.descriptor()), output);
        case ResultFormat::text:
            break;
    }
    return std::make_unique<CleanTextWriter>(dryRun, output);
}

std::string reasonFor(const MoveResult& result) {
    switch (result.outcome) {
        case MoveOutcome::moved:
            return result.reason.empty()
                       ? "moved to the Trash"
                       : "no unchanged copy is left, and the file could not be moved back: " +
                             result.reason;
        case MoveOutcome::gone:
            return "file no longer exists";
        case MoveOutcome::changed:
            return "file has changed since the scan";
        case MoveOutcome::lastCopy:
            return result.reason.empty() ? "no unchanged copy would be left" : result.reason;
        case MoveOutcome::stopped:
            return "stopped before its turn";
        case MoveOutcome::refused:
            break;
    }
    return result.reason;
}

}  // namespace tarvin
