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

/// The pictures beside a page, by the names of their files.
using Pictures = std::map<std::string, PictureSize, std::less<>>;

/// The size that the head of a PNG file states; none if it is no such file.
[[nodiscard]] std::optional<PictureSize> sizeOfPng(std::string_view file);

/// Judges the page of help, which is written so that it is XML, too: that it is whole, that it
/// needs nothing from outside and runs nothing, that readers with any screen find their way in it,
/// and that the commands it shows are in the manual. A value; calls may come from any thread.
class HelpPageChecker final {
 public:
    /// `pictures` are those in the page's folder, `manual` is the source of the manual page.
    HelpPageChecker(Pictures pictures, std::string_view manual);

    /// Each answer is one complaint, most with the number of its line; none means that the page is
    /// in order. Of a page that is not well-formed, only that is told.
    [[nodiscard]] std::vector<std::string> breaches(const std::string& page) const;

 private:
    const Pictures pictures_;
    const std::string manual_;  // as it is read, without the marks of its format
};

}  // namespace tarvin
