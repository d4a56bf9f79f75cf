// Each system call of a clean-up fails once. `clean_trials` does the same for the calls of its
// moves alone.

#include "clean/clean_up_fixture.h"
#include "clean/recovery.h"
#include "platform/linux/trash_mover.h"
#include "store/clean_up_totals.h"
#include "store/data_file.h"
#include "support/faulty_database.h"
#include "support/faulty_trash_calls.h"
#include "support/file_content.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// Three sets of three files, two of each marked, and a new home for each trial. Some files have
/// other permissions than at the scan, so that their bytes are compared again; the unmarked file of
/// the third set has other bytes of the same size and date.
class FailingCalls : public ::testing::Test {
 protected:
    using Prepare = std::function<void()>;

    /// Writes the files anew and removes Trash and journal.
    void renew() {
        fs::remove_all(home_);
        fs::remove_all(folder_.pathOf("tree"));
        fs::create_directory(home_);
        calls_ = std::make_unique<FaultyTrashCalls>();
        fileSystem_.clearFaults();
        originals_.clear();
        for (const char* place : {"tree/a/", "tree/b/", "tree/c/"}) {
            for (const std::string name : {"one.txt", "two.txt", "six.txt"}) {
                std::string content = "content of " + name;
                originals_[folder_.writeFile(place + name, content)] = content;
            }
        }
    }

    [[nodiscard]] std::string path(const std::string& name) const {
        return folder_.pathOf("tree/" + name);
    }

    void forge(const std::string& path) {
        const auto date = fs::last_write_time(path);
        originals_[path] = "CONTENT of six.txt";
        std::ofstream(path) << originals_[path];
        fs::last_write_time(path, date);
    }

    /// Cleans up as CleanUpRun does. Calls `begun` when only the journal has been opened.
    void clean(const Prepare& begun, const std::function<void(MoveStep)>& beforeStep = {}) {
        CleaningUser user(home_);
        ComparedFiles files;
        files.addSet({path("a/one.txt"), path("b/one.txt"), path("c/one.txt")});
        files.addSet({path("a/two.txt"), path("b/two.txt"), path("c/two.txt")});
        files.addSet({path("a/six.txt"), path("b/six.txt"), path("c/six.txt")});
        forge(path("a/six.txt"));
        fs::permissions(path("b/one.txt"), fs::perms::owner_read);
        fs::permissions(path("a/two.txt"), fs::perms::owner_read);
        TrashSurroundings around = systemTrashSurroundings();
        const std::unique_ptr<TrashMover> trash =
            makeTrashMover({user.trash(), static_cast<std::uint32_t>(::getuid())},
                           {*calls_, around.clock, around.mountTable});
        CleanUp::Settings settings;
        settings.folderMaxAge = {};
        settings.beforeStep = beforeStep;
        report_.clear();
        settings.report = [this](const File& file, const MoveResult& result) {
            report_.emplace_back(file.filePath(), result);
        };
        CleanUp cleanUp(fileSystem_, *trash, user.journal(), user.turns(), systemPlatform().clock(),
                        std::move(settings));
        Modal& modal = files.marked();
        begun();
        DeletionControl control;
        DeletionWalk walk(modal, cleanUp, control, {});
        walk.run();
        // The next start recovers what cannot be written now.
        static_cast<void>(cleanUp.finish());
        DataFile totals(home_);
        static_cast<void>(settleTotals(totals, user.journal()));
    }

