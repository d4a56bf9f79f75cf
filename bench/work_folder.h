#pragma once

#include <string>

namespace tarvin::bench {

/// A temporary folder, removed on destruction. Exits with status 1 if it cannot be made.
class WorkFolder final {
 public:
    /// In the folder `in`, which must exist.
    explicit WorkFolder(const std::string& in);
    WorkFolder(const WorkFolder&) = delete;
    WorkFolder& operator=(const WorkFolder&) = delete;
    ~WorkFolder();

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string pathOf(const std::string& name) const { return path_ + "/" + name; }

 private:
    std::string path_;
};

}  // namespace tarvin::bench
