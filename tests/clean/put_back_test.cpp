#include "clean/put_back.h"

#include "clean/clean_up_fixture.h"
#include "clean/recovery.h"
#include "platform/linux/trash_mover.h"
#include "store/clean_up_totals.h"
#include "support/faulty_trash_calls.h"
#include "support/file_content.h"
#include "support/mount.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <map>

namespace tarvin {
namespace {

namespace fs = std::filesystem;
using Outcomes = std::vector<std::pair<std::string, PutBackOutcome>>;

/// The system platform with the home of the test.
class HomePlatform final : public Platform {
 public:
    explicit HomePlatform(std::string home) : home_(std::move(home)) {}

    FaultyFileSystem& fileSystem() override { return fileSystem_; }
    Clock& clock() override { return systemPlatform().clock(); }
    std::unique_ptr<TrashMover> makeTrashMover() override {
        const TrashSurroundings around = systemTrashSurroundings();
        return tarvin::makeTrashMover({home_ + "/Trash", static_cast<std::uint32_t>(::getuid())},
                                      {trashCalls_, around.clock, around.mountTable});
    }
    FaultyTrashCalls& trashCalls() { return trashCalls_; }
    RunningInstances& runningInstances() override { return systemPlatform().runningInstances(); }
    std::vector<Volume> mountedVolumes() override { return {}; }
    MountPlaces mountPlaces() override { return {}; }
    bool isOnNetwork(const std::string& /*path*/) override { return false; }
    std::optional<std::string> userName() override { return {}; }
    std::optional<std::string> userFolder(UserFolder /*folder*/) override { return {}; }
    std::optional<std::string> applicationSupportFolder() override { return home_; }

 private:
    const std::string home_;
    FaultyFileSystem fileSystem_;
    FaultyTrashCalls trashCalls_;
};

class PutBackTest : public ::testing::Test {
 protected:
    /// Writes a set of equal files and cleans it up; the first stays.
    void cleanSet(const std::vector<std::string>& names) {
        std::vector<std::string> paths;
        for (const std::string& name : names) {
            paths.push_back(tree_.writeFile(name, "the same"));
        }
        cleanPaths(paths);
    }

    void cleanPaths(const std::vector<std::string>& paths) {
        CleaningUser user(home_.path());
        ComparedFiles files;
        files.addSet(paths);
        for (const auto& [name, outcome] : cleanUp(files.marked(), user, systemFileSystem())) {
            ASSERT_EQ(outcome, MoveOutcome::moved) << name;
        }
        EXPECT_FALSE(settleTotals(totals_, user.journal()));
    }

    /// Records a clean-up that moved a file to a Trash.
    CleanUpId recordMove(const std::string& path, const std::string& trash) const {
        CleaningUser user(home_.path());
        CleanUpJournal& journal = user.journal();
        const auto id = std::get<CleanUpId>(journal.begin({}));
        const PlannedMove move{path, 7, 4, Timestamp()};
        const auto row = std::get<MoveRow>(journal.plan(id, {&move, 1}));
        const RecordedOutcome outcome{row, MoveState::moved, trash, "a.txt", ""};
        EXPECT_FALSE(journal.record({&outcome, 1}));
        EXPECT_FALSE(journal.finish(id));
        return id;
    }

    std::unique_ptr<PutBack> opened() {
        auto putBack = PutBack::open(platform_, totals_);
        if (const auto* error = std::get_if<StoreError>(&putBack)) {
            ADD_FAILURE() << error->path << ": " << error->text;
            std::abort();
        }
        return std::get<std::unique_ptr<PutBack>>(std::move(putBack));
    }

    /// Returns what run() reports, by path below the tree.
    Outcomes run(CleanUpId id = 1, std::function<bool()> stopped = {}) {
        Outcomes outcomes;
        const auto putBack = opened();
        const auto failure =
            putBack->run(id, {.stopped = std::move(stopped),
                              .report = [&](const PutBackFile& file) { add(outcomes, file); }});
        EXPECT_FALSE(failure) << failure->text;
        return outcomes;
    }

    Outcomes examine(CleanUpId id = 1) {
        Outcomes outcomes;
        EXPECT_FALSE(opened()->examine(id, [&](const PutBackFile& file) {
            add(outcomes, file);
            return true;
        }));
        return outcomes;
    }

    void add(Outcomes& outcomes, const PutBackFile& file) const {
        const std::string prefix = tree_.path() + '/';
        EXPECT_TRUE(file.path.starts_with(prefix)) << file.path;
        outcomes.emplace_back(file.path.substr(prefix.size()), file.outcome);
    }

