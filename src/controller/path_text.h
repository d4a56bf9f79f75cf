#pragma once

#include <QString>
#include <string_view>

namespace tarvin {

/// A path, or a part of one, as one line of text for the screen. U+FFFD replaces each byte that is
/// not UTF-8, control characters, newlines and bidirectional marks, with which a name could look
/// like another. Must not be converted back to a path. Any thread.
[[nodiscard]] QString textOfPath(std::string_view path);

/// The same for a file's name of which at most `maxCharacters` are shown: a longer one has "\u2026"
/// in its middle. Characters are those that are drawn as one. Requires at least 3. Any thread.
[[nodiscard]] QString shortTextOfName(std::string_view name, int maxCharacters);

}  // namespace tarvin
