#pragma once

#include "text/utf8.h"

#include <string>
#include <string_view>

namespace tarvin {

// Untrusted names on a terminal: control and bidirectional characters must not break lines, move
// the cursor or reverse text. All pure; any thread.

/// The unchanged name or, if it has unsafe characters or is not valid UTF-8, the shell's notation
/// $'...' of exactly its bytes: "$'/tmp/two\nlines'". Empty names and names that
/// begin with $' are quoted, too.
[[nodiscard]] std::string shownName(std::string_view name);

/// The name in quotation marks, for a message: '/tmp/a', or as shownName() writes it, which also
/// serves for a name with an apostrophe.
[[nodiscard]] std::string quotedName(std::string_view name);

/// The text with U+FFFD for each unsafe character and each invalid byte.
[[nodiscard]] std::string withHarmfulReplaced(std::string_view text);

/// Whether the character is valid UTF-8 and neither a control nor a bidirectional character.
[[nodiscard]] bool isHarmless(const Utf8Character& character);

/// The text with a question mark for each unsafe character and each invalid byte.
[[nodiscard]] std::string printable(std::string_view text);

}  // namespace tarvin
