#include "clean/clean_up_fixture.h"
#include "support/file_content.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

/// Enumerates the orders in which two threads can take their steps: a tree of choices, depth first.
/// A choice exists only where both threads wait.
class Orders final {
 public:
    /// Proceeds to the next order. Returns false after the last one.
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

    /// Returns the thread that goes first at a choice of the current order; thread 0 if it is new.
    [[nodiscard]] std::size_t at(std::size_t choice) const {
        return choice < chosen_.size() ? chosen_[choice] : 0;
    }
    void keep(std::size_t choice) {
        if (choice == chosen_.size()) {
            chosen_.push_back(0);
        }
    }

    /// For failure messages: "0110".
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

/// Runs two threads one step at a time, in a given order. When one has ended, the other continues.
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
    /// Returns `nobody` while a thread is between two steps.
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

/// The number of orders of 3 + 3 steps; a file that can be moved takes at least 3.
constexpr std::size_t minOrders = 20;

/// Two simultaneous clean-ups of the same files, each keeping another one.
class InterleavedCleanUps : public ::testing::Test {
 protected:
    /// The settings and the result of a clean-up.
    struct Side {
        CleaningUser& user;
        CleanUp::WholeSets wholeSets = CleanUp::WholeSets::keepOne;
        std::set<MoveStep> steps = all;  ///< at which the threads may switch
        std::size_t inPlaceAtBegin = 0;  ///< files in place when it checked the first one
        bool isAtWork = false;           ///< between its first step and its end
        bool hasMet = false;             ///< the other one was at work when it began
        MoveReport report{};
    };

    inline static const std::set<MoveStep> all{MoveStep::checkFile, MoveStep::findSurvivor,
                                               MoveStep::moveToTrash, MoveStep::recheck,
                                               MoveStep::moveBack};
    /// Only the steps around changes, for more files.
    inline static const std::set<MoveStep> fewer{MoveStep::moveToTrash, MoveStep::recheck,
                                                 MoveStep::moveBack};

    /// Returns how many files are in place after both clean-ups.
    std::size_t leftAfter(Orders& orders, const std::vector<std::string>& names, Side& first,
                          Side& second) {
        const TemporaryFolder tree(quickFolder());
        paths_.clear();
        for (const std::string& name : names) {
            paths_.push_back(tree.writeFile(name + "/" + name + ".txt", "the same"));
        }
        ComparedFiles ones;
        ComparedFiles others;
        const std::shared_ptr<Set> set = ones.addSet(paths_);
        const std::shared_ptr<Set> otherSet = others.addSet({paths_.rbegin(), paths_.rend()});
        Turns turns(orders);
        std::thread other([&] { run(turns, 1, second, first, others, *otherSet); });
        run(turns, 0, first, second, ones, *set);
        other.join();
        return inPlace();
    }

    [[nodiscard]] std::size_t inPlace() const {
        return static_cast<std::size_t>(
            std::count_if(paths_.begin(), paths_.end(),
                          [](const std::string& path) { return contentOf(path) == "the same"; }));
    }

    /// Expects a .trashinfo file for every file in the Trash.
    static void expectTrashInfos(const CleaningUser& user) {
        EXPECT_EQ(user.trashInfos(), user.trashed());
    }

    TemporaryFolder homes_{quickFolder()};
    CleaningUser ann_{homes_.makeFolder("ann")};
    CleaningUser bob_{homes_.makeFolder("bob")};

 private:
    void run(Turns& turns, std::size_t who, Side& side, const Side& other, ComparedFiles& files,
             const Set& set) {
        Modal& modal = files.marked();
        if (side.wholeSets == CleanUp::WholeSets::goIfMarked) {
            set.files().front()->setState(CheckState::on);
        }
        CleanUp::Settings settings;
        settings.wholeSets = side.wholeSets;
        // Fails at once if another clean-up of the same user holds the lock.
        settings.patience = std::chrono::milliseconds(0);
        settings.beforeStep = [&](MoveStep step) {
            if (!std::exchange(side.isAtWork, true)) {
                side.inPlaceAtBegin = inPlace();
            }
            if (side.steps.contains(step)) {
                turns.step(who);
            }
        };
        turns.step(who);
        side.hasMet = other.isAtWork;
        side.report = cleanUp(modal, side.user, systemFileSystem(), std::move(settings));
        side.isAtWork = false;
        turns.end(who);
    }

    std::vector<std::string> paths_;
};

TEST_F(InterleavedCleanUps, OfTwoFilesAlwaysLeaveOne) {
    Orders orders;
    std::size_t count = 0;
    do {
        Side ann{ann_};
        Side bob{bob_};
        ASSERT_GE(leftAfter(orders, {"a", "b"}, ann, bob), 1U) << "order " << orders.text();
        ++count;
    } while (orders.next());
    EXPECT_GE(count, minOrders);
}

TEST_F(InterleavedCleanUps, OfThreeFilesAlwaysLeaveOne) {
    Orders orders;
    std::size_t count = 0;
    do {
        Side ann{ann_, CleanUp::WholeSets::keepOne, fewer};
        Side bob{bob_, CleanUp::WholeSets::keepOne, fewer};
        ASSERT_GE(leftAfter(orders, {"a", "b", "c"}, ann, bob), 1U) << "order " << orders.text();
        ++count;
    } while (orders.next());
    EXPECT_GE(count, minOrders);

    expectTrashInfos(ann_);
    expectTrashInfos(bob_);
}

// Ann moves the whole set and Bob keeps one file: every file is in place or in a Trash. If a file
// was missing when Ann began, she keeps one as well.
TEST_F(InterleavedCleanUps, OfAWholeSetLoseNothing) {
    Orders orders;
    std::size_t count = 0;
    std::size_t wholeSets = 0;
    do {
        const std::size_t trashed = ann_.trashed() + bob_.trashed();
        Side ann{ann_, CleanUp::WholeSets::goIfMarked, fewer};
        Side bob{bob_, CleanUp::WholeSets::keepOne, fewer};
        const std::size_t left = leftAfter(orders, {"a", "b", "c"}, ann, bob);
        ASSERT_EQ(left + ann_.trashed() + bob_.trashed() - trashed, 3U) << orders.text();
        ASSERT_TRUE(left > 0 || ann.inPlaceAtBegin == 3) << "order " << orders.text();
        wholeSets += std::size_t{left == 0};
        ++count;
    } while (orders.next());
    EXPECT_GE(count, minOrders);

    EXPECT_GE(wholeSets, 1U);
    expectTrashInfos(ann_);
    expectTrashInfos(bob_);
}

TEST_F(InterleavedCleanUps, OfOneUserExcludeEachOther) {
    CleaningUser again(homes_.pathOf("ann"));
    const auto refused = [](const Side& side) {
        return std::all_of(side.report.begin(), side.report.end(),
                           [](const auto& file) { return file.second == MoveOutcome::refused; });
    };
    Orders orders;
    std::size_t count = 0;
    std::size_t met = 0;
    do {
        Side first{ann_};
        Side second{again};
        ASSERT_EQ(leftAfter(orders, {"a", "b", "c"}, first, second), 1U) << orders.text();
        ASSERT_EQ(refused(first), first.hasMet) << "order " << orders.text();
        ASSERT_EQ(refused(second), second.hasMet) << "order " << orders.text();
        met += std::size_t{first.hasMet} + std::size_t{second.hasMet};
        ++count;
    } while (orders.next());
    EXPECT_GE(count, minOrders / 2);

    EXPECT_GE(met, minOrders / 4);
    expectTrashInfos(ann_);
}

}  // namespace
}  // namespace tarvin
