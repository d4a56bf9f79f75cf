#include "cli/suggestion.h"

#include <algorithm>
#include <cstddef>

namespace tarvin {

namespace {

constexpr std::size_t shortestBeginning = 2;  // letters
constexpr std::size_t longestWord = 32;       // letters; longer than any of ours by two slips

/// Without what does not count.
std::string core(std::string_view word) {
    const std::size_t begin = std::min(word.find_first_not_of('-'), word.size());
    std::string letters(word.substr(begin));
    for (char& letter : letters) {
        const bool isCapital = letter >= 'A' && letter <= 'Z';
        letter = isCapital ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    return letters;
}

/// How many slips lead from one word to the other, each letter being part of one at most.
std::size_t slipsBetween(std::string_view one, std::string_view other) {
    // Of the last three beginnings of `one`, to each beginning of `other`.
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

std::size_t mostSlips(std::size_t letters) {
    return letters <= 4 ? 1 : 2;
}

}  // namespace

std::string nearest(std::string_view word, const std::vector<std::string>& known) {
    const std::string given = core(word);
    if (given.size() < shortestBeginning || given.size() > longestWord) {
        return {};
    }
    std::string best;
    std::size_t fewest = mostSlips(given.size()) + 1;
    for (const std::string& candidate : known) {
        if (candidate == word) {
            return {};
        }
        const std::string meant = core(candidate);
        if (meant.size() < shortestBeginning) {
            continue;
        }
        // The whole beginning of a word counts as one slip.
        const std::size_t slips =
            meant.starts_with(given) ? std::size_t{meant != given} : slipsBetween(given, meant);
        if (slips < fewest && slips < meant.size() - 1) {
            fewest = slips;
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
