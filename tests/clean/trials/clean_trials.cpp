// Tests a clean-up against another clean-up, changes of its files, kills and failing calls, and
// measures the cost of many files of one name. Prints figures; the exit status is 1 if one that
// must be 0 is not. Uses only a private folder in the place given.

#include "clean/trials/trials.h"
#include "support/temporary_folder.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

struct Options {
    std::size_t rounds = 500;
    std::size_t kills = 300;
    std::size_t sets = 300;
    std::size_t files = 100'000;
    std::uint64_t seed = 1;
    std::vector<std::string> only{"races", "swaps", "kills", "killed-races", "faults", "names"};
    std::string work = "/var/tmp";
};

}  // namespace

int main(int argc, char** argv) {
    using namespace tarvin;
    CLI::App app("Tries to make a clean-up lose something.");
    Options options;
    app.add_option("--rounds", options.rounds, "of each race and each change")
        ->check(CLI::PositiveNumber);
    app.add_option("--kills", options.kills, "so many clean-ups, and pairs of them, are killed")
        ->check(CLI::PositiveNumber);
    app.add_option("--sets", options.sets, "in a clean-up that is raced or killed")
        ->check(CLI::PositiveNumber);
    app.add_option("--files", options.files, "of one name")->check(CLI::PositiveNumber);
    app.add_option("--seed", options.seed, "of the moments of the kills");
    app.add_option("--only", options.only,
                   "some of races, swaps, kills, killed-races, faults and names")
        ->delimiter(',')
        ->check(CLI::IsMember(options.only));
    app.add_option("--work", options.work, "where the files and the private home go");
    CLI11_PARSE(app, argc, argv);

    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const TemporaryFolder work(options.work);
    const TrialHome home(work.pathOf("home"));
    const TrialPlace place{home, work.pathOf("tree"), options.seed};
    const auto isAsked = [&options](const char* name) {
        return std::find(options.only.begin(), options.only.end(), name) != options.only.end();
    };
    std::uint64_t bad = 0;
    bad += isAsked("races") ? tryRaces(place, options.rounds, options.sets) : 0;
    bad += isAsked("swaps") ? trySwaps(place, options.rounds) : 0;
    bad += isAsked("kills") ? tryKills(place, options.kills, options.sets) : 0;
    bad += isAsked("killed-races") ? tryKilledRaces(place, options.kills, options.sets) : 0;
    bad += isAsked("faults") ? tryFaults(place) : 0;
    bad += isAsked("names") ? tryNames(place, options.files) : 0;
    std::printf(bad == 0 ? "Nothing was lost.\n" : "NOT EVERY FIGURE IS 0.\n");
    return bad == 0 ? 0 : 1;
}
