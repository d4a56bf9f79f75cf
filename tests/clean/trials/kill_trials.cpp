#include "clean/trials/program.h"
#include "clean/trials/trials.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <random>
#include <thread>

namespace tarvin {

namespace {

namespace fs = std::filesystem;
using SteadyClock = std::chrono::steady_clock;
using std::chrono::microseconds;

/// Waits until the program has moved this many files, or has ended.
void waitForMoves(const TrialHome& home, const Program& program, std::size_t files) {
    while (!program.hasEnded() && home.trashed() < files) {
        std::this_thread::yield();
    }
}

class KillTrial final {
 public:
    KillTrial(const TrialPlace& place, std::size_t sets) : place_(place), sets_(sets) {}

    /// The duration of a clean-up that is not killed.
    microseconds wholeTime() {
        writeAnew();
        const auto begin = SteadyClock::now();
        Program program(words());
        program.wait();
        return std::chrono::duration_cast<microseconds>(SteadyClock::now() - begin);
    }

    Losses killAfter(microseconds time) {
        writeAnew();
        Program program(words());
        program.letRun(time);
        return endedNow(program);
    }

    Losses killAtMove(std::size_t number) {
        writeAnew();
        Program program(words());
        waitForMoves(place_.home, program, number);
        return endedNow(program);
    }

    [[nodiscard]] std::size_t killed() const { return killed_; }
    [[nodiscard]] std::size_t amidMoves() const { return amidMoves_; }
    [[nodiscard]] std::size_t trashInfosWithoutFile() const { return trashInfosWithoutFile_; }

 private:
    Losses endedNow(Program& program) {
        program.kill();
        const bool wasKilled = program.wait() == -1;
        const std::size_t moved = place_.home.trashed();
        amidMoves_ += std::size_t{wasKilled && moved > 0 && moved < 2 * sets_};
        killed_ += std::size_t{wasKilled};
        Losses losses;
        losses.rows += std::uint64_t{!recoverAsAtTheStart()};
        losses += lossesOf(place_.home, originals_);
        trashInfosWithoutFile_ += place_.home.trashInfosWithoutFile();
        return losses;
    }

    void writeAnew() {
        place_.home.renew();
        fs::remove_all(place_.tree);
        originals_ = writeSets(place_.tree, {"/a", "/b", "/c"}, sets_);
    }

    [[nodiscard]] std::vector<std::string> words() const {
        return {"clean", "--yes", place_.tree + "/a", place_.tree + "/b", place_.tree + "/c"};
    }

    const TrialPlace& place_;
    const std::size_t sets_;
    Originals originals_;
    std::size_t killed_ = 0;
    std::size_t amidMoves_ = 0;
    std::size_t trashInfosWithoutFile_ = 0;
};

}  // namespace

std::uint64_t tryKills(const TrialPlace& place, std::size_t rounds, std::size_t sets) {
    KillTrial trial(place, sets);
    std::mt19937_64 random(place.seed);
    std::uniform_int_distribution<std::int64_t> moment(0, trial.wholeTime().count());
    std::uniform_int_distribution<std::size_t> move(1, 2 * sets);
    Losses losses;
    for (std::size_t round = 0; round < rounds; ++round) {
        // Moves take only a small part of the time.
        losses += round % 4 == 0 ? trial.killAfter(microseconds(moment(random)))
                                 : trial.killAtMove(move(random));
    }
    std::printf(
        "killed clean-ups of %zu files, and the next start: %zu rounds, seed %llu\n"
        "  %zu were killed before their end, %zu of them amid their moves\n"
        "  %s, %zu .trashinfo files without a file\n",
        2 * sets, rounds, static_cast<unsigned long long>(place.seed), trial.killed(),
        trial.amidMoves(), described(losses).c_str(), trial.trashInfosWithoutFile());
    return losses.sum() + trial.trashInfosWithoutFile();
}

}  // namespace tarvin
