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

/// Two clean-ups of the same files at the same time, each keeping another one.
class InterleavedCleanUps : public ::testing::Test {
 protected:
    /// How a clean-up begins and what it has come to.
    struct Side {
        CleaningUser& user;
        CleanUp::WholeSets wholeSets = CleanUp::WholeSets::keepOne;
        std::set<MoveStep> steps = all;   ///< before which another one may come
        std::size_t stoodAtItsBegin = 0;  ///< files in their places when it looked at the first
        bool isAtWork = false;            ///< between its first step and its end
        bool hasMet = false;              ///< the other one was at work at its begin
        MoveReport report{};
    };

    inline static const std::set<MoveStep> all{MoveStep::checkFile, MoveStep::findSurvivor,
                                               MoveStep::moveToTrash, MoveStep::recheck,
                                               MoveStep::moveBack};
    /// Those around what is done, for more files: there, a look follows the one before it.
    inline static const std::set<MoveStep> fewer{MoveStep::moveToTrash, MoveStep::recheck,
                                                 MoveStep::moveBack};

    /// How many of the files are in their places at the end of the clean-ups.
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
        return standing();
    }

    [[nodiscard]] std::size_t standing() const {
        return static_cast<std::size_t>(
            std::count_if(paths_.begin(), paths_.end(),
                          [](const std::string& path) { return contentOf(path) == "the same"; }));
    }

    /// Every file in the Trash has a note.
    static void expectNotes(const CleaningUser& user) {
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
        // Whoever comes while another one of the same user is at work is told so at once.
        settings.patience = std::chrono::milliseconds(0);
        settings.beforeStep = [&](MoveStep step) {
            if (!std::exchange(side.isAtWork, true)) {
                side.stoodAtItsBegin = standing();
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
    EXPECT_GE(count, leastOrders);
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
    EXPECT_GE(count, leastOrders);

    expectNotes(ann_);
    expectNotes(bob_);
}

// Ann wants them all gone, and Bob keeps one: every file is somewhere, whole. If not all stood when
// hers began, hers keeps one as well.
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
        ASSERT_TRUE(left > 0 || ann.stoodAtItsBegin == 3) << "order " << orders.text();
        wholeSets += std::size_t{left == 0};
        ++count;
    } while (orders.next());
    EXPECT_GE(count, leastOrders);

    EXPECT_GE(wholeSets, 1U);
    expectNotes(ann_);
    expectNotes(bob_);
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
    EXPECT_GE(count, leastOrders / 2);

    EXPECT_GE(met, leastOrders / 4);
    expectNotes(ann_);
}

}  // namespace
}  // namespace tarvin
