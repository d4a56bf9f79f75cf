#pragma once

#include "model/file.h"

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tarvin {

/// The files excluded from a scan, by exact path: no folders, no patterns, case-sensitive.
/// Immutable. Any thread.
class ExceptionFilter final {
 public:
    ExceptionFilter() = default;
    explicit ExceptionFilter(const std::vector<std::string>& paths);
    ExceptionFilter(ExceptionFilter&&) = default;
    ExceptionFilter& operator=(ExceptionFilter&&) = default;
    ExceptionFilter(const ExceptionFilter&) = delete;
    ExceptionFilter& operator=(const ExceptionFilter&) = delete;

    /// Whether the file `name` in `directory` is on the list.
    [[nodiscard]] bool contains(const Directory& directory, std::string_view name) const;

 private:
    std::unordered_set<std::string> paths_;
    // Checked first: few files have the name of an exception, so few paths have to be built.
    std::unordered_set<std::string_view> names_;  // views into paths_
};

}  // namespace tarvin
