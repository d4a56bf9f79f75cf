#include "clean/clean_up_bench.h"
#include "support/file_content.h"

#include <array>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

/// The orders in which two threads can take their steps, one after the other: a tree of choices,
/// walked depth first. A choice is there only where both wait; what it leads to decides on the
/// next.
class Orders final {
 public:
    /// False once every order has been gone through.
    bool next() {
        while (!chosen_.empty() && chosen_.back() == 1) {
            chosen_.pop_back();
        }
        if (chosen_.empty()) {
            return false;
        }
        chosen_.back() = 1;
        return true;
    }

    /// Who comes first at a choice of the present order; a new one begins with thread 0.
    [[nodiscard]] std::size_t at(std::size_t choice) const {
        return choice < chosen_.size() ? chosen_[choice] : 0;
    }
    void keep(std::size_t choice) {
        if (choice == chosen_.size()) {
            chosen_.push_back(0);
        }
    }

    /// For a person: "0110".
    [[nodiscard]] std::string text() const {
        std::string digits;
        for (const std::size_t who : chosen_) {
            digits += std::to_string(who);
        }
        return digits;
    }

 private:
    std::vector<std::size_t> chosen_;
};

/// Lets two threads go on by turns, one step at a time: at each step a thread waits until it is its
/// turn. Where one has ended, the other one goes on.
class Turns final {
 public:
    explicit Turns(Orders& orders) : orders_(orders) {}

    void step(std::size_t who) {
        std::unique_lock lock(mutex_);
        waiting_[who] = true;
        changed_.notify_all();
        changed_.wait(lock, [&] { return next() == who; });
        if (waiting_[0] && waiting_[1]) {
            orders_.keep(choices_++);
        }
        waiting_[who] = false;
        changed_.notify_all();
    }

    void end(std::size_t who) {
        const std::lock_guard lock(mutex_);
        ended_[who] = true;
        changed_.notify_all();
    }

 private:
    /// Nobody's as long as one is on its way to its next step.
    [[nodiscard]] std::size_t next() const {
        for (std::size_t who = 0; who < 2; ++who) {
            if (!waiting_[who] && !ended_[who]) {
                return nobody;
            }
        }
        const std::size_t wanted = orders_.at(choices_);
        return ended_[wanted] ? 1 - wanted : wanted;
    }

    static constexpr std::size_t nobody = 2;

    Orders& orders_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::array<bool, 2> waiting_{};
    std::array<bool, 2> ended_{};
    std::size_t choices_ = 0;
};

/// So many there are of three steps each, the fewest that a file takes which may be moved.
constexpr std::size_t leastOrders = 20;

/// Two users clean up the same files at the same time, each keeping another one. Nothing but what
/// each looks at keeps them from moving every copy.
class InterleavedCleanUps : public ::testing::Test {
 protected:
    /// How many of the files are in their places at the end.
    std::size_t leftAfter(Orders& orders, const std::vector<std::string>& names) {
        const TemporaryFolder tree(quickFolder());
        std::vector<std::string> paths;
        for (const std::string& name : names) {
            paths.push_back(tree.writeFile(name + "/" + name + ".txt", "the same"));
        }
        const std::vector<std::string> backwards(paths.rbegin(), paths.rend());
        ComparedFiles first;
        ComparedFiles second;
        first.addSet(paths);
        second.addSet(backwards);
        Turns turns(orders);
        const auto run = [&turns](std::size_t who, ComparedFiles& files, CleaningUser& user) {
            CleanUp::Settings settings;
            settings.beforeStep = [&turns, who](MoveStep) { turns.step(who); };
            cleanUp(files.marked(), user, systemFileSystem(), std::move(settings));
            turns.end(who);
        };
        std::thread other([&] { run(1, second, bob_); });
        run(0, first, ann_);
        other.join();
        std::size_t left = 0;
        for (const std::string& path : paths) {
            left += std::size_t{contentOf(path) == "the same"};
        }
        return left;
    }

    TemporaryFolder homes_{quickFolder()};
    CleaningUser ann_{homes_.makeFolder("ann")};
    CleaningUser bob_{homes_.makeFolder("bob")};
};

TEST_F(InterleavedCleanUps, OfTwoFilesAlwaysLeaveOne) {
    Orders orders;
    std::size_t count = 0;
    do {
        ASSERT_GE(leftAfter(orders, {"a", "b"}), 1U) << "order " << orders.text();
        ++count;
    } while (orders.next());
    EXPECT_GE(count, leastOrders);
}

}  // namespace
}  // namespace tarvin
