#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tarvin {

/// Why a pattern is invalid.
enum class GlobError : std::uint8_t { empty, openBracket, danglingBackslash, reversedRange };

/// The reason for a message: "'[' without ']'".
[[nodiscard]] std::string_view reasonOf(GlobError error);

/// A pattern for a name: "*" is any text, "?" one character, "[a-z_]" one of these, "[!a-z]" or
/// "[^a-z]" any other one, and a backslash takes away the meaning of the next character. A byte
/// that is not UTF-8 is one character. Upper and lower case differ; a period is a character like
/// all others. Immutable. Any thread.
class Glob final {
 public:
    [[nodiscard]] static std::variant<Glob, GlobError> parse(std::string_view pattern);

    /// Whether the pattern matches the whole of `name`. The time is at most proportional to the
    /// product of both lengths, whatever the pattern.
    [[nodiscard]] bool matches(std::string_view name) const;

 private:
    struct Range {
        char32_t first;
        char32_t last;
    };

    enum class Kind : std::uint8_t { character, anyCharacter, anyText, oneOf, noneOf };

    struct Step {
        Kind kind = Kind::character;
        char32_t character = 0;
        std::vector<Range> ranges{};  // of oneOf and noneOf
    };

    class Parser;

    Glob() = default;
    [[nodiscard]] static bool accepts(const Step& step, char32_t character);

    std::vector<Step> steps_;
};

}  // namespace tarvin
