// Clean-ups of users other than root, on a shared volume.

#include "clean/clean_up_fixture.h"
#include "clean/put_back.h"
#include "store/clean_up_totals.h"
#include "support/as_user.h"
#include "support/fake_platform.h"
#include "support/file_content.h"
#include "support/loop_volume.h"
#include "support/skip.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

constexpr unsigned ann = 12'345;
constexpr unsigned bob = 12'346;

/// Files on a volume that all users can write to; the homes are elsewhere.
class SecondUser : public ::testing::Test {
 protected:
    /// Returns false if there is no volume or the process cannot change its user.
    bool hasVolume() {
        if (!volume_ || ::geteuid() != 0) {
            skipTest("only root can become another user");
            return false;
        }
        const fs::path top = fs::path(volume_.pathOf("x")).parent_path();
        fs::permissions(top, fs::perms::all);
        fs::permissions(top.parent_path(), fs::perms::owner_all | fs::perms::others_exec);
        fs::permissions(homes_.path(), fs::perms::owner_all | fs::perms::others_exec);
        return true;
    }

    [[nodiscard]] std::string homeOf(unsigned user) const {
        const std::string home = homes_.makeFolder(std::to_string(user));
        EXPECT_EQ(::chown(home.c_str(), user, user), 0);
        return home;
    }

    /// In a process of the user: writes a set of three files and cleans it up.
    void clean(const std::string& home, const std::string& place) {
        for (const char* name : {"one.txt", "two.txt", "three.txt"}) {
            fs::create_directories(volume_.pathOf(place));
            std::ofstream(volume_.pathOf(place + name)) << "same";
        }
        CleaningUser user(home);
        ComparedFiles files;
        files.addSet({volume_.pathOf(place + "one.txt"), volume_.pathOf(place + "two.txt"),
                      volume_.pathOf(place + "three.txt")});
        EXPECT_EQ(cleanUp(files.marked(), user, systemFileSystem()),
                  (MoveReport{{"two.txt", MoveOutcome::moved}, {"three.txt", MoveOutcome::moved}}));
        DataFile totals(home);
        EXPECT_FALSE(settleTotals(totals, user.journal()));
    }

    /// In a process of the user: puts the first clean-up back.
    void putBack(const std::string& home, const std::string& place) {
        FakePlatform platform;
        platform.setApplicationSupportFolder(home);
        platform.useTrashOf({home + "/Trash", static_cast<std::uint32_t>(::geteuid())},
                            [](const std::string&) {});
        DataFile totals(home);
        auto opened = PutBack::open(platform, totals);
        ASSERT_TRUE(std::holds_alternative<std::unique_ptr<PutBack>>(opened));
        std::vector<PutBackOutcome> outcomes;
        const auto failure = std::get<std::unique_ptr<PutBack>>(opened)->run(
            1, {.stopped = {},
                .report = [&](const PutBackFile& file) { outcomes.push_back(file.outcome); }});
        EXPECT_FALSE(failure);
        EXPECT_EQ(outcomes, std::vector<PutBackOutcome>(2, PutBackOutcome::toItsPlace));
        EXPECT_EQ(contentOf(volume_.pathOf(place + "three.txt")), "same");
        EXPECT_EQ(totals.alreadyDeletedCount(), 0);
    }

    static void expectTrash(const std::string& path, unsigned owner, std::ptrdiff_t files) {
        for (const std::string part : {"", "/files", "/info"}) {
            struct stat status{};
            ASSERT_EQ(::stat((path + part).c_str(), &status), 0) << path << part;
            EXPECT_EQ(status.st_uid, owner) << path << part;
            EXPECT_EQ(status.st_mode & 07777U, 0700U) << path << part;
        }
        for (const std::string part : {"/files", "/info"}) {
            EXPECT_EQ(std::distance(fs::directory_iterator(path + part), {}), files) << path;
        }
    }

    const LoopVolume volume_;
    const TemporaryFolder homes_;
};

TEST_F(SecondUser, GetsTheirOwnTrashOnAVolume) {
    if (!hasVolume()) {
        return;
    }
    for (const unsigned user : {ann, bob}) {
        const std::string home = homeOf(user);
        const std::string place = std::to_string(user) + "/";
        asUser(user, [&] { clean(home, place); });
        expectTrash(volume_.pathOf(".Trash-" + std::to_string(user)), user, 2);
        EXPECT_FALSE(fs::exists(home + "/Trash"));
    }
    for (const unsigned user : {ann, bob}) {
        asUser(user, [&] { putBack(homeOf(user), std::to_string(user) + "/"); });
        expectTrash(volume_.pathOf(".Trash-" + std::to_string(user)), user, 0);
    }
    EXPECT_FALSE(fs::exists(volume_.pathOf(".Trash-0")));
}

TEST_F(SecondUser, GetsAFolderInTheSharedTrash) {
    if (!hasVolume()) {
        return;
    }
    fs::create_directory(volume_.pathOf(".Trash"));
    ASSERT_EQ(::chmod(volume_.pathOf(".Trash").c_str(), 01777), 0);
    for (const unsigned user : {ann, bob}) {
        const std::string home = homeOf(user);
        asUser(user, [&] { clean(home, std::to_string(user) + "/"); });
        expectTrash(volume_.pathOf(".Trash/" + std::to_string(user)), user, 2);
    }
    asUser(ann, [&] { putBack(homeOf(ann), std::to_string(ann) + "/"); });
    expectTrash(volume_.pathOf(".Trash/" + std::to_string(ann)), ann, 0);
    expectTrash(volume_.pathOf(".Trash/" + std::to_string(bob)), bob, 2);
}

TEST_F(SecondUser, RejectsATrashCreatedByAnotherUser) {
    if (!hasVolume()) {
        return;
    }
    const std::string trash = volume_.pathOf(".Trash-" + std::to_string(ann));
    fs::create_directory(volume_.pathOf("ann"));
    ASSERT_EQ(::chown(volume_.pathOf("ann").c_str(), ann, ann), 0);
    asUser(bob, [&] {
        for (const std::string part : {"", "/files", "/info"}) {
            fs::create_directory(trash + part);
            fs::permissions(trash + part, fs::perms::all);
        }
    });
    const std::string home = homeOf(ann);
    asUser(ann, [&] {
        for (const char* name : {"ann/one.txt", "ann/two.txt"}) {
            std::ofstream(volume_.pathOf(name)) << "same";
        }
        CleaningUser user(home);
        ComparedFiles files;
        files.addSet({volume_.pathOf("ann/one.txt"), volume_.pathOf("ann/two.txt")});
        CleanUp::Settings settings;
        settings.report = [](const File&, const MoveResult& result) {
            EXPECT_EQ(result.reason, "the Trash of this volume belongs to somebody else");
        };
        CleanUp cleanUp(systemFileSystem(), user.mover(), user.journal(), user.turns(),
                        systemPlatform().clock(), std::move(settings));
        DeletionControl control;
        DeletionWalk walk(files.marked(), cleanUp, control, {});
        EXPECT_EQ(walk.run().deletedFilesCount, 0U);
        EXPECT_FALSE(cleanUp.finish());
        EXPECT_EQ(contentOf(volume_.pathOf("ann/two.txt")), "same");
    });
    EXPECT_TRUE(fs::is_empty(trash + "/files"));
    EXPECT_TRUE(fs::is_empty(trash + "/info"));
}

}  // namespace
}  // namespace tarvin
