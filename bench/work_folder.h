#pragma once

#include <string>

namespace tarvin::bench {

/// A new folder that is gone with the object. Ends the program if it cannot be made.
class WorkFolder final {
 public:
    /// In the folder `in`, which has to be there.
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
