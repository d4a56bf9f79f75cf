#include "cli/suggestion.h"

#include <algorithm>
#include <cstddef>

namespace tarvin {

namespace {

constexpr std::size_t minPrefix = 2;  // letters
constexpr std::size_t maxWord = 32;   // letters: our longest word and two edits

/// In lower case, without leading dashes.
std::string normalized(std::string_view word) {
    const std::size_t begin = std::min(word.find_first_not_of('-'), word.size());
    std::string letters(word.substr(begin));
    for (char& letter : letters) {
        const bool isCapital = letter >= 'A' && letter <= 'Z';
        letter = isCapital ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    return letters;
}

/// Edit distance with swaps of neighbours (optimal string alignment).
std::size_t editDistance(std::string_view one, std::string_view other) {
    // Distances of the last three prefixes of `one` to each prefix of `other`.
    std::vector<std::size_t> beforeLast;
    std::vector<std::size_t> last(other.size() + 1);
    for (std::size_t column = 0; column <= other.size(); ++column) {
        last[column] = column;
    }
    for (std::size_t row = 1; row <= one.size(); ++row) {
        std::vector<std::size_t> current(other.size() + 1, row);
        for (std::size_t column = 1; column <= other.size(); ++column) {
            const std::size_t replaced =
                last[column - 1] + (one[row - 1] == other[column - 1] ? 0 : 1);
            current[column] = std::min({last[column] + 1, current[column - 1] + 1, replaced});
            if (row > 1 && column > 1 && one[row - 1] == other[column - 2] &&
                one[row - 2] == other[column - 1]) {
                current[column] = std::min(current[column], beforeLast[column - 2] + 1);
            }
        }
        beforeLast = std::move(last);
        last = std::move(current);
    }
    return last.back();
}

std::size_t maxEdits(std::size_t letters) {
    return letters <= 4 ? 1 : 2;
}

}  // namespace

std::string nearest(std::string_view word, const std::vector<std::string>& known) {
    const std::string given = normalized(word);
    if (given.size() < minPrefix || given.size() > maxWord) {
        return {};
    }
    std::string best;
    std::size_t fewest = maxEdits(given.size()) + 1;
    for (const std::string& candidate : known) {
        if (candidate == word) {
            return {};
        }
        const std::string meant = normalized(candidate);
        if (meant.size() < minPrefix) {
            continue;
        }
        // A prefix counts as one edit.
        const std::size_t edits =
            meant.starts_with(given) ? std::size_t{meant != given} : editDistance(given, meant);
        if (edits < fewest && edits < meant.size() - 1) {
            fewest = edits;
            best = candidate;
        }
    }
    return best;
}

std::string suggestionFor(std::string_view word, const std::vector<std::string>& known) {
    const std::string meant = nearest(word, known);
    return meant.empty() ? std::string() : "; did you mean '" + meant + "'?";
}

}  // namespace tarvin
