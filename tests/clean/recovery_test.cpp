#include "clean/recovery.h"

#include "clean/clean_up_fixture.h"
#include "clean/file_return.h"
#include "platform/linux/trash_mover.h"
#include "support/fake_trash.h"
#include "support/faulty_database.h"
#include "support/faulty_trash_calls.h"
#include "support/file_content.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fstream>
#include <functional>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// A clean-up of four sets of three files, whose process is killed at a step.
class KilledCleanUp : public ::testing::Test {
 protected:
    static constexpr int sets = 4;

    /// Waits for the process. Returns false if it ended before the step.
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

TEST_F(KilledCleanUp, CountsItsMovedFilesAtTheNextStart) {
    std::int64_t counted = 0;
    bool killed = true;
    for (int step = 1; killed; ++step) {
        writeTree();
        killed = cleanUntil(step);
        CleaningUser user(home_.path());
        DataFile totals(home_.path());
        ASSERT_FALSE(
            recoverCleanUps(systemFileSystem(), user.mover(), user.turns(), user.journal(), totals)
                .has_value());
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
        ASSERT_EQ(user.trashInfos(), user.trashed()) << "step " << step;
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

/// Users with separate Trash folders and journals, whose processes are killed during a move.
class KilledMove : public ::testing::Test {
 protected:
    void SetUp() override {
        a_ = tree_.writeFile("a.txt", "bytes");
        b_ = tree_.writeFile("b.txt", "bytes");
    }

    /// Moves the file `moved` in a process that is killed at the step.
    void killedWhileMoving(const std::string& staying, const std::string& moved,
                           const std::string& home, MoveStep atStep = MoveStep::recheck) {
        killed([&] {
            CleaningUser user(home);
            CleanUp::Settings settings;
            settings.beforeStep = [atStep](MoveStep step) {
                if (step == atStep) {
                    ::kill(::getpid(), SIGKILL);
                }
            };
            ComparedFiles files;
            files.addSet({staying, moved});
            cleanUp(files.marked(), user, systemFileSystem(), std::move(settings));
        });
    }

    /// Runs `work` in a child process, which it must kill.
    static void killed(const std::function<void()>& work) {
        const pid_t child = ::fork();
        if (child == 0) {
            work();
            ::_exit(0);
        }
        int status = 0;
        EXPECT_EQ(::waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status));
    }

    /// Recovers and returns the count of the totals.
    static std::int64_t recover(const std::string& home,
                                FileSystem& fileSystem = systemFileSystem()) {
        CleaningUser user(home);
        DataFile totals(home);
        EXPECT_FALSE(
            recoverCleanUps(fileSystem, user.mover(), user.turns(), user.journal(), totals));
        EXPECT_TRUE(valueOf(user.journal().crashed()).empty());
        EXPECT_EQ(user.trashInfos(), user.trashed());
        return totals.alreadyDeletedCount();
    }

    template <typename Value>
    static Value valueOf(StoreResult<Value> result) {
        return std::get<Value>(std::move(result));
    }

    TemporaryFolder tree_;
    TemporaryFolder one_;
    TemporaryFolder other_;
    std::string a_;
    std::string b_;
};

TEST_F(KilledMove, IsUndoneIfTheSurvivorIsMissing) {
    killedWhileMoving(a_, b_, one_.path());
    fs::remove(a_);
    EXPECT_EQ(recover(one_.path()), 0);
    EXPECT_EQ(contentOf(b_), "bytes");
}

TEST_F(KilledMove, IsUndoneIfTheSurvivorWasReplaced) {
    killedWhileMoving(a_, b_, one_.path());
    const std::string away = tree_.pathOf("away");
    fs::rename(a_, away);
    tree_.writeFile("a.txt", "other");
    fs::last_write_time(a_, fs::last_write_time(away));
    EXPECT_EQ(recover(one_.path()), 0);
    EXPECT_EQ(contentOf(b_), "bytes");
}

TEST_F(KilledMove, IsUndoneIfTheSurvivorWasChanged) {
    killedWhileMoving(a_, b_, one_.path());
    std::ofstream(a_) << "other";
    EXPECT_EQ(recover(one_.path()), 0);
    EXPECT_EQ(contentOf(b_), "bytes");
}

TEST_F(KilledMove, IsCountedIfTheSurvivorIsUnchanged) {
    killedWhileMoving(a_, b_, one_.path());
    EXPECT_EQ(recover(one_.path()), 1);
    EXPECT_FALSE(fs::exists(b_));
    EXPECT_EQ(contentOf(a_), "bytes");
}

/// On a volume where files have other inode numbers and dates at the next start.
class KilledUnsteadyMove : public KilledMove {
 protected:
    KilledUnsteadyMove() { unsteady_.jitterInodes(); }

    /// Gives a file another inode number and date.
    static void renumber(const std::string& path) {
        const std::string content = contentOf(path);
        fs::rename(path, path + ".old");
        std::ofstream(path) << content;
        fs::remove(path + ".old");
        fs::last_write_time(path, fs::file_time_type() + std::chrono::hours(1));
    }

    [[nodiscard]] std::string inTrash(const std::string& name) const {
        return one_.pathOf("Trash/files/" + name);
    }

    /// Why the file of the newest clean-up was left.
    [[nodiscard]] std::string reason() const {
        const std::vector<JournalMove> left = moves(MoveState::left);
        return left.size() == 1 ? left.front().reason : "not left";
    }

    /// The moves of the newest clean-up in this state.
    [[nodiscard]] std::vector<JournalMove> moves(MoveState state) const {
        CleaningUser user(one_.path());
        const CleanUpId id = valueOf(user.journal().cleanUps()).front().id;
        return valueOf(user.journal().moves(id, {state}, 10, 0));
    }

    FaultyFileSystem unsteady_;
};

TEST_F(KilledUnsteadyMove, IsFoundByItsTrashInfo) {
    killedWhileMoving(a_, b_, one_.path());
    renumber(inTrash("b.txt"));
    renumber(a_);
    EXPECT_EQ(recover(one_.path(), unsteady_), 1);
    const std::vector<JournalMove> moved = moves(MoveState::moved);
    ASSERT_EQ(moved.size(), 1U);
    EXPECT_EQ(moved.front().trashName, "b.txt");
    EXPECT_FALSE(fs::exists(b_));
    CleaningUser user(one_.path());
    FileReturn files(unsteady_, user.mover());
    EXPECT_EQ(files.putBack(moved.front()).outcome, PutBackOutcome::toItsPlace);
    EXPECT_EQ(contentOf(b_), "bytes");
}

TEST_F(KilledUnsteadyMove, IsTheLastOfThoseFromItsPath) {
    for (int round = 0; round < 2; ++round) {
        tree_.writeFile("b.txt", "bytes");
        killedWhileMoving(a_, b_, one_.path());
    }
    renumber(inTrash("b.txt"));
    const std::string last = "b.2.txt";
    ASSERT_TRUE(fs::exists(inTrash(last)));
    renumber(inTrash(last));
    recover(one_.path(), unsteady_);
    const std::vector<JournalMove> moved = moves(MoveState::moved);
    ASSERT_EQ(moved.size(), 1U);
    EXPECT_EQ(moved.front().trashName, last);
}

TEST_F(KilledUnsteadyMove, IsUndoneIfTheSurvivorHasOtherBytes) {
    killedWhileMoving(a_, b_, one_.path());
    renumber(inTrash("b.txt"));
    std::ofstream(a_) << "other";
    EXPECT_EQ(recover(one_.path(), unsteady_), 0);
    EXPECT_EQ(contentOf(b_), "bytes");
}

TEST_F(KilledUnsteadyMove, IsUndoneIfTheSurvivorIsMissing) {
    killedWhileMoving(a_, b_, one_.path());
    renumber(inTrash("b.txt"));
    fs::remove(a_);
    EXPECT_EQ(recover(one_.path(), unsteady_), 0);
    EXPECT_EQ(contentOf(b_), "bytes");
}

TEST_F(KilledUnsteadyMove, IsNotFoundInAFileOfAnotherSize) {
    killedWhileMoving(a_, b_, one_.path());
    std::ofstream(inTrash("b.txt")) << "other bytes";
    renumber(inTrash("b.txt"));
    EXPECT_EQ(recover(one_.path(), unsteady_), 0);
    EXPECT_EQ(reason(), "gone");
}

TEST_F(KilledUnsteadyMove, OfASteadyVolumeIsNotFoundInAnotherFile) {
    killedWhileMoving(a_, b_, one_.path());
    renumber(inTrash("b.txt"));
    EXPECT_EQ(recover(one_.path()), 0);
    EXPECT_EQ(reason(), "gone");
}

TEST_F(KilledUnsteadyMove, ThatWasNotMadeIsStopped) {
    killedWhileMoving(a_, b_, one_.path(), MoveStep::moveToTrash);
    renumber(b_);
    EXPECT_EQ(recover(one_.path(), unsteady_), 0);
    EXPECT_EQ(reason(), "stopped");
    EXPECT_EQ(contentOf(b_), "bytes");
}

TEST_F(KilledMove, OfTwoUsersBeforeTheirRechecksLeavesACopy) {
    // The first user has checked and waits; the second moves the survivor and is killed; the first
    // moves the other file and is killed, too.
    int hasChecked[2];
    int mayMove[2];
    ASSERT_EQ(::pipe(hasChecked), 0);
    ASSERT_EQ(::pipe(mayMove), 0);
    const pid_t first = ::fork();
    if (first == 0) {
        CleaningUser user(one_.path());
        CleanUp::Settings settings;
        settings.beforeStep = [&](MoveStep step) {
            char byte = 0;
            if (step == MoveStep::moveToTrash &&
                (::write(hasChecked[1], &byte, 1) != 1 || ::read(mayMove[0], &byte, 1) != 1)) {
                ::_exit(1);
            }
            if (step == MoveStep::recheck) {
                ::kill(::getpid(), SIGKILL);
            }
        };
        ComparedFiles files;
        files.addSet({a_, b_});
        cleanUp(files.marked(), user, systemFileSystem(), std::move(settings));
        ::_exit(0);
    }
    char byte = 0;
    ASSERT_EQ(::read(hasChecked[0], &byte, 1), 1);
    killedWhileMoving(b_, a_, other_.path());
    ASSERT_EQ(::write(mayMove[1], &byte, 1), 1);
    int status = 0;
    ASSERT_EQ(::waitpid(first, &status, 0), first);
    ASSERT_TRUE(WIFSIGNALED(status));
    for (const int end : {hasChecked[0], hasChecked[1], mayMove[0], mayMove[1]}) {
        ::close(end);
    }
    ASSERT_FALSE(fs::exists(a_) || fs::exists(b_));
    EXPECT_EQ(recover(one_.path()), 0);
    EXPECT_EQ(recover(other_.path()), 1);
    EXPECT_EQ(contentOf(b_), "bytes");
    EXPECT_FALSE(fs::exists(a_));
}

TEST_F(KilledMove, OfAWholeSetIsCounted) {
    killed([this] {
        CleaningUser user(one_.path());
        CleanUp::Settings settings;
        settings.wholeSets = CleanUp::WholeSets::goIfMarked;
        settings.beforeStep = [rechecks = 0](MoveStep step) mutable {
            rechecks += step == MoveStep::recheck ? 1 : 0;
            if (rechecks == 2) {
                ::kill(::getpid(), SIGKILL);
            }
        };
        ComparedFiles files;
        const auto set = files.addSet({a_, b_});
        Modal& modal = files.marked();
        set->files().front()->setState(CheckState::on);
        cleanUp(modal, user, systemFileSystem(), std::move(settings));
    });
    EXPECT_EQ(recover(one_.path()), 2);
    EXPECT_FALSE(fs::exists(a_) || fs::exists(b_));
}

TEST_F(KilledMove, LeavesNoTrashInfoWithoutAFile) {
    killedWhileMoving(a_, b_, one_.path(), MoveStep::moveToTrash);
    // As between writing the .trashinfo file and the rename, where there is no step.
    const std::string infos = one_.pathOf("Trash/info/");
    one_.makeFolder("Trash/files");
    const auto write = [&](const std::string& name, const std::string& path) {
        one_.writeFile("Trash/info/" + name,
                       "[Trash Info]\nPath=" + path + "\nDeletionDate=2026-01-01T00:00:00\n");
    };
    write("b.txt.trashinfo", b_);
    write("c.txt.trashinfo", tree_.pathOf("c.txt"));
    fs::permissions(one_.pathOf("Trash"), fs::perms(0700));
    CleaningUser user(one_.path());
    DataFile totals(one_.path());
    EXPECT_FALSE(
        recoverCleanUps(systemFileSystem(), user.mover(), user.turns(), user.journal(), totals));
    EXPECT_EQ(contentOf(b_), "bytes");
    EXPECT_FALSE(fs::exists(infos + "b.txt.trashinfo"));
    EXPECT_TRUE(fs::exists(infos + "c.txt.trashinfo"));
}

TEST_F(KilledMove, KeepsTrashInfosWhileAnotherCleanUpHoldsTheLock) {
    killedWhileMoving(a_, b_, one_.path(), MoveStep::moveToTrash);
    one_.makeFolder("Trash/files");
    one_.writeFile("Trash/info/b.txt.trashinfo",
                   "[Trash Info]\nPath=" + b_ + "\nDeletionDate=2026-01-01T00:00:00\n");
    CleaningUser user(one_.path());
    DataFile totals(one_.path());
    const Result<FileLock> turn = user.turns().tryTake(cleanUpTurn);
    ASSERT_TRUE(turn);
    EXPECT_FALSE(
        recoverCleanUps(systemFileSystem(), user.mover(), user.turns(), user.journal(), totals));
    EXPECT_EQ(user.trashInfos(), 1U);
}

/// A user whose clean-ups are recovered, and whose Trash can be made to fail.
class FaultyUser final {
 public:
    explicit FaultyUser(const std::string& home)
        : user_(home),
          totals_(home),
          mover_(makeTrashMover({user_.trash(), static_cast<std::uint32_t>(::getuid())},
                                {calls_, around_.clock, around_.mountTable})) {}

    [[nodiscard]] FaultyTrashCalls& calls() { return calls_; }
    [[nodiscard]] TrashMover& mover() { return *mover_; }
    [[nodiscard]] CleaningUser& user() { return user_; }
    [[nodiscard]] std::int64_t counted() const { return totals_.alreadyDeletedCount(); }

    void recover() {
        EXPECT_FALSE(
            recoverCleanUps(systemFileSystem(), *mover_, user_.turns(), user_.journal(), totals_));
    }

    /// Whether the journal has the newest clean-up as finished.
    [[nodiscard]] bool isFinished() {
        const auto all = user_.journal().cleanUps();
        return std::get<std::vector<CleanUpSummary>>(all).front().finished;
    }

 private:
    CleaningUser user_;
    DataFile totals_;
    FaultyTrashCalls calls_;
    const TrashSurroundings around_ = systemTrashSurroundings();
    const std::unique_ptr<TrashMover> mover_;
};

/// A clean-up before a power failure: the journal is on the disk, but not all of the rest.
class PowerFailure : public KilledMove {
 protected:
    void SetUp() override {
        KilledMove::SetUp();
        const std::string c = tree_.writeFile("c.txt", "bytes");
        const pid_t child = ::fork();
        if (child == 0) {
            CleaningUser user(one_.path());
            ComparedFiles files;
            files.addSet({a_, b_, c});
            CleanUp cleanUp(systemFileSystem(), user.mover(), user.journal(), user.turns(),
                            systemPlatform().clock(), {});
            DeletionControl control;
            DeletionWalk walk(files.marked(), cleanUp, control, {});
            walk.run();
            // Writes the outcomes, but does not finish.
            static_cast<void>(user.journal().cleanUps());
            ::_exit(0);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0);
    }

    [[nodiscard]] std::string trashInfo(const std::string& name) const {
        return one_.pathOf("Trash/info/" + name + ".trashinfo");
    }
};

TEST_F(PowerFailure, RewritesIncompleteTrashInfos) {
    const std::string whole = contentOf(trashInfo("b.txt"));
    ASSERT_EQ(whole.find("[Trash Info]\nPath=" + b_ + "\nDeletionDate="), 0U);
    fs::resize_file(trashInfo("b.txt"), 0);
    fs::remove(trashInfo("c.txt"));
    EXPECT_EQ(recover(one_.path()), 2);
    EXPECT_EQ(contentOf(trashInfo("b.txt")).size(), whole.size());
    EXPECT_EQ(
        contentOf(trashInfo("c.txt")).find("[Trash Info]\nPath=" + tree_.pathOf("c.txt") + "\n"),
        0U);
}

TEST_F(PowerFailure, KeepsCompleteTrashInfos) {
    std::ofstream(trashInfo("b.txt"), std::ios::app) << "Further=1\n";
    const std::string before = contentOf(trashInfo("b.txt"));
    EXPECT_EQ(recover(one_.path()), 2);
    EXPECT_EQ(contentOf(trashInfo("b.txt")), before);
}

TEST_F(PowerFailure, StaysUnfinishedUntilTrashInfosAreFlushed) {
    FaultyUser user(one_.path());
    fs::remove(trashInfo("b.txt"));
    user.calls().failNext(TrashCall::flush, EIO);
    user.recover();
    EXPECT_EQ(user.counted(), 2);
    EXPECT_FALSE(user.isFinished());
    fs::remove(trashInfo("b.txt"));
    user.recover();
    EXPECT_TRUE(user.isFinished());
    EXPECT_TRUE(fs::exists(trashInfo("b.txt")));
    EXPECT_EQ(user.counted(), 2);
}

TEST_F(PowerFailure, StaysUnfinishedUntilTrashInfosAreRepaired) {
    FaultyUser user(one_.path());
    fs::resize_file(trashInfo("b.txt"), 0);
    user.calls().failNext(TrashCall::write, ENOSPC);
    for (const bool isFinished : {false, true}) {
        user.recover();
        EXPECT_EQ(user.isFinished(), isFinished);
    }
    EXPECT_EQ(contentOf(trashInfo("b.txt")).find("[Trash Info]\nPath=" + b_ + "\n"), 0U);
}

TEST_F(PowerFailure, StaysUnfinishedWhileTheTrashIsInaccessible) {
    FaultyUser user(one_.path());
    user.calls().fail(TrashCall::openFolder, EIO);
    user.recover();
    EXPECT_FALSE(user.isFinished());
    user.calls().heal();
    EXPECT_EQ(recover(one_.path()), 2);
}

TEST_F(KilledMove, WithAFailedFlushIsRecoveredLater) {
    FaultyUser user(one_.path());
    ComparedFiles files;
    files.addSet({a_, b_});
    CleanUp cleanUp(systemFileSystem(), user.mover(), user.user().journal(), user.user().turns(),
                    systemPlatform().clock(), {});
    DeletionControl control;
    DeletionWalk walk(files.marked(), cleanUp, control, {});
    walk.run();
    user.calls().fail(TrashCall::flush, EIO);
    EXPECT_FALSE(cleanUp.finish());
    EXPECT_FALSE(user.isFinished());
    // No process holds it now, so that the next start recovers it.
    user.calls().heal();
    user.recover();
    EXPECT_TRUE(user.isFinished());
    EXPECT_EQ(user.counted(), 1);
}

TEST_F(PowerFailure, SubtractsFilesFoundInPlaceFromTheTotals) {
    fs::rename(one_.pathOf("Trash/files/b.txt"), b_);
    fs::remove(trashInfo("b.txt"));
    EXPECT_EQ(recover(one_.path()), 1);
}

/// Planned moves without an outcome.
class PlannedMoves : public ::testing::Test {
 protected:
    void plan(const std::string& path) const { plan(home_.path(), path); }
    static void plan(const std::string& home, const std::string& path) {
        CleaningUser user(home);
        const auto id = user.journal().begin({});
        const std::vector<PlannedMove> moves{{path, 1, 4, {}}};
        ASSERT_TRUE(
            std::holds_alternative<MoveRow>(user.journal().plan(std::get<CleanUpId>(id), moves)));
    }

    /// Recovers and returns whether the clean-up is finished.
    bool recover() {
        CleaningUser user(home_.path());
        DataFile totals(home_.path());
        EXPECT_FALSE(
            recoverCleanUps(fileSystem_, user.mover(), user.turns(), user.journal(), totals));
        const auto all = user.journal().cleanUps();
        return std::get<std::vector<CleanUpSummary>>(all).front().finished;
    }

    TemporaryFolder home_;
    TemporaryFolder tree_;
    FaultyFileSystem fileSystem_;
};

TEST_F(PlannedMoves, WaitForAMissingDrive) {
    plan(tree_.pathOf("drive/a.txt"));
    EXPECT_FALSE(recover());
    tree_.makeFolder("drive");
    EXPECT_TRUE(recover());
}

TEST_F(PlannedMoves, AreFoundInATrashWithoutAFolderForItsFiles) {
    const std::string path = tree_.writeFile("a.txt", "abcd");
    const auto file = systemFileSystem().attributesAtPath(path);
    ASSERT_TRUE(file);
    {
        CleaningUser killed(home_.path());
        const auto id = killed.journal().begin({});
        const PlannedMove move{path, file->identity.inode, file->size, file->modified};
        ASSERT_TRUE(std::holds_alternative<MoveRow>(
            killed.journal().plan(std::get<CleanUpId>(id), {&move, 1})));
    }
    CleaningUser user(home_.path());
    FakeTrash trash;
    trash.moveTo(tree_.makeFolder("Trash"));
    fs::rename(path, tree_.pathOf("Trash/other name"));
    const auto mover = trash.makeMover();
    DataFile totals(home_.path());
    EXPECT_FALSE(recoverCleanUps(systemFileSystem(), *mover, user.turns(), user.journal(), totals));
    const auto all = user.journal().cleanUps();
    const CleanUpSummary summary = std::get<std::vector<CleanUpSummary>>(all).front();
    EXPECT_TRUE(summary.finished);
    EXPECT_EQ(summary.movedFiles, 1U);
    EXPECT_EQ(summary.leftFiles, 0U);
}

TEST_F(PlannedMoves, WaitForAnInaccessibleTrash) {
    plan(tree_.pathOf("a.txt"));
    fileSystem_.failCall(FileCall::attributesAtPath, 1, EIO, home_.pathOf("Trash/files"));
    EXPECT_FALSE(recover());
    EXPECT_TRUE(recover());
}

TEST_F(PlannedMoves, ReportWhyTheJournalStaysUnfinished) {
    FaultyDatabase database;
    std::size_t reported = 0;
    bool hasFailed = true;
    for (std::size_t number = 0; hasFailed; ++number) {
        const TemporaryFolder home(quickFolder());
        plan(home.path(), tree_.pathOf("a.txt"));
        CleaningUser user(home.path());
        DataFile totals(home.path());
        database.failOnce(number, FaultyDatabase::Fault::full);
        const auto failure =
            recoverCleanUps(systemFileSystem(), user.mover(), user.turns(), user.journal(), totals);
        hasFailed = database.hasFailed();
        database.heal();
        const auto all = user.journal().cleanUps();
        const bool isFinished = std::get<std::vector<CleanUpSummary>>(all).front().finished;
        EXPECT_TRUE(isFinished || failure) << number;
        reported += std::size_t{failure.has_value()};
    }
    EXPECT_GE(reported, 5U);
}

}  // namespace
}  // namespace tarvin
