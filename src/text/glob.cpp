#include "text/glob.h"

#include "text/utf8.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace tarvin {

namespace {

// Bytes that are not UTF-8 are numbered above all characters, so that they equal only themselves.
constexpr char32_t firstInvalidByte = 0x110000;

/// Removes the first character of `text`, which must not be empty, and returns it.
char32_t takeCharacter(std::string_view& text) {
    const auto byte = static_cast<unsigned char>(text.front());
    if (byte < 0x80) {
        text.remove_prefix(1);
        return byte;
    }
    const Utf8Character first = firstCharacter(text);
    text.remove_prefix(first.length);
    return first.valid ? first.codePoint : firstInvalidByte + byte;
}

}  // namespace

std::string_view reasonOf(GlobError error) {
    switch (error) {
        case GlobError::empty:
            return "empty pattern";
        case GlobError::openBracket:
            return "'[' without ']'";
        case GlobError::danglingBackslash:
            return "nothing after the last backslash";
        case GlobError::reversedRange:
            return "the first character of a range comes after the last";
    }
    return {};
}

/// Reads a pattern from front to back.
class Glob::Parser final {
 public:
    explicit Parser(std::string_view pattern) : rest_(pattern) {}

    std::optional<GlobError> readInto(std::vector<Step>& steps) {
        if (rest_.empty()) {
            return GlobError::empty;
        }
        while (!rest_.empty() && !error_) {
            const char32_t character = takeCharacter(rest_);
            if (character == '*') {
                if (steps.empty() || steps.back().kind != Kind::anyText) {
                    steps.push_back({Kind::anyText});
                }
            } else if (character == '?') {
                steps.push_back({Kind::anyCharacter});
            } else if (character == '[') {
                steps.push_back(bracket());
            } else {
                steps.push_back({Kind::character, afterBackslash(character)});
            }
        }
        return error_;
    }

 private:
    /// The character itself, or, if it is a backslash, the next one.
    char32_t afterBackslash(char32_t character) {
        if (character != '\\') {
            return character;
        }
        if (rest_.empty()) {
            error_ = GlobError::danglingBackslash;
            return 0;
        }
        return takeCharacter(rest_);
    }

    /// Reads the rest of "[...]". A "]" that comes first is a character.
    Step bracket() {
        Step step{Kind::oneOf};
        if (rest_.starts_with('!') || rest_.starts_with('^')) {
            step.kind = Kind::noneOf;
            rest_.remove_prefix(1);
        }
        while (!error_) {
            if (rest_.empty()) {
                error_ = GlobError::openBracket;
                break;
            }
            const char32_t read = takeCharacter(rest_);
            if (read == ']' && !step.ranges.empty()) {
                break;
            }
            step.ranges.push_back(range(afterBackslash(read)));
        }
        return step;
    }

    /// The range that begins with `first`: a single character if no "-" and another one follow.
    Range range(char32_t first) {
        if (rest_.size() < 2 || rest_[0] != '-' || rest_[1] == ']') {
            return {first, first};
        }
        rest_.remove_prefix(1);
        const char32_t last = afterBackslash(takeCharacter(rest_));
        if (last < first && !error_) {
            error_ = GlobError::reversedRange;
        }
        return {first, last};
    }

    std::string_view rest_;
    std::optional<GlobError> error_;
};

std::variant<Glob, GlobError> Glob::parse(std::string_view pattern) {
    Glob glob;
    if (const std::optional<GlobError> error = Parser(pattern).readInto(glob.steps_)) {
        return *error;
    }
    return glob;
}

/// After a mismatch only the last "*" takes one more character: what the earlier ones have matched
/// need not change, because the last can take any text.
bool Glob::matches(std::string_view name) const {
    std::size_t step = 0;
    std::optional<std::size_t> afterStar;
    std::string_view starRest;
    while (!name.empty()) {
        if (step < steps_.size() && steps_[step].kind == Kind::anyText) {
            afterStar = ++step;
            starRest = name;
            continue;
        }
        std::string_view rest = name;
        if (step < steps_.size() && accepts(steps_[step], takeCharacter(rest))) {
            name = rest;
            ++step;
            continue;
        }
        if (!afterStar) {
            return false;
        }
        takeCharacter(starRest);
        name = starRest;
        step = *afterStar;
    }
    if (step < steps_.size() && steps_[step].kind == Kind::anyText) {
        ++step;
    }
    return step == steps_.size();
}

bool Glob::accepts(const Step& step, char32_t character) {
    if (step.kind == Kind::character) {
        return character == step.character;
    }
    if (step.kind == Kind::anyCharacter) {
        return true;
    }
    const bool isListed =
        std::any_of(step.ranges.begin(), step.ranges.end(), [character](const Range& range) {
            return range.first <= character && character <= range.last;
        });
    return isListed == (step.kind == Kind::oneOf);
}

}  // namespace tarvin
