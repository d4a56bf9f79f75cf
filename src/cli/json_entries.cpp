#include "cli/json_entries.h"

#include "report/json_text.h"
#include "text/hexadecimal.h"
#include "text/utf8.h"

#include <nlohmann/json.hpp>

namespace tarvin {

void JsonEntries::add(const nlohmann::ordered_json& entry) {
    output_.append(isEmpty_ ? "\n    " : ",\n    ");
    output_.append(harmlessJson(entry.dump()));
    isEmpty_ = false;
}

void JsonEntries::close() {
    output_.append(isEmpty_ ? "]" : "\n  ]");
}

void addPath(nlohmann::ordered_json& entry, const std::string& key, const std::string& path) {
    const bool isUtf8 = isValidUtf8(path);
    entry[key] = isUtf8 ? path : withBadBytesReplaced(path);
    if (!isUtf8) {
        entry[key + "Bytes"] = hexadecimal(path);
    }
}

}  // namespace tarvin
