#pragma once

#include "report/output.h"

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace tarvin {

/// Writes the elements of a JSON array, one a line, and its closing bracket. The opening bracket
/// is the caller's. One thread at a time.
class JsonEntries final {
 public:
    /// `output` must outlive this object.
    explicit JsonEntries(Output& output) : output_(output) {}

    void add(const nlohmann::ordered_json& entry);
    void close();

 private:
    Output& output_;
    bool isEmpty_ = true;
};

/// Adds the path under `key` and, if it is not valid UTF-8, its bytes in hexadecimal under the key
/// with "Bytes" behind it. Any thread.
void addPath(nlohmann::ordered_json& entry, const std::string& key, const std::string& path);

}  // namespace tarvin