    /// Recovers as at the next start and expects that nothing is lost.
    void expectNothingLost(const std::string& trial, std::size_t maxTrashed = 9) {
        SCOPED_TRACE(trial);
        calls_->heal();
        fileSystem_.clearFaults();
        CleaningUser user(home_);
        DataFile totals(home_);
        ASSERT_FALSE(
            recoverCleanUps(fileSystem_, user.mover(), user.turns(), user.journal(), totals));
        const std::map<std::string, std::string> inTrash = expectTrashInfosAndRows(user);
        std::map<std::string, std::size_t> living;
        std::uint64_t size = 0;
        for (const auto& [path, content] : originals_) {
            const auto trashed = inTrash.find(path);
            const bool isLiving = contentOf(path) == content;
            living[content] += std::size_t{isLiving};
            size += trashed == inTrash.end() ? 0 : content.size();
            ASSERT_TRUE(isLiving || (trashed != inTrash.end() && trashed->second == content))
                << path;
        }
        for (const auto& [content, count] : living) {
            ASSERT_TRUE(count > 0 || content == removedContent_) << content;
        }
        ASSERT_LE(inTrash.size(), maxTrashed);
        ASSERT_EQ(totals.alreadyDeletedCount(), static_cast<std::int64_t>(inTrash.size()));
        ASSERT_EQ(totals.alreadyDeletedSize(), size);
    }

    FaultyDatabase database_;
    TemporaryFolder folder_{quickFolder()};
    const std::string home_ = folder_.pathOf("home");
    std::map<std::string, std::string> originals_;
    std::unique_ptr<FaultyTrashCalls> calls_;
    FaultyFileSystem fileSystem_;
    std::vector<std::pair<std::string, MoveResult>> report_;
    std::string
        removedContent_;  ///< content whose other copies the test removes; the last may be trashed

 private:
    /// Returns the contents of the files in the Trash by original path. Expects a complete
    /// .trashinfo file and a journal row for each, and no row without a file.
    static std::map<std::string, std::string> expectTrashInfosAndRows(CleaningUser& user) {
        std::set<std::string> rows;
        const auto all = user.journal().cleanUps();
        for (const CleanUpSummary& cleanUp : std::get<std::vector<CleanUpSummary>>(all)) {
            EXPECT_TRUE(cleanUp.finished);
            // If a plan was written and could not be flushed, nothing was moved.
            EXPECT_TRUE(cleanUp.unsettledFiles == 0 || cleanUp.movedFiles == 0);
            EXPECT_FALSE(user.journal().forEachMove(cleanUp.id, {MoveState::moved},
                                                    CleanUpJournal::Order::asPlanned,
                                                    [&rows](const JournalMove& move) {
                                                        rows.insert(move.trashName);
                                                        return true;
                                                    }));
        }
        std::map<std::string, std::string> inTrash;
        std::error_code missing;
        for (const auto& entry : fs::directory_iterator(user.trash() + "/files", missing)) {
            const std::string name = entry.path().filename();
            EXPECT_EQ(rows.erase(name), 1U) << name;
            inTrash[pathInTrashInfo(user.trash() + "/info/" + name + ".trashinfo")] =
                contentOf(entry.path());
        }
        EXPECT_TRUE(rows.empty()) << *rows.begin();
        return inTrash;
    }

    static std::string pathInTrashInfo(const std::string& file) {
        const std::string text = contentOf(file);
        const std::string head = "[Trash Info]\nPath=";
        const std::size_t end = text.find("\nDeletionDate=");
        EXPECT_TRUE(text.starts_with(head) && end != std::string::npos &&
                    text.size() == end + std::string("\nDeletionDate=2026-01-31T12:00:00\n").size())
            << file << ": " << text;
        return end == std::string::npos ? "" : text.substr(head.size(), end - head.size());
    }
};

TEST_F(FailingCalls, ForMetadataAndReadsLoseNothing) {
    std::size_t trials = 0;
    for (const FileCall call : {FileCall::openRootDirectory, FileCall::openDirectory,
                                FileCall::attributesAt, FileCall::attributesAtPath,
                                FileCall::attributesOf, FileCall::openFile, FileCall::readAt}) {
        for (const int code : {EIO, ENOENT, ESTALE, EMFILE}) {
            bool hasFailed = true;
            for (std::uint64_t number = 1; hasFailed; ++number) {
                renew();
                const std::uint64_t before = fileSystem_.calls(call);
                clean([&] { fileSystem_.failCall(call, number, code); });
                hasFailed = fileSystem_.calls(call) - before >= number;
                expectNothingLost("call " + std::to_string(static_cast<int>(call)) + ", number " +
                                  std::to_string(number) + ", code " + std::to_string(code));
                ASSERT_FALSE(HasFatalFailure());
                trials += std::size_t{hasFailed};
            }
        }
    }
    EXPECT_GE(trials, 200U);
}

