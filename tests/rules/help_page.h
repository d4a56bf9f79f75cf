#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// In pixels.
struct PictureSize {
    unsigned width = 0;
    unsigned height = 0;
};

/// The images of a page, by file name.
using Pictures = std::map<std::string, PictureSize, std::less<>>;

/// The image size in the header of a PNG file; nullopt if it is not one.
[[nodiscard]] std::optional<PictureSize> sizeOfPng(std::string_view file);

/// Checks the user guide, which must be well-formed XML: it fetches and runs nothing, its structure
/// is accessible on any screen, and its commands are in the manual page. Any thread.
class HelpPageChecker final {
 public:
    /// `pictures` are the images in the page's folder, `manual` is the source of the manual page.
    HelpPageChecker(Pictures pictures, std::string_view manual);

    /// Returns the breaches, most with a line number; empty if there are none. For a page that is
    /// not well-formed, returns only that.
    [[nodiscard]] std::vector<std::string> breaches(const std::string& page) const;

 private:
    const Pictures pictures_;
    const std::string manual_;  // without troff requests
};

}  // namespace tarvin
