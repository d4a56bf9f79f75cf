#pragma once

#include "clean/trials/trial_home.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarvin {

/// What all trials take.
struct TrialPlace {
    const TrialHome& home;
    std::string tree;  ///< a folder that each trial makes anew
    std::uint64_t seed = 1;
};

/// Each prints its figures, and answers how much of what must not be has been: 0 is right.

/// Two real clean-ups at once, of one user and of two, with their folders in opposite order.
[[nodiscard]] std::uint64_t tryRaces(const TrialPlace& place, std::size_t rounds, std::size_t sets);

/// Something else at the place of a file, its folder or its copy, between the question and the move
/// and between the steps of the move.
[[nodiscard]] std::uint64_t trySwaps(const TrialPlace& place, std::size_t rounds);

/// A real clean-up that is killed at a random moment, and the next start.
[[nodiscard]] std::uint64_t tryKills(const TrialPlace& place, std::size_t rounds, std::size_t sets);

/// Two real clean-ups of two users at once that are both killed, and the next start of both.
[[nodiscard]] std::uint64_t tryKilledRaces(const TrialPlace& place, std::size_t rounds,
                                           std::size_t sets);

/// Each call of a move fails once, with each of several reasons.
[[nodiscard]] std::uint64_t tryFaults(const TrialPlace& place);

/// So many files of one name take no longer each than files with names of their own. In memory,
/// where there is a place for that.
[[nodiscard]] std::uint64_t tryNames(const TrialPlace& place, std::size_t files);

}  // namespace tarvin
