#pragma once

#include "support/temporary_folder.h"
#include "window/child_process.h"

#include <filesystem>
#include <memory>
#include <string>

namespace tarvin {

/// A person's home: folders, settings and stored lists, all empty, and the copies of the program
/// that they start.
class Home final {
 public:
    Home();
    /// In a folder of its own below `parent`.
    explicit Home(const std::filesystem::path& parent);

    [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }

    /// Starts the finished program.
    std::unique_ptr<ChildProcess> startProduct(const ChildProcess::Words& arguments = {});

 private:
    TemporaryFolder folder_;
    int started_ = 0;
};

}  // namespace tarvin
