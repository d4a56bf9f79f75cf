#include "clean/trials/program.h"
#include "clean/trials/trials.h"

#include <cstdio>
#include <filesystem>

namespace tarvin {

namespace {

namespace fs = std::filesystem;

struct Race {
    Losses losses;
    std::uint64_t sets = 0;
    std::size_t contested = 0;  ///< rounds in which each of the two moved files
    std::size_t failed = 0;     ///< programs that failed
};

std::size_t filesIn(const std::string& folder) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

/// With two users, only contents are compared: the Trash of the second user is elsewhere.
void raceOnce(const TrialPlace& place, std::size_t sets, bool twoUsers, Race& race) {
    place.home.renew();
    fs::remove_all(place.tree);
    const Originals originals = writeSets(place.tree, {"/a", "/b"}, sets);
    const std::string a = place.tree + "/a";
    const std::string b = place.tree + "/b";
    const std::string other = twoUsers ? place.home.path() + "/other" : std::string();
    Program first({"clean", "--yes", a, b});
    Program second({"clean", "--yes", b, a}, other);
    for (Program* const program : {&first, &second}) {
        const int status = program->wait();
        race.failed += std::size_t{status != 0 && status != 1};
    }
    race.contested += std::size_t{filesIn(a) < sets && filesIn(b) < sets};
    race.sets += sets;
    const Losses losses = lossesOf(place.home, originals);
    if (!twoUsers) {
        race.losses += losses;
        return;
    }
    race.losses.contents += losses.contents;
    const std::size_t elsewhere = filesIn(a) + filesIn(b) + place.home.trashed();
    const std::string otherFiles = other + "/Trash/files";
    const std::size_t theirs = fs::exists(otherFiles) ? filesIn(otherFiles) : 0;
    race.losses.files += 2 * sets - elsewhere - theirs;
}

}  // namespace

std::uint64_t tryRaces(const TrialPlace& place, std::size_t rounds, std::size_t sets) {
    std::uint64_t bad = 0;
    for (const bool twoUsers : {false, true}) {
        Race race;
        for (std::size_t round = 0; round < rounds; ++round) {
            raceOnce(place, sets, twoUsers, race);
        }
        std::printf(
            "two clean-ups at once, %s: %zu rounds, %llu sets; in %zu rounds both moved files\n"
            "  %s, %zu programs failed\n",
            twoUsers ? "of two users" : "of one user", rounds,
            static_cast<unsigned long long>(race.sets), race.contested,
            described(race.losses).c_str(), race.failed);
        bad += race.losses.sum() + race.failed;
    }
    return bad;
}

}  // namespace tarvin
