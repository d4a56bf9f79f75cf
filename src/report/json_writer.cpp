#include "report/json_text.h"
#include "report/result_writer.h"
#include "report/value_texts.h"
#include "scan/category.h"
#include "text/hexadecimal.h"
#include "text/utf8.h"

#include <nlohmann/json.hpp>

#include <array>
#include <charconv>
#include <optional>
#include <string>
#include <string_view>

namespace tarvin {

namespace {

using Json = nlohmann::json;

/// `text` must be UTF-8.
std::string quoted(std::string text) {
    return harmlessJson(Json(std::move(text)).dump());
}

class Separator final {
 public:
    Separator(Output& output, std::string_view text) : output_(output), text_(text) {}

    void next() {
        output_.append(isFirst_ ? std::string_view() : text_);
        isFirst_ = false;
    }

 private:
    Output& output_;
    std::string_view text_;
    bool isFirst_ = true;
};

/// `"key": "name"` and, if the name is not UTF-8, its exact bytes under the other key.
void writeName(std::string_view key, std::string_view bytesKey, const std::string& name,
               Output& output) {
    output.append(key);
    if (isValidUtf8(name)) {
        output.append(quoted(name));
        return;
    }
    output.append(quoted(withBadBytesReplaced(name)));
    output.append(bytesKey);
    output.append(quoted(hexadecimal(name)));
}

void writeNumber(std::string_view key, std::uint64_t number, Output& output) {
    output.append(key);
    output.appendNumber(number);
}

void writeDate(std::string_view key, std::optional<Timestamp> date, Output& output) {
    output.append(key);
    output.append(date ? quoted(isoDate(*date)) : "null");
}

void writeFile(const File& file, bool hasMarks, std::string& path, Output& output) {
    path.clear();
    file.appendFilePath(path);
    writeName(R"({"filePath": )", R"(, "filePathBytes": )", path, output);
    writeNumber(R"(, "fileSize": )", file.fileSize(), output);
    writeNumber(R"(, "index": )", static_cast<std::uint64_t>(file.index()), output);
    writeDate(R"(, "fileModificationDate": )", file.fileModificationDate(), output);
    writeDate(R"(, "fileCreationDate": )", file.fileCreationDate(), output);
    output.append(hasMarks && file.state() == CheckState::off ? R"(, "keep": true})" : "}");
}

void writeSet(const Set& set, bool hasMarks, Output& output) {
    writeNumber(R"({"totalFilesInSet": )", set.totalFilesInSet(), output);
    writeNumber(R"(, "totalFilesInSetSize": )", set.totalFilesInSetSize(), output);
    output.append(R"(, "files": [)");
    Separator separator(output, ",");
    std::string path;
    for (const std::shared_ptr<File>& file : set.files()) {
        separator.next();
        output.append("\n          ");
        writeFile(*file, hasMarks, path, output);
    }
    output.append("]}");
}

void writeExtension(const Extensions& extension, bool hasMarks, Output& output) {
    writeName(R"({"name": )", R"(, "nameBytes": )", extension.name(), output);
    writeNumber(R"(, "totalFilesInExtension": )", extension.totalFilesInExtension(), output);
    writeNumber(R"(, "totalFilesInExtensionSize": )", extension.totalFilesInExtensionSize(),
                output);
    output.append(R"(, "sets": [)");
    Separator separator(output, ",");
    for (const std::shared_ptr<Set>& set : extension.sets()) {
        separator.next();
        output.append("\n        ");
        writeSet(*set, hasMarks, output);
    }
    output.append("]}");
}

void writeCategory(const ScanReport::CategoryReport& category, bool hasMarks, Output& output) {
    output.append(R"({"category": )");
    output.append(quoted(std::string(categoryName(category.category))));
    writeNumber(R"(, "totalFiles": )", category.result->totalFiles(), output);
    writeNumber(R"(, "totalFilesSize": )", category.result->totalFilesSize(), output);
    output.append(R"(, "extensions": [)");
    Separator separator(output, ",");
    for (const std::shared_ptr<Extensions>& extension : category.result->extensions()) {
        separator.next();
        output.append("\n      ");
        writeExtension(*extension, hasMarks, output);
    }
    output.append("]}");
}

void writeCollected(const ScanReport& report, Output& output) {
    output.append(R"("collected": {)");
    Separator separator(output, ", ");
    for (const ScanReport::CategoryReport& category : report.categories) {
        separator.next();
        output.append(quoted(std::string(categoryName(category.category))));
        writeNumber(": ", category.collected, output);
    }
    output.append("}");
}

void writeUnreadable(const ScanReport& report, Output& output) {
    output.append(R"("unreadable": [)");
    Separator separator(output, ",");
    for (const ScanReport::NotRead& unreadable : report.unreadable) {
        separator.next();
        writeName("\n    {\"path\": ", R"(, "pathBytes": )", unreadable.path, output);
        output.append(R"(, "reason": )");
        output.append(quoted(unreadable.reason));
        output.append("}");
    }
    output.append("]");
}

/// With milliseconds, and a period in every locale.
void writeSeconds(double seconds, Output& output) {
    std::array<char, 400> digits{};
    const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), seconds,
                                          std::chars_format::fixed, 3)
                                .ptr;
    output.append({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

}  // namespace

void writeJson(const ScanReport& report, Output& output) {
    writeNumber("{\n  \"version\": ", jsonListVersion, output);
    writeNumber(",\n  \"totalFiles\": ", report.totalFiles(), output);
    writeNumber(",\n  \"totalFilesSize\": ", report.totalFilesSize(), output);
    output.append(report.stopped ? ",\n  \"stopped\": true" : ",\n  \"stopped\": false");
    output.append(",\n  \"elapsedSeconds\": ");
    writeSeconds(report.elapsedSeconds, output);
    writeNumber(",\n  \"reclaimable\": ", report.reclaimable(), output);
    output.append(",\n  ");
    writeUnreadable(report, output);
    output.append(",\n  ");
    writeCollected(report, output);
    output.append(",\n  \"categories\": [");
    Separator separator(output, ",");
    for (const ScanReport::CategoryReport& category : report.categories) {
        separator.next();
        output.append("\n    ");
        writeCategory(category, report.hasMarks, output);
    }
    output.append("]\n}\n");
}

}  // namespace tarvin
