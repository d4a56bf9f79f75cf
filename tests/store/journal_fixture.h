#pragma once

#include "store/clean_up_journal.h"
#include "support/quick_folder.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <ostream>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tarvin {

// The name is GoogleTest's.
// NOLINTNEXTLINE(readability-identifier-naming)
inline void PrintTo(const StoredTotals& totals, std::ostream* out) {
    *out << totals.count << " files, " << totals.size << " bytes";
}

/// Returns the value of a call that must not fail.
template <typename Value>
Value valueOf(StoreResult<Value> result) {
    if (const auto* error = std::get_if<StoreError>(&result)) {
        std::cerr << error->path << ": " << error->text << '\n';
        std::abort();
    }
    return std::get<Value>(std::move(result));
}

/// Returns the error of a call; "no error" if it did not fail.
template <typename Value>
StoreError errorOf(const StoreResult<Value>& result) {
    const auto* error = std::get_if<StoreError>(&result);
    return error == nullptr ? StoreError{"", "no error", StoreError::Kind::missing} : *error;
}

/// Runs `work` in a child process. Returns its exit status, or 128 plus the signal that ended it.
template <typename Work>
int inChildProcess(const Work& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(work() ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

class JournalFixture : public ::testing::Test {
 protected:
    [[nodiscard]] CleanUpJournal opened() const {
        return valueOf(CleanUpJournal::open(own_, std::chrono::seconds(10)));
    }

    /// Returns a move for each path: inodes from 1000, sizes 10, 20, 30...
    static std::vector<PlannedMove> movesOf(const std::vector<std::string>& paths) {
        std::vector<PlannedMove> moves;
        for (const std::string& path : paths) {
            const auto number = static_cast<std::uint64_t>(moves.size());
            moves.push_back({path, 1000 + number, 10 * (number + 1),
                             Timestamp(std::chrono::nanoseconds(1'700'000'000'000'000'001))});
        }
        return moves;
    }

    static RecordedOutcome movedTo(MoveRow row, const std::string& trashName) {
        return {row, MoveState::moved, "/home/user/.local/share/Trash", trashName, ""};
    }

    /// Adds a finished clean-up of one moved file of `size` bytes. Returns its row.
    static MoveRow oneMove(CleanUpJournal& journal, std::uint64_t size = 10) {
        const CleanUpId id = valueOf(journal.begin(Timestamp()));
        const std::vector<PlannedMove> moves{{"/home/user/a.txt", 7, size, std::nullopt}};
        const MoveRow row = valueOf(journal.plan(id, moves));
        EXPECT_FALSE(journal.record(std::vector{movedTo(row, "a.txt")}));
        EXPECT_FALSE(journal.finish(id));
        return row;
    }

    static std::vector<JournalMove> allMoves(CleanUpJournal& journal, CleanUpId id) {
        return valueOf(journal.moves(id, MoveStates::all(), 100'000));
    }

    TemporaryFolder folder_{quickFolder()};
    const std::string own_ = folder_.pathOf("own");
    const std::string file_ = own_ + "/clean-ups.sqlite";
};

}  // namespace tarvin
