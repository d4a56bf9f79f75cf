#pragma once

#include "text/utf8.h"

#include <string>
#include <string_view>

namespace tarvin {

// Names on a terminal, where a name that somebody else has chosen must neither break a line in two,
// nor move the cursor, nor turn the reading direction round. All pure; any thread.

/// The name as it is, or, if it holds something that is not harmless or not UTF-8, in the shell's
/// notation $'...', which stands for exactly these bytes: "$'/tmp/two\nlines'". Names that would
/// look like that notation, or like nothing, are quoted too.
[[nodiscard]] std::string shownName(std::string_view name);

/// The name in quotation marks, for a message: '/tmp/a', or as shownName() writes it, which also
/// serves for a name with an apostrophe.
[[nodiscard]] std::string quotedName(std::string_view name);

/// The text with U+FFFD for each character that is not harmless and for each bad byte.
[[nodiscard]] std::string withHarmfulReplaced(std::string_view text);

/// Whether the character neither breaks the line nor steers the terminal, and is UTF-8.
[[nodiscard]] bool isHarmless(const Utf8Character& character);

/// The text with a question mark for each character that is not harmless and for each bad byte.
[[nodiscard]] std::string printable(std::string_view text);

}  // namespace tarvin
