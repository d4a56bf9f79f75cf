#pragma once

#include "support/temporary_folder.h"
#include "window/child_process.h"

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

namespace tarvin {

/// A person's home: folders, settings and stored lists, all empty, and the copies of the program
/// that they start.
class Home final {
 public:
    Home();
    /// In a folder of its own below `parent`.
    explicit Home(const std::filesystem::path& parent);

    [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }

    /// Another program to start than the one in the build's folder.
    void setProgram(std::string path) { program_ = std::move(path); }

    /// Starts the finished program.
    std::unique_ptr<ChildProcess> startProduct(const ChildProcess::Words& arguments = {});

 private:
    TemporaryFolder folder_;
    std::string program_;
    int started_ = 0;
};

}  // namespace tarvin
