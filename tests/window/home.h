#pragma once

#include "support/temporary_folder.h"
#include "window/child_process.h"

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

namespace tarvin {

/// A user's home with empty folders, settings and stored lists, and the instances of the program
/// started there.
class Home final {
 public:
    Home();
    /// In a temporary folder below `parent`.
    explicit Home(const std::filesystem::path& parent);

    [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }

    /// Starts this program instead of the one in the build folder.
    void setProgram(std::string path) { program_ = std::move(path); }

    /// Starts the program in the first of these languages that it has, as in "ja:en".
    void setLanguages(std::string languages) { languages_ = std::move(languages); }

    /// Starts the program.
    std::unique_ptr<ChildProcess> startProduct(const ChildProcess::Words& arguments = {});

 private:
    TemporaryFolder folder_;
    std::string program_;
    std::string languages_;
    int started_ = 0;
};

}  // namespace tarvin
