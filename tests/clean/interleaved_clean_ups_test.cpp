#include "clean/clean_up_bench.h"
#include "support/file_content.h"

#include <array>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <thread>

namespace tarvin {
namespace {

/// Lets two threads go on by turns, one step at a time: at each step a thread waits until the
/// schedule names it. Where the schedule names a thread that has ended, the other one goes on.
class Turns final {
 public:
    /// Bit n of `schedule` says whose turn n is.
    explicit Turns(std::uint64_t schedule) : schedule_(schedule) {}

    void step(std::size_t who) {
        std::unique_lock lock(mutex_);
        waiting_[who] = true;
        changed_.notify_all();
        changed_.wait(lock, [&] { return next() == who; });
        waiting_[who] = false;
        ++turn_;
        changed_.notify_all();
    }

    void end(std::size_t who) {
        const std::lock_guard lock(mutex_);
        ended_[who] = true;
        changed_.notify_all();
    }

    [[nodiscard]] std::uint64_t turns() const { return turn_; }

 private:
    /// Nobody's as long as one is on its way to its next step.
    [[nodiscard]] std::size_t next() const {
        for (std::size_t who = 0; who < 2; ++who) {
            if (!waiting_[who] && !ended_[who]) {
                return nobody;
            }
        }
        const std::size_t wanted = turn_ < 64 ? schedule_ >> turn_ & 1U : 0;
        return ended_[wanted] ? 1 - wanted : wanted;
    }

    static constexpr std::size_t nobody = 2;

    const std::uint64_t schedule_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::array<bool, 2> waiting_{};
    std::array<bool, 2> ended_{};
    std::uint64_t turn_ = 0;
};

/// Two users clean up the same files at the same time, each keeping another one. Nothing but what
/// each looks at keeps them from moving every copy.
class InterleavedCleanUps : public ::testing::Test {
 protected:
    /// How many of the files are in their places at the end; `turns` is how long it took.
    std::size_t leftAfter(std::uint64_t schedule, const std::vector<std::string>& names,
                          std::uint64_t& turns) {
        const TemporaryFolder tree;
        std::vector<std::string> paths;
        for (const std::string& name : names) {
            paths.push_back(tree.writeFile(name + "/" + name + ".txt", "the same"));
        }
        const std::vector<std::string> backwards(paths.rbegin(), paths.rend());
        ComparedFiles first;
        ComparedFiles second;
        first.addSet(paths);
        second.addSet(backwards);
        Turns order(schedule);
        const auto run = [&order](std::size_t who, ComparedFiles& files, CleaningUser& user) {
            CleanUp::Settings settings;
            settings.beforeStep = [&order, who](MoveStep) { order.step(who); };
            cleanUp(files.marked(), user, systemFileSystem(), std::move(settings));
            order.end(who);
        };
        std::thread other([&] { run(1, second, bob_); });
        run(0, first, ann_);
        other.join();
        turns = order.turns();
        std::size_t left = 0;
        for (const std::string& path : paths) {
            left += std::size_t{contentOf(path) == "the same"};
        }
        return left;
    }

    TemporaryFolder homes_;
    CleaningUser ann_{homes_.makeFolder("ann")};
    CleaningUser bob_{homes_.makeFolder("bob")};
};

TEST_F(InterleavedCleanUps, OfTwoFilesAlwaysLeaveOne) {
    // Each makes at most five steps, the move back included: every order is in ten bits.
    for (std::uint64_t schedule = 0; schedule < 1024; ++schedule) {
        std::uint64_t turns = 0;
        ASSERT_GE(leftAfter(schedule, {"a", "b"}, turns), 1U) << "schedule " << schedule;
        ASSERT_LE(turns, 10U);
    }
}

}  // namespace
}  // namespace tarvin
