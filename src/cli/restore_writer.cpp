#include "cli/restore_writer.h"

#include "cli/json_entries.h"
#include "report/value_texts.h"
#include "scan/texts.h"
#include "text/shown_name.h"
#include "text/utf8.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace tarvin {

namespace {

constexpr std::string_view neverCleanedText = "Nothing has been cleaned up yet.";

std::string putBackPathOf(const PutBackFile& file) {
    return file.path.substr(0, file.path.rfind('/') + 1) + file.name;
}

/// `cleanUp` is nullopt for the last one.
std::string sentenceFor(NothingToPutBack reason, std::optional<CleanUpId> cleanUp) {
    switch (reason) {
        case NothingToPutBack::neverCleaned:
            return std::string(neverCleanedText);
        case NothingToPutBack::allBack:
            return (cleanUp ? "Clean-up " + std::to_string(*cleanUp) : "The last clean-up") +
                   " has been put back already.";
        case NothingToPutBack::noneInTrash:
            break;
    }
    return "Its files are no longer in the Trash.";
}

std::string_view wordFor(NothingToPutBack reason) {
    switch (reason) {
        case NothingToPutBack::neverCleaned:
            return "neverCleaned";
        case NothingToPutBack::allBack:
            return "allBack";
        case NothingToPutBack::noneInTrash:
            break;
    }
    return "noneInTrash";
}

/// Each file that was or would be put back, and the sums. The others are reported on standard
/// error.
class RestoreTextWriter final : public RestoreWriter {
 public:
    RestoreTextWriter(const RestoreSubject& subject, Output& output)
        : dryRun_(subject.dryRun), cleanUp_(subject.cleanUp), output_(output) {}

    void begin() override {}

    void file(const PutBackFile& file) override {
        if (!isBack(file.outcome)) {
            return;
        }
        output_.append(dryRun_ ? "Would put back: " : "Put back: ");
        output_.append(shownName(file.path));
        if (file.outcome == PutBackOutcome::underOtherName) {
            output_.append(dryRun_ ? ", to be named " : ", now named ");
            output_.append(shownName(file.name));
        } else if (file.outcome == PutBackOutcome::withItsFolder) {
            output_.append(dryRun_ ? ", its folder to be made again" : ", its folder made again");
        }
        output_.append("\n");
    }

    void end(const RestoreSummary& summary) override {
        if (summary.stopped) {
            output_.append("Stopped early; the remaining files were not put back.\n");
        }
        output_.append(dryRun_ ? "Files To Put Back: " : "Files Put Back: ");
        output_.appendNumber(summary.files);
        output_.append("\nSize: ");
        output_.append(getFormattedStringForSize(summary.bytes));
        output_.append(dryRun_ ? "\nDry run: nothing was put back.\n" : "\n");
    }

    void nothing(NothingToPutBack reason) override {
        output_.append("There is nothing to put back.\n");
        output_.append(sentenceFor(reason, cleanUp_));
        output_.append("\n");
    }

 private:
    const bool dryRun_;
    const std::optional<CleanUpId> cleanUp_;
    Output& output_;
};

class RestoreJsonWriter final : public RestoreWriter {
 public:
    RestoreJsonWriter(const RestoreSubject& subject, Output& output)
        : subject_(subject), output_(output), entries_(output) {}

    void begin() override {
        output_.append(subject_.dryRun ? "{\n  \"dryRun\": true,\n" : "{\n  \"dryRun\": false,\n");
        output_.append("  \"cleanUp\": ");
        output_.append(subject_.cleanUp ? std::to_string(*subject_.cleanUp) : "null");
        output_.append(",\n  \"files\": [");
    }

    void file(const PutBackFile& file) override {
        nlohmann::ordered_json entry;
        addPath(entry, "filePath", file.path);
        entry["fileSize"] = file.size;
        entry["outcome"] = putBackWord(file.outcome);
        if (!isBack(file.outcome)) {
            entry["reason"] = withBadBytesReplaced(reasonFor(file));
        } else if (file.outcome == PutBackOutcome::underOtherName) {
            addPath(entry, "putBackPath", putBackPathOf(file));
        }
        entries_.add(entry);
    }

