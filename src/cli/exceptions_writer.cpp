#include "cli/exceptions_writer.h"

#include "cli/json_entries.h"
#include "report/csv_field.h"
#include "store/exception_presence.h"
#include "text/shown_name.h"

#include <nlohmann/json.hpp>

#include <cstddef>

namespace tarvin {

namespace {

using Paths = std::vector<std::string>;

void writeExceptionsAsText(const Paths& paths, Output& output) {
    for (const std::string& path : paths) {
        output.append(shownName(path));
        output.append("\n");
    }
}

void writeExceptionsAsJson(const Paths& paths, const std::vector<Presence>& presences,
                           Output& output) {
    output.append("{\n  \"exceptions\": [");
    JsonEntries entries(output);
    for (std::size_t index = 0; index < paths.size(); ++index) {
        nlohmann::ordered_json entry;
        addPath(entry, "path", paths[index]);
        entry["presence"] = std::string(presenceWord(presences[index]));
        entries.add(entry);
    }
    entries.close();
    output.append("\n}\n");
}

void writeExceptionsAsCsv(const Paths& paths, const std::vector<Presence>& presences,
                          Output& output) {
    const Display display = displayOf(output.descriptor());
    output.append("presence,path,path_bytes\r\n");
    for (std::size_t index = 0; index < paths.size(); ++index) {
        output.append(presenceWord(presences[index]));
        output.append(",");
        output.append(csvPath(paths[index], display));
        output.append("\r\n");
    }
}

}  // namespace

void writeExceptions(ResultFormat format, const std::vector<std::string>& paths, Platform& platform,
                     Output& output) {
    if (format == ResultFormat::text) {
        writeExceptionsAsText(paths, output);
        return;
    }
    const std::vector<Presence> presences = ExceptionPresence(platform).of(paths);
    if (format == ResultFormat::json) {
        writeExceptionsAsJson(paths, presences, output);
    } else {
        writeExceptionsAsCsv(paths, presences, output);
    }
}

}  // namespace tarvin
