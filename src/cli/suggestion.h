#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// The known word that was probably meant: one that begins with `word`, or the one with the
/// smallest edit distance. An edit inserts, deletes or replaces a letter, or swaps two neighbours;
/// at most two edits are accepted, one in words of up to four letters. Case and leading dashes are
/// ignored. Empty if no word is close, or `word` itself is known. Pure; any thread.
[[nodiscard]] std::string nearest(std::string_view word, const std::vector<std::string>& known);

/// "; did you mean '--format'?" for the end of a message; empty if no word is close.
[[nodiscard]] std::string suggestionFor(std::string_view word,
                                        const std::vector<std::string>& known);

}  // namespace tarvin
