#include "clean/trials/program.h"
#include "clean/trials/trials.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <system_error>
#include <thread>

namespace tarvin {

namespace {

namespace fs = std::filesystem;
using SteadyClock = std::chrono::steady_clock;
using std::chrono::microseconds;

/// About the duration of a move.
constexpr microseconds maxDelay{100};

std::size_t countOf(const std::string& folder) {
    std::error_code missing;
    const fs::directory_iterator entries(folder, missing);
    return static_cast<std::size_t>(std::distance(entries, {}));
}

void addContents(std::set<std::string>& contents, const std::string& folder) {
    std::error_code missing;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, missing)) {
        contents.insert(bytesOf(entry.path()));
    }
}

/// Clean-ups of two users, each of which keeps the files that the other one moves.
class KilledRace final {
 public:
    KilledRace(const TrialPlace& place, std::size_t sets)
        : place_(place), sets_(sets), other_(place.home.path() + "/other") {}

    /// Kills both some time after they have moved this many files together.
    void run(std::size_t files, microseconds delay) {
        place_.home.renew();
        fs::remove_all(place_.tree);
        const Originals originals = writeSets(place_.tree, {"/a", "/b"}, sets_);
        const std::string a = place_.tree + "/a";
        const std::string b = place_.tree + "/b";
        {
            Program first({"clean", "--yes", a, b});
            Program second({"clean", "--yes", b, a}, other_);
            while (!first.hasEnded() && !second.hasEnded() && trashed() < files) {
                std::this_thread::yield();
            }
            const auto moment = SteadyClock::now() + delay;
            while (SteadyClock::now() < moment) {
                // Spins, since a sleep would be too long.
            }
            first.kill();
            second.kill();
            const bool wasFirstKilled = first.wait() == -1;
            const bool wasSecondKilled = second.wait() == -1;
            bothKilled_ += std::size_t{wasFirstKilled && wasSecondKilled};
        }
        std::set<std::string> contents = living();
        withoutCopy_ += sets_ - contents.size();
        failed_ += std::uint64_t{!recoverAsAtTheStart()};
        Program start({"totals"}, other_);
        failed_ += std::uint64_t{start.wait() != 0};
        contents = living();
        lost_ += sets_ - contents.size();
        addContents(contents, place_.home.trash() + "/files");
        addContents(contents, other_ + "/Trash/files");
        gone_ += sets_ - contents.size();
    }

    [[nodiscard]] std::size_t bothKilled() const { return bothKilled_; }
    [[nodiscard]] std::uint64_t withoutCopy() const { return withoutCopy_; }
    [[nodiscard]] std::uint64_t lost() const { return lost_; }
    [[nodiscard]] std::uint64_t gone() const { return gone_; }
    [[nodiscard]] std::uint64_t failed() const { return failed_; }

 private:
    [[nodiscard]] std::size_t trashed() const {
        return place_.home.trashed() + countOf(other_ + "/Trash/files");
    }

    /// Returns the contents of the files outside of Trash folders.
    [[nodiscard]] std::set<std::string> living() const {
        std::set<std::string> contents;
        addContents(contents, place_.tree + "/a");
        addContents(contents, place_.tree + "/b");
        return contents;
    }

    const TrialPlace& place_;
    const std::size_t sets_;
    const std::string other_;
    std::size_t bothKilled_ = 0;
    std::uint64_t withoutCopy_ = 0;
    std::uint64_t lost_ = 0;
    std::uint64_t gone_ = 0;
    std::uint64_t failed_ = 0;
};

}  // namespace

std::uint64_t tryKilledRaces(const TrialPlace& place, std::size_t rounds, std::size_t sets) {
    KilledRace race(place, sets);
    std::mt19937_64 random(place.seed);
    std::uniform_int_distribution<std::size_t> moved(1, sets);
    std::uniform_int_distribution<std::int64_t> delay(0, maxDelay.count());
    for (std::size_t round = 0; round < rounds; ++round) {
        const std::size_t files = moved(random);
        race.run(files, microseconds(delay(random)));
    }
    std::printf(
        "two users, both killed: %zu rounds of %zu sets, seed %llu; in %zu rounds both were killed "
        "before their end\n"
        "  %llu sets without a living copy when they were killed\n"
        "  after the next start of both: %llu without a living copy, %llu of them in no Trash "
        "either, %llu starts failed\n",
        rounds, sets, static_cast<unsigned long long>(place.seed), race.bothKilled(),
        static_cast<unsigned long long>(race.withoutCopy()),
        static_cast<unsigned long long>(race.lost()), static_cast<unsigned long long>(race.gone()),
        static_cast<unsigned long long>(race.failed()));
    return race.lost() + race.gone() + race.failed();
}

}  // namespace tarvin