    std::variant<CleanUpSummary, NothingToPutBack> last() {
        auto last = opened()->last();
        EXPECT_FALSE(std::holds_alternative<StoreError>(last));
        return std::get<std::variant<CleanUpSummary, NothingToPutBack>>(std::move(last));
    }

    void expectLast(NothingToPutBack reason) {
        const auto found = last();
        ASSERT_TRUE(std::holds_alternative<NothingToPutBack>(found));
        EXPECT_EQ(std::get<NothingToPutBack>(found), reason);
    }

    void expectLast(CleanUpId id) {
        const auto found = last();
        ASSERT_TRUE(std::holds_alternative<CleanUpSummary>(found));
        EXPECT_EQ(std::get<CleanUpSummary>(found).id, id);
    }

    [[nodiscard]] std::string inTrash(const std::string& name) const {
        return home_.pathOf("Trash/files/" + name);
    }

    [[nodiscard]] std::ptrdiff_t trashed() const {
        std::error_code missing;
        return std::distance(fs::directory_iterator(home_.pathOf("Trash/files"), missing), {});
    }

    TemporaryFolder home_;
    TemporaryFolder tree_;
    HomePlatform platform_{home_.path()};
    DataFile totals_{home_.path()};
};

constexpr PutBackOutcome toItsPlace = PutBackOutcome::toItsPlace;

// As the inode numbers and dates of files on an unsteady volume.
TEST_F(PutBackTest, KnowsAFileOfAnUnsteadyVolumeByItsTrashInfo) {
    cleanSet({"a.txt", "b.txt"});
    const std::string trashed = home_.pathOf("Trash/files/b.txt");
    fs::last_write_time(trashed, fs::file_time_type::clock::now() - std::chrono::hours(1));
    EXPECT_EQ(examine(), (Outcomes{{"b.txt", PutBackOutcome::changed}}));
    platform_.fileSystem().jitterInodes();
    EXPECT_EQ(run(), (Outcomes{{"b.txt", PutBackOutcome::toItsPlace}}));
    EXPECT_EQ(contentOf(tree_.pathOf("b.txt")), "the same");
}

TEST_F(PutBackTest, LeavesAnotherFileOfAnUnsteadyVolumeInTheTrash) {
    cleanSet({"a.txt", "b.txt"});
    const std::string trash = home_.pathOf("Trash");
    platform_.fileSystem().jitterInodes();
    fs::last_write_time(trash + "/files/b.txt",
                        fs::file_time_type::clock::now() - std::chrono::hours(1));
    std::string info = contentOf(trash + "/info/b.txt.trashinfo");
    info.replace(info.find("/b.txt"), 6, "/c.txt");
    std::ofstream(trash + "/info/b.txt.trashinfo") << info;
    EXPECT_EQ(examine(), (Outcomes{{"b.txt", PutBackOutcome::changed}}));
    info.replace(info.find("/c.txt"), 6, "/b.txt");
    std::ofstream(trash + "/info/b.txt.trashinfo") << info;
    EXPECT_EQ(examine(), (Outcomes{{"b.txt", PutBackOutcome::toItsPlace}}));
    std::ofstream(trash + "/files/b.txt", std::ios::app) << "more";
    EXPECT_EQ(examine(), (Outcomes{{"b.txt", PutBackOutcome::changed}}));
}

TEST_F(PutBackTest, ListsTheNewestCleanUpBeforeRecoveryChecksFiles) {
    cleanSet({"a.txt", "b.txt", "c.txt"});
    {
        CleaningUser crashed(home_.path());
        const auto id = std::get<CleanUpId>(crashed.journal().begin({}));
        const std::vector<PlannedMove> moves{{tree_.pathOf("a.txt"), 1, 8, {}}};
        ASSERT_TRUE(std::holds_alternative<MoveRow>(crashed.journal().plan(id, moves)));
    }
    const FaultyFileSystem& files = platform_.fileSystem();
    std::optional<UncheckedCleanUp> listed;
    const auto opened = PutBack::open(platform_, totals_, [&](CleanUpJournal& journal) {
        listed = uncheckedCleanUp(journal, 1);
        EXPECT_EQ(files.calls(FileCall::attributesAtPath), 0U);
    });
    EXPECT_GT(files.calls(FileCall::attributesAtPath), 0U);
    ASSERT_TRUE(listed);
    EXPECT_EQ(listed->id, 1);
    EXPECT_EQ(listed->paths, std::vector{tree_.pathOf("b.txt")});
    EXPECT_EQ(listed->all, 2U);
    auto& journal = std::get<std::unique_ptr<PutBack>>(opened)->journal();
    EXPECT_EQ(uncheckedCleanUp(journal, 1, 2)->all, 0U);
    EXPECT_FALSE(uncheckedCleanUp(journal, 1, 3));
}

TEST(PutBackName, HasTheSuffixBeforeTheExtension) {
    EXPECT_EQ(putBackName("beach.jpg", 1, 255), "beach (put back).jpg");
    EXPECT_EQ(putBackName("beach.jpg", 2, 255), "beach (put back 2).jpg");
    EXPECT_EQ(putBackName("beach.jpg", 10'000, 255), "beach (put back 10000).jpg");
    EXPECT_EQ(putBackName("a.tar.gz", 1, 255), "a.tar (put back).gz");
    EXPECT_EQ(putBackName("README", 1, 255), "README (put back)");
    EXPECT_EQ(putBackName(".hidden", 1, 255), ".hidden (put back)");
    EXPECT_EQ(putBackName("end.", 1, 255), "end. (put back)");
}

TEST(PutBackName, IsTruncatedAtACharacterBoundary) {
    EXPECT_EQ(putBackName(std::string(251, 'n') + ".jpg", 1, 255),
              std::string(240, 'n') + " (put back).jpg");
    // 124 characters of two bytes; half of one would fit.
    std::string name;
    for (int count = 0; count < 124; ++count) {
        name += "\xC3\xA4";
    }
    const std::string given = putBackName(name + "n.jpg", 1, 255);
    EXPECT_EQ(given, name.substr(0, 240) + " (put back).jpg");
    const std::string odd = putBackName('n' + name + ".jpg", 1, 255);
    EXPECT_EQ(odd, 'n' + name.substr(0, 238) + " (put back).jpg");
}

TEST(PutBackWord, MatchesTheOutcome) {
    const std::vector<std::string> words = {"toItsPlace", "underOtherName", "withItsFolder",
                                            "lost",       "changed",        "notAttached",
                                            "refused",    "stopped"};
    for (std::size_t number = 0; number < words.size(); ++number) {
        const auto outcome = static_cast<PutBackOutcome>(number);
        EXPECT_EQ(putBackWord(outcome), words[number]);
        EXPECT_EQ(isBack(outcome), number < 3);
    }
}

TEST_F(PutBackTest, ReportsFilesInTheOrderOfTheirMoves) {
    cleanSet({"a/one.txt", "b/three.txt", "c/two.txt", "b/four.txt"});
    const Outcomes all = {
        {"b/three.txt", toItsPlace}, {"c/two.txt", toItsPlace}, {"b/four.txt", toItsPlace}};
    EXPECT_EQ(examine(), all);
    EXPECT_EQ(run(), all);
    EXPECT_EQ(examine(), Outcomes());
    EXPECT_EQ(contentOf(tree_.pathOf("b/four.txt")), "the same");
}

TEST_F(PutBackTest, PutsTenThousandFilesBack) {
    std::vector<std::string> names{"first.txt"};
    for (int number = 0; number < 10'000; ++number) {
        names.push_back(std::to_string(number % 50) + "/" + std::to_string(number) + ".txt");
    }
    cleanSet(names);
    ASSERT_EQ(trashed(), 10'000);
    EXPECT_EQ(totals_.alreadyDeletedCount(), 10'000);
    const Outcomes outcomes = run();
    EXPECT_EQ(outcomes.size(), 10'000U);
    EXPECT_TRUE(std::all_of(outcomes.begin(), outcomes.end(),
                            [](const auto& each) { return each.second == toItsPlace; }));
    EXPECT_TRUE(std::all_of(names.begin(), names.end(), [this](const std::string& name) {
        return fs::exists(tree_.pathOf(name));
    }));
    EXPECT_EQ(trashed(), 0);
    EXPECT_EQ(totals_.alreadyDeletedCount(), 0);
    EXPECT_EQ(totals_.alreadyDeletedSize(), 0U);
}

TEST_F(PutBackTest, RunsInOneProcessAtATime) {
    cleanSet({"a.txt", "b.txt", "c.txt"});
    const auto first = opened();
    const auto second = opened();
    std::vector<std::string> refusals;
    std::size_t reported = 0;
    const auto failure = first->run(
        1, {.stopped = {}, .report = [&](const PutBackFile&) {
                const auto refusal = second->run(
                    1, {.stopped = {}, .report = [&](const PutBackFile&) { ++reported; }});
                refusals.push_back(refusal ? refusal->text : "");
            }});
    EXPECT_FALSE(failure);
    const std::string inUse = "in use by another process";
    EXPECT_EQ(refusals, (std::vector<std::string>{inUse, inUse}));
    EXPECT_EQ(reported, 0U);
    // run() has released its claim.
    EXPECT_FALSE(second->run(1, {}));
}

TEST_F(PutBackTest, KilledAtAnyFileIsCompletedByTheNextRun) {
    const std::vector<std::string> names = {"a.txt", "b.txt", "c.txt", "d.txt", "e.txt"};
    for (std::size_t killAt = 1; killAt <= 4; ++killAt) {
        cleanSet(names);
        const auto id = static_cast<CleanUpId>(killAt);
        const pid_t child = ::fork();
        if (child == 0) {
            std::size_t reported = 0;
            static_cast<void>(opened()->run(id, {.stopped = {}, .report = [&](const PutBackFile&) {
                                                     // Renamed, but not recorded.
                                                     if (++reported == killAt) {
                                                         ::kill(::getpid(), SIGKILL);
                                                     }
                                                 }}));
            ::_exit(0);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status));
        ASSERT_EQ(trashed(), static_cast<std::ptrdiff_t>(4 - killAt));
        EXPECT_EQ(examine(id).size(), 4 - killAt);
        const Outcomes rest = run(id);
        EXPECT_EQ(rest.size(), 4 - killAt);
        for (const auto& [name, outcome] : rest) {
            EXPECT_EQ(outcome, toItsPlace) << name;
        }
        EXPECT_EQ(std::distance(fs::directory_iterator(tree_.path()), {}), 5);
        DataFile stored(home_.path());
        EXPECT_FALSE(stored.loadDataFile());
        EXPECT_EQ(stored.alreadyDeletedCount(), 0);
    }
}

TEST_F(PutBackTest, KilledAfterTheLastFileIsCountedByTheNextCheck) {
    cleanSet({"a.txt", "b.txt"});
    const pid_t child = ::fork();
    if (child == 0) {
        const auto putBack = opened();
        static_cast<void>(putBack->run(
            1, {.stopped = {}, .report = [](const PutBackFile&) { ::kill(::getpid(), SIGKILL); }}));
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    expectLast(NothingToPutBack::allBack);
    DataFile stored(home_.path());
    EXPECT_FALSE(stored.loadDataFile());
    EXPECT_EQ(stored.alreadyDeletedCount(), 0);
}

TEST_F(PutBackTest, KilledIsCountedByTheNextStart) {
    cleanSet({"a.txt", "b.txt", "c.txt", "d.txt"});
    // One of the files gets another name.
    tree_.writeFile("b.txt", "in the way");
    const pid_t child = ::fork();
    if (child == 0) {
        int reported = 0;
        static_cast<void>(opened()->run(1, {.stopped = {}, .report = [&](const PutBackFile&) {
                                                if (++reported == 2) {
                                                    ::kill(::getpid(), SIGKILL);
                                                }
                                            }}));
        ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    ASSERT_EQ(trashed(), 1);
    CleaningUser user(home_.path());
    DataFile stored(home_.path());
    EXPECT_FALSE(
        recoverCleanUps(systemFileSystem(), user.mover(), user.turns(), user.journal(), stored));
    EXPECT_EQ(stored.alreadyDeletedCount(), 1);
    EXPECT_TRUE(std::get<std::vector<CleanUpSummary>>(user.journal().crashed()).empty());
}

TEST_F(PutBackTest, LeavesNothingToRecoverAfterItEnds) {
    cleanSet({"a.txt", "b.txt", "c.txt"});
    run();
    CleaningUser user(home_.path());
    EXPECT_TRUE(std::get<std::vector<CleanUpSummary>>(user.journal().crashed()).empty());
}

TEST_F(PutBackTest, IsNotRecordedIfTheFlushFails) {
    cleanSet({"a.txt", "b.txt"});
    {
        const auto putBack = opened();
        platform_.trashCalls().fail(TrashCall::flush, EIO);
        const auto failure = putBack->run(1, {});
        ASSERT_TRUE(failure);
        EXPECT_EQ(failure->text, "Input/output error");
        EXPECT_EQ(contentOf(tree_.pathOf("b.txt")), "the same");
    }
    CleaningUser user(home_.path());
    const auto moved = user.journal().moves(1, {MoveState::moved}, 10);
    EXPECT_EQ(std::get<std::vector<JournalMove>>(moved).size(), 1U);
    platform_.trashCalls().heal();
    expectLast(NothingToPutBack::allBack);
}

TEST_F(PutBackTest, AccessesNoFolderAfterAStop) {
    cleanSet({"a.txt", "b.txt"});
    EXPECT_EQ(run(1, [] { return true; }), (Outcomes{{"b.txt", PutBackOutcome::stopped}}));
    EXPECT_EQ(platform_.fileSystem().calls(FileCall::openDirectory), 0U);
}

TEST_F(PutBackTest, LastIsTheNewestWithARestorableFile) {
    expectLast(NothingToPutBack::neverCleaned);
    cleanSet({"a.txt", "b.txt"});
    expectLast(1);
    cleanSet({"c.txt", "d.txt"});
    expectLast(2);
    std::ofstream(inTrash("d.txt"), std::ios::app) << "more";
    expectLast(1);
    run(1);
    expectLast(NothingToPutBack::noneInTrash);
}

TEST_F(PutBackTest, LastReportsThatAllIsBack) {
    cleanSet({"a.txt", "b.txt"});
    run();
    expectLast(NothingToPutBack::allBack);
}

TEST_F(PutBackTest, LastReportsAnEmptiedTrash) {
    cleanSet({"a.txt", "b.txt"});
    fs::remove(inTrash("b.txt"));
    expectLast(NothingToPutBack::noneInTrash);
    EXPECT_EQ(run(), (Outcomes{{"b.txt", PutBackOutcome::lost}}));
    expectLast(NothingToPutBack::noneInTrash);
}

TEST_F(PutBackTest, LastIgnoresCleanUpsWithoutMoves) {
    {
        CleaningUser user(home_.path());
        auto id = user.journal().begin({});
        EXPECT_FALSE(user.journal().finish(std::get<CleanUpId>(id)));
    }
    expectLast(NothingToPutBack::neverCleaned);
}

TEST_F(PutBackTest, KeepsFilesOfAnUnmountedDriveOfEachKindOfTrash) {
    const std::string top = tree_.makeFolder("drive");
    for (const char* trash : {"/.Trash-1000", "/.Trash/1000", "/.Trashes/501"}) {
        const CleanUpId id = recordMove(top + "/a.txt", top + trash);
        EXPECT_EQ(examine(id), (Outcomes{{"drive/a.txt", PutBackOutcome::notAttached}})) << trash;
    }
}

TEST_F(PutBackTest, KeepsFilesOfAnUnmountedDrive) {
    // In the Trash of a volume of which only the mount point exists.
    const std::string top = tree_.makeFolder("drive");
    recordMove(top + "/a.txt", top + "/.Trash-" + std::to_string(::getuid()));
    EXPECT_EQ(examine(), (Outcomes{{"drive/a.txt", PutBackOutcome::notAttached}}));
    EXPECT_EQ(run(), (Outcomes{{"drive/a.txt", PutBackOutcome::notAttached}}));
    expectLast(1);
    fs::remove(top);
    EXPECT_EQ(examine(), (Outcomes{{"drive/a.txt", PutBackOutcome::notAttached}}));
    fs::create_directory(top);
    // Mounted, but its Trash is empty.
    const Mount mount("none", top, "tmpfs");
    if (mount) {
        EXPECT_EQ(run(), (Outcomes{{"drive/a.txt", PutBackOutcome::lost}}));
        expectLast(NothingToPutBack::noneInTrash);
    }
}

TEST_F(PutBackTest, RemovesFoldersCreatedInVain) {
    cleanSet({"a.txt", "b/c/d/e.txt"});
    fs::remove_all(tree_.pathOf("b/c"));
    // Another volume, so that rename() fails.
    const Mount mount("none", tree_.pathOf("b"), "tmpfs");
    if (mount) {
        EXPECT_EQ(run(), (Outcomes{{"b/c/d/e.txt", PutBackOutcome::refused}}));
        EXPECT_TRUE(fs::is_empty(tree_.pathOf("b")));
        EXPECT_EQ(trashed(), 1);
    }
}

TEST_F(PutBackTest, CreatesMissingFoldersOnce) {
    cleanSet({"a.txt", "b/c/d.txt", "b/c/e.txt"});
    fs::remove_all(tree_.pathOf("b"));
    EXPECT_EQ(run(),
              (Outcomes{{"b/c/d.txt", PutBackOutcome::withItsFolder}, {"b/c/e.txt", toItsPlace}}));
    EXPECT_EQ(contentOf(tree_.pathOf("b/c/e.txt")), "the same");
}

TEST_F(PutBackTest, RefusesAFolderReplacedByAFile) {
    cleanSet({"a.txt", "b/c.txt"});
    fs::remove(tree_.pathOf("b"));
    tree_.writeFile("b", "no folder");
    EXPECT_EQ(run(), (Outcomes{{"b/c.txt", PutBackOutcome::refused}}));
    EXPECT_EQ(contentOf(tree_.pathOf("b")), "no folder");
}

TEST_F(PutBackTest, RefusesAFolderReplacedByASymlink) {
    cleanSet({"a.txt", "b/c.txt", "d/e/f.txt"});
    fs::rename(tree_.pathOf("b"), tree_.pathOf("old b"));
    tree_.makeLink("b", "old b");
    fs::rename(tree_.pathOf("d"), tree_.pathOf("old d"));
    tree_.makeLink("d", "old d");
    std::vector<std::string> reasons;
    const auto keep = [&reasons](const PutBackFile& file) {
        EXPECT_EQ(file.outcome, PutBackOutcome::refused);
        EXPECT_EQ(file.error.code, ELOOP);
        reasons.push_back(file.reason);
        return true;
    };
    EXPECT_FALSE(opened()->examine(1, keep));
    EXPECT_FALSE(opened()->run(1, {.stopped = {}, .report = keep}));
    EXPECT_EQ(reasons, std::vector<std::string>(4, "its folder is a link now"));
    EXPECT_EQ(trashed(), 2);
}

TEST_F(PutBackTest, UsesTheResolvedPath) {
    const std::string real = tree_.writeFile("real/b.txt", "the same");
    tree_.makeLink("link", "real");
    cleanPaths({tree_.writeFile("a.txt", "the same"), tree_.pathOf("link/b.txt")});
    ASSERT_FALSE(fs::exists(real));
    // The symlink now leads to another folder.
    fs::remove(tree_.pathOf("link"));
    tree_.makeFolder("other");
    tree_.makeLink("link", "other");
    EXPECT_EQ(run(), (Outcomes{{"real/b.txt", toItsPlace}}));
    EXPECT_EQ(contentOf(real), "the same");
    EXPECT_TRUE(fs::is_empty(tree_.pathOf("other")));
}

TEST_F(PutBackTest, RejectsAnotherFileOfTheSameNameInTheTrash) {
    cleanSet({"a.txt", "b.txt"});
    fs::rename(inTrash("b.txt"), inTrash("b.old"));
    std::ofstream(inTrash("b.txt")) << "the same";
    EXPECT_EQ(run(), (Outcomes{{"b.txt", PutBackOutcome::changed}}));
    EXPECT_FALSE(fs::exists(tree_.pathOf("b.txt")));
}

TEST_F(PutBackTest, ReportsRemainingFilesAsStopped) {
    cleanSet({"a.txt", "b.txt", "c.txt", "d.txt"});
    int asked = 0;
    EXPECT_EQ(run(1, [&asked] { return ++asked == 2; }),
              (Outcomes{{"b.txt", toItsPlace},
                        {"c.txt", PutBackOutcome::stopped},
                        {"d.txt", PutBackOutcome::stopped}}));
    EXPECT_EQ(trashed(), 2);
    EXPECT_EQ(totals_.alreadyDeletedCount(), 2);
    EXPECT_EQ(run(), (Outcomes{{"c.txt", toItsPlace}, {"d.txt", toItsPlace}}));
}

TEST_F(PutBackTest, IgnoresFilesThatAnotherProgramPutBack) {
    cleanSet({"a.txt", "b.txt", "c.txt"});
    fs::rename(inTrash("b.txt"), tree_.pathOf("b.txt"));
    EXPECT_EQ(examine(), (Outcomes{{"c.txt", toItsPlace}}));
    EXPECT_EQ(run(), (Outcomes{{"c.txt", toItsPlace}}));
    EXPECT_EQ(totals_.alreadyDeletedCount(), 0);
    expectLast(NothingToPutBack::allBack);
}

}  // namespace
}  // namespace tarvin
