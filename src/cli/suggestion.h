#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// The one of `known` that was probably meant by `word`: one that begins with it, or the one that
/// the fewest slips of the keyboard lead to. A slip is a letter too many, too few, wrong or changed
/// over with the next; two are the most, one in words of up to four letters. Upper and lower case
/// and leading dashes do not count. Empty if nothing is near, or `word` itself is known. Pure; any
/// thread.
[[nodiscard]] std::string nearest(std::string_view word, const std::vector<std::string>& known);

/// "; did you mean '--format'?" for the end of a message; empty if nothing is near.
[[nodiscard]] std::string suggestionFor(std::string_view word,
                                        const std::vector<std::string>& known);

}  // namespace tarvin