TEST_F(FailingCalls, ForMetadataThatAlwaysFailKeepEveryFile) {
    for (const FileCall call :
         {FileCall::openRootDirectory, FileCall::attributesAt, FileCall::attributesOf}) {
        renew();
        clean([&] { fileSystem_.failCall(call, FaultyFileSystem::each, EIO); });
        ASSERT_EQ(report_.size(), 6U);
        for (const auto& [path, result] : report_) {
            EXPECT_EQ(result, (MoveResult{MoveOutcome::refused, "Input/output error",
                                          TrashRefusalKind::system, SystemError{EIO}}));
        }
        expectNothingLost("call " + std::to_string(static_cast<int>(call)), 0);
    }
}

TEST_F(FailingCalls, ForTheJournalLoseNothing) {
    std::size_t trials = 0;
    for (const auto fault : {FaultyDatabase::Fault::device, FaultyDatabase::Fault::full}) {
        bool hasFailed = true;
        for (std::size_t number = 0; hasFailed; ++number) {
            renew();
            clean([&] { database_.failOnce(number, fault); });
            hasFailed = database_.hasFailed();
            database_.heal();
            expectNothingLost("number " + std::to_string(number));
            ASSERT_FALSE(HasFatalFailure());
            trials += std::size_t{hasFailed};
        }
    }
    EXPECT_GE(trials, 50U);
}

// The other files of the set are removed during the move, so that the file is moved back.
TEST_F(FailingCalls, ForMovingBackLoseNothing) {
    std::size_t trials = 0;
    std::size_t stayed = 0;
    removedContent_ = "content of one.txt";
    for (const int code : {EIO, EACCES, ENOSPC, EXDEV, ENOENT, EEXIST, EINVAL}) {
        bool hasFailed = true;
        for (std::size_t number = 0; hasFailed; ++number) {
            renew();
            originals_.erase(path("a/one.txt"));
            originals_.erase(path("c/one.txt"));
            bool isDone = false;
            clean([] {},
                  [&](MoveStep step) {
                      if (step == MoveStep::recheck && !std::exchange(isDone, true)) {
                          fs::remove(path("a/one.txt"));
                          fs::remove(path("c/one.txt"));
                      } else if (step == MoveStep::moveBack) {
                          calls_->failOnce(number, code);
                      }
                  });
            hasFailed = calls_->hasFailed();
            trials += std::size_t{hasFailed};
            const bool isBack = fs::exists(path("b/one.txt"));
            ASSERT_TRUE(isBack || hasFailed);
            stayed += std::size_t{!isBack};
            expectNothingLost("number " + std::to_string(number) + ", code " +
                              std::to_string(code));
            ASSERT_FALSE(HasFatalFailure());
        }
    }
    EXPECT_GE(trials, 10U);
    EXPECT_GE(stayed, 1U);
}

/// The turn file cannot be opened.
TEST_F(FailingCalls, ForTheLockKeepEveryFileAndReportWhy) {
    const std::string turns = home_ + "/turns";
    const std::vector<std::pair<Prepare, std::string>> trials{
        {[&] { fs::create_directory(turns); }, "Is a directory"},
        {[&] { fs::create_symlink(folder_.path(), turns); }, "Too many levels of symbolic links"},
        {[&] { ::mkfifo(turns.c_str(), 0600); }, "Operation not permitted"}};
    for (const auto& [make, reason] : trials) {
        renew();
        clean(make);
        ASSERT_EQ(report_.size(), 6U);
        for (const auto& [path, result] : report_) {
            EXPECT_EQ(result.outcome, MoveOutcome::refused);
            EXPECT_EQ(result.reason, reason);
        }
        expectNothingLost(reason, 0);
    }
}

}  // namespace
}  // namespace tarvin
