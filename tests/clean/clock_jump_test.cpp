// The system clock is set back between moves, between clean-ups and before putting back.

#include "clean/clean_up_fixture.h"
#include "clean/put_back.h"
#include "platform/linux/trash_mover.h"
#include "store/clean_up_totals.h"
#include "support/fake_platform.h"
#include "support/file_content.h"

#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace tarvin {
namespace {

namespace fs = std::filesystem;
using std::chrono::sys_days;
using std::chrono::year;

constexpr Timestamp today{sys_days(year(2026) / 1 / 31)};
constexpr Timestamp longAgo{sys_days(year(2001) / 2 / 3)};
constexpr Timestamp beforeAll{sys_days(year(1969) / 7 / 16)};

class ClockJump : public ::testing::Test {
 protected:
    ClockJump() {
        platform_.setApplicationSupportFolder(home_.path());
        platform_.useTrashOf({home_.pathOf("Trash"), static_cast<std::uint32_t>(::getuid())},
                             [](const std::string&) {});
    }

    /// Cleans up a set of three files in a folder of this name; the first stays. `atMove` is called
    /// before each move, by its number from 1.
    void clean(const std::string& name, const std::function<void(int)>& atMove = [](int) {}) {
        std::vector<std::string> paths;
        for (const char* file : {"/one.txt", "/two.txt", "/three.txt"}) {
            paths.push_back(tree_.writeFile(name + file, "same"));
        }
        CleaningUser user(home_.path());
        TrashSurroundings around = systemTrashSurroundings();
        const auto trash = makeTrashMover({user.trash(), static_cast<std::uint32_t>(::getuid())},
                                          {around.calls, clock(), around.mountTable});
        ComparedFiles files;
        files.addSet(paths);
        CleanUp::Settings settings;
        settings.beforeStep = [&, count = 0](MoveStep step) mutable {
            if (step == MoveStep::checkFile) {
                atMove(++count);
            }
        };
        CleanUp cleanUp(systemFileSystem(), *trash, user.journal(), user.turns(), clock(),
                        std::move(settings));
        DeletionControl control;
        DeletionWalk walk(files.marked(), cleanUp, control, {});
        EXPECT_EQ(walk.run().deletedFilesCount, 2U);
        EXPECT_FALSE(cleanUp.finish());
        EXPECT_FALSE(settleTotals(totals_, user.journal()));
    }

    [[nodiscard]] FakeClock& clock() { return platform_.clock(); }

    std::unique_ptr<PutBack> opened() {
        return std::get<std::unique_ptr<PutBack>>(PutBack::open(platform_, totals_));
    }

    /// Returns the clean-up that would be put back; 0 if there is none.
    CleanUpId last() {
        const auto found =
            std::get<std::variant<CleanUpSummary, NothingToPutBack>>(opened()->last());
        return std::holds_alternative<CleanUpSummary>(found) ? std::get<CleanUpSummary>(found).id
                                                             : 0;
    }

    [[nodiscard]] std::string dateOf(const std::string& name) const {
        const std::string info = contentOf(home_.pathOf("Trash/info/" + name + ".trashinfo"));
        const std::string before = "\nDeletionDate=";
        const std::size_t at = info.find(before);
        return at == std::string::npos ? "" : info.substr(at + before.size(), 10);
    }

    TemporaryFolder home_{quickFolder()};
    TemporaryFolder tree_{quickFolder()};
    FakePlatform platform_;
    DataFile totals_{home_.path()};
};

TEST_F(ClockJump, BetweenMovesDatesEachAtItsOwnTime) {
    clock().set(today + std::chrono::hours(12));
    clean("a", [this](int number) {
        if (number == 2) {
            clock().set(longAgo + std::chrono::hours(12));
        }
    });
    EXPECT_EQ(dateOf("two.txt"), "2026-01-31");
    EXPECT_EQ(dateOf("three.txt"), "2001-02-03");
    EXPECT_EQ(totals_.alreadyDeletedCount(), 2);
    EXPECT_FALSE(opened()->run(1, {}));
    EXPECT_EQ(contentOf(tree_.pathOf("a/two.txt")), "same");
    EXPECT_EQ(contentOf(tree_.pathOf("a/three.txt")), "same");
    EXPECT_EQ(totals_.alreadyDeletedCount(), 0);
}

TEST_F(ClockJump, BackKeepsTheOrderOfCleanUps) {
    clock().set(today);
    clean("a");
    clock().set(longAgo);
    clean("b");
    clock().set(beforeAll);
    clean("c");
    for (const CleanUpId id : {3, 2, 1}) {
        clock().set(id == 2 ? beforeAll : longAgo);
        EXPECT_EQ(last(), id);
        EXPECT_FALSE(opened()->run(id, {}));
    }
    EXPECT_EQ(last(), 0);
    for (const char* name : {"a/three.txt", "b/three.txt", "c/three.txt"}) {
        EXPECT_EQ(contentOf(tree_.pathOf(name)), "same") << name;
    }
    EXPECT_EQ(totals_.alreadyDeletedCount(), 0);
    EXPECT_EQ(totals_.alreadyDeletedSize(), 0U);
}

// "Newest" by number, not by date.
TEST_F(ClockJump, BackKeepsTheThirtyNewestCleanUps) {
    for (int number = 0; number < 32; ++number) {
        clock().set(today - std::chrono::days(number));
        clean(std::to_string(number));
    }
    const auto known = std::get<std::vector<CleanUpSummary>>(opened()->cleanUps());
    ASSERT_EQ(known.size(), 30U);
    EXPECT_EQ(known.front().id, 32);
    EXPECT_EQ(known.back().id, 3);
    EXPECT_EQ(totals_.alreadyDeletedCount(), 64);
}

// The Trash is checked once a second by a monotonic clock.
TEST_F(ClockJump, BackDoesNotDelayTheCheckOfTheTrash) {
    clean("a", [this](int number) {
        if (number == 2) {
            clock().advance(std::chrono::seconds(2));
            clock().set(beforeAll);
            fs::rename(home_.pathOf("Trash"), home_.pathOf("old"));
        }
    });
    EXPECT_TRUE(fs::exists(home_.pathOf("old/files/two.txt")));
    EXPECT_TRUE(fs::exists(home_.pathOf("Trash/files/three.txt")));
}

}  // namespace
}  // namespace tarvin
