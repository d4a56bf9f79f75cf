#pragma once

#include "model/file.h"

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace tarvin {

/// The files that a scan leaves out, by exact path: no folders, no patterns, no folding of case.
/// Never changes; any thread.
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
    // Looked at first: hardly any file shares its name with an exception, so that hardly ever a
    // path has to be put together.
    std::unordered_set<std::string_view> names_;  // views into paths_
};

}  // namespace tarvin
