#pragma once

#include "clean/trials/trial_home.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarvin {

/// The parameters of all trials.
struct TrialPlace {
    const TrialHome& home;
    std::string tree;  ///< a folder that each trial creates anew
    std::uint64_t seed = 1;
};

/// Each function prints its figures and returns the number of losses, which should be 0.

/// Two real clean-ups at once, of one user and of two, with their folders in opposite order.
[[nodiscard]] std::uint64_t tryRaces(const TrialPlace& place, std::size_t rounds, std::size_t sets);

/// Replaces a file, its folder or its copy between the confirmation and the move and between the
/// steps of the move.
[[nodiscard]] std::uint64_t trySwaps(const TrialPlace& place, std::size_t rounds);

/// Kills a real clean-up at a random moment, and recovers at the next start.
[[nodiscard]] std::uint64_t tryKills(const TrialPlace& place, std::size_t rounds, std::size_t sets);

/// Kills two simultaneous real clean-ups of two users, and recovers at the next start of both.
[[nodiscard]] std::uint64_t tryKilledRaces(const TrialPlace& place, std::size_t rounds,
                                           std::size_t sets);

/// Fails each call of a move once, with each of several errors.
[[nodiscard]] std::uint64_t tryFaults(const TrialPlace& place);

/// Compares the time per file of many files of one name with that of different names; on tmpfs if
/// possible.
[[nodiscard]] std::uint64_t tryNames(const TrialPlace& place, std::size_t files);

}  // namespace tarvin