    void end(const RestoreSummary& summary) override { endWith(summary, ""); }

    void nothing(NothingToPutBack reason) override {
        endWith({}, ",\n  \"nothingToPutBack\": \"" + std::string(wordFor(reason)) + '"');
    }

 private:
    void endWith(const RestoreSummary& summary, std::string_view last) {
        entries_.close();
        output_.append(",\n  \"putBackFilesCount\": ");
        output_.appendNumber(summary.files);
        output_.append(",\n  \"putBackFilesSize\": ");
        output_.appendNumber(summary.bytes);
        output_.append(",\n  \"notPutBackFilesCount\": ");
        output_.appendNumber(summary.notFiles);
        output_.append(summary.stopped ? ",\n  \"stopped\": true" : ",\n  \"stopped\": false");
        output_.append(last);
        output_.append("\n}\n");
    }

    const RestoreSubject subject_;
    Output& output_;
    JsonEntries entries_;
};

void writeCleanUpsAsJson(const std::vector<KnownCleanUp>& cleanUps, Output& output) {
    output.append("{\n  \"cleanUps\": [");
    JsonEntries entries(output);
    for (const KnownCleanUp& known : cleanUps) {
        nlohmann::ordered_json entry;
        entry["cleanUp"] = known.summary.id;
        entry["date"] = isoDate(known.summary.begun);
        entry["movedFilesCount"] = known.summary.movedFiles;
        entry["movedFilesSize"] = known.summary.movedBytes;
        entry["putBackFilesCount"] = known.putBackFiles;
        entry["lostFilesCount"] = known.lostFiles;
        entries.add(entry);
    }
    entries.close();
    output.append("\n}\n");
}

std::string lineFor(const KnownCleanUp& known) {
    std::string line = localDate(known.summary.begun) + "  " +
                       counted(known.summary.movedFiles, "file") + " (" +
                       getFormattedStringForSize(known.summary.movedBytes) + ')';
    if (known.putBackFiles > 0) {
        line += ", " + std::to_string(known.putBackFiles) + " put back";
    }
    if (known.lostFiles > 0) {
        line += ", " + std::to_string(known.lostFiles) + " no longer in the Trash";
    }
    return line;
}

}  // namespace

std::unique_ptr<RestoreWriter> makeRestoreWriter(ResultFormat format, const RestoreSubject& subject,
                                                 Output& output) {
    if (format == ResultFormat::json) {
        return std::make_unique<RestoreJsonWriter>(subject, output);
    }
    return std::make_unique<RestoreTextWriter>(subject, output);
}

void writeCleanUps(ResultFormat format, const std::vector<KnownCleanUp>& cleanUps, Output& output) {
    if (format == ResultFormat::json) {
        writeCleanUpsAsJson(cleanUps, output);
        return;
    }
    std::size_t width = 0;
    for (const KnownCleanUp& known : cleanUps) {
        width = std::max(width, std::to_string(known.summary.id).size());
    }
    for (const KnownCleanUp& known : cleanUps) {
        const std::string number = std::to_string(known.summary.id);
        output.append(std::string(width - number.size(), ' ') + number + "  " + lineFor(known) +
                      '\n');
    }
    if (cleanUps.empty()) {
        output.append(neverCleanedText);
        output.append("\n");
    }
}

std::string reasonFor(const PutBackFile& file) {
    switch (file.outcome) {
        case PutBackOutcome::toItsPlace:
        case PutBackOutcome::underOtherName:
        case PutBackOutcome::withItsFolder:
            return "put back";
        case PutBackOutcome::lost:
            return "no longer in the Trash";
        case PutBackOutcome::changed:
            return "file was changed in the Trash";
        case PutBackOutcome::notAttached:
            return "drive not attached";
        case PutBackOutcome::stopped:
            return "stopped before its turn";
        case PutBackOutcome::refused:
            break;
    }
    return file.reason;
}

}  // namespace tarvin
