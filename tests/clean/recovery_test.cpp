#include "clean/recovery.h"

#include "clean/clean_up_bench.h"
#include "support/file_content.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// A clean-up of twelve files in four sets, whose process is killed at a step.
class KilledCleanUp : public ::testing::Test {
 protected:
    static constexpr int sets = 4;

    /// Returns once the process has gone; false if it came to its end before the step.
    bool cleanUntil(int step) {
        const pid_t child = ::fork();
        if (child == 0) {
            CleaningUser user(home_.path());
            CleanUp::Settings settings;
            settings.beforeStep = [step, count = 0](MoveStep) mutable {
                if (++count == step) {
                    ::kill(::getpid(), SIGKILL);
                }
            };
            ComparedFiles files;
            for (int number = 0; number < sets; ++number) {
                const std::string name = std::to_string(number) + ".txt";
                files.addSet({tree_.pathOf("a/" + name), tree_.pathOf("b/" + name),
                              tree_.pathOf("c/" + name)});
            }
            cleanUp(files.marked(), user, systemFileSystem(), std::move(settings));
            ::_exit(0);
        }
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        return WIFSIGNALED(status);
    }

    void writeTree() {
        for (int number = 0; number < sets; ++number) {
            for (const char* folder : {"a/", "b/", "c/"}) {
                tree_.writeFile(folder + std::to_string(number) + ".txt",
                                "set " + std::to_string(number));
            }
        }
    }

    TemporaryFolder home_;
    TemporaryFolder tree_;
};

TEST_F(KilledCleanUp, IsCountedAsFarAsItCameAtTheNextStart) {
    std::int64_t counted = 0;
    bool killed = true;
    for (int step = 1; killed; ++step) {
        writeTree();
        killed = cleanUntil(step);
        CleaningUser user(home_.path());
        DataFile totals(home_.path());
        ASSERT_FALSE(
            recoverCleanUps(systemFileSystem(), user.mover(), user.journal(), totals).has_value());
        std::size_t left = 0;
        for (int number = 0; number < sets; ++number) {
            const std::string name = std::to_string(number) + ".txt";
            EXPECT_EQ(contentOf(tree_.pathOf("a/" + name)), "set " + std::to_string(number));
            left += std::size_t{fs::exists(tree_.pathOf("b/" + name))};
            left += std::size_t{fs::exists(tree_.pathOf("c/" + name))};
        }
        counted += 2 * sets - static_cast<std::int64_t>(left);
        ASSERT_EQ(totals.alreadyDeletedCount(), counted) << "step " << step;
        ASSERT_EQ(user.trashed(), static_cast<std::size_t>(counted)) << "step " << step;
        ASSERT_EQ(user.notes(), user.trashed()) << "step " << step;
    }
    EXPECT_GE(counted, 2 * sets);
}

TEST_F(KilledCleanUp, IsRecoveredByOneProcessOnly) {
    writeTree();
    ASSERT_TRUE(cleanUntil(7));
    CleaningUser first(home_.path());
    CleaningUser second(home_.path());
    const auto taken = first.journal().crashed();
    ASSERT_EQ(std::get<std::vector<CleanUpSummary>>(taken).size(), 1U);
    const auto rest = second.journal().crashed();
    EXPECT_TRUE(std::get<std::vector<CleanUpSummary>>(rest).empty());
}

/// A move of which nothing is known but that it was planned.
class PlannedMoves : public ::testing::Test {
 protected:
    void plan(const std::string& path) {
        CleaningUser user(home_.path());
        const auto id = user.journal().begin({});
        const std::vector<PlannedMove> moves{{path, 1, 4, {}}};
        ASSERT_TRUE(
            std::holds_alternative<MoveRow>(user.journal().plan(std::get<CleanUpId>(id), moves)));
    }

    /// Whether the clean-up has come to its end in the journal.
    bool recover() {
        CleaningUser user(home_.path());
        DataFile totals(home_.path());
        EXPECT_FALSE(recoverCleanUps(fileSystem_, user.mover(), user.journal(), totals));
        const auto all = user.journal().cleanUps();
        return std::get<std::vector<CleanUpSummary>>(all).front().finished;
    }

    TemporaryFolder home_;
    TemporaryFolder tree_;
    FaultyFileSystem fileSystem_;
};

TEST_F(PlannedMoves, OnADriveThatIsNotThereWaitForIt) {
    plan(tree_.pathOf("drive/a.txt"));
    EXPECT_FALSE(recover());
    tree_.makeFolder("drive");
    EXPECT_TRUE(recover());
}

TEST_F(PlannedMoves, WhoseTrashCannotBeLookedAtWaitForIt) {
    plan(tree_.pathOf("a.txt"));
    fileSystem_.failCall(FileCall::attributesAtPath, 1, EIO, home_.pathOf("Trash/files"));
    EXPECT_FALSE(recover());
    EXPECT_TRUE(recover());
}

}  // namespace
}  // namespace tarvin
