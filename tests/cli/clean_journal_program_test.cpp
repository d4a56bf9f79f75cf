#include "cli/restore_fixture.h"
#include "support/mount.h"

#include <filesystem>
#include <fstream>
#include <string>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// Without a usable journal no file is moved.
class CleanJournal : public RestoreFixture {
 protected:
    /// The journal has one clean-up; there is another set to clean.
    CleanJournal() {
        writeEqual({"a.jpg", "b.jpg"});
        clean();
        writeEqual({"c.jpg", "d.jpg", "e.jpg"}, "others");
    }

    /// The clean-up does not begin and reports the reason.
    void expectRefused(const std::string& reason) const { expectRefused(journal(), reason); }
    void expectRefused(const std::string& path, const std::string& reason) const {
        const Tree before = treeOf(photos());
        for (const std::string format : {"text", "json", "csv"}) {
            const ProgramResult result = tarvin({"clean", "--yes", "--format", format, photos()});
            EXPECT_EQ(result.status, 1);
            EXPECT_EQ(result.errors, "tarvin: cannot open journal '" + path + "': " + reason +
                                         "\ntarvin: nothing was moved\n");
            EXPECT_EQ(result.output, "") << format;
        }
        expectNothingMoved(before);
    }

    /// The clean-up ends before the first move, which could not be recorded.
    void expectStopped(const std::string& reason, const std::string& more = "") const {
        const Tree before = treeOf(photos());
        const ProgramResult result = tarvin({"clean", "--yes", photos()});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.errors,
                  "tarvin: cannot write journal '" + journal() + "': " + reason + "\n" + more);
        EXPECT_EQ(result.output,
                  "Stopped early; the remaining files were not moved.\nDuplicates Cleaned: "
                  "0\nSpace Regained: 0.00 KB \n");
        expectNothingMoved(before);
    }

    /// The message about a damaged journal.
    [[nodiscard]] std::string movedAside() const {
        return "tarvin: '" + journal() + "' is kept as '" + journal() +
               ".unreadable'; the next clean-up starts a new journal\n";
    }

    void expectCleanedNow() const {
        const ProgramResult result = tarvin({"clean", "--yes", photos()});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.errors, "");
        EXPECT_EQ(trashed(), 3U);
    }

    void expectNothingMoved(const Tree& before) const {
        EXPECT_EQ(treeOf(photos()), before);
        EXPECT_EQ(trashed(), 1U);
        EXPECT_EQ(trashInfos(), 1U);
    }

    [[nodiscard]] std::string support() const { return fs::path(journal()).parent_path(); }
};

TEST_F(CleanJournal, DamagedIsMovedAsideAndStopsTheCleanUp) {
    std::ofstream(journal()) << std::string(5000, 'x');
    const Tree before = treeOf(photos());
    const ProgramResult result = tarvin({"clean", "--yes", photos()});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot open journal '" + journal() +
                                 "': the file is damaged\n" + movedAside() +
                                 "tarvin: nothing was moved\n");
    EXPECT_EQ(result.output, "");
    expectNothingMoved(before);
    EXPECT_EQ(contentOf(journal() + ".unreadable"), std::string(5000, 'x'));
    expectCleanedNow();
}

TEST_F(CleanJournal, DamagedAfterTheFirstPageIsMovedAsideAndStopsTheCleanUp) {
    const std::string whole = contentOf(journal());
    std::ofstream(journal()) << whole.substr(0, 4096) << std::string(whole.size() - 4096, 'x');
    expectStopped("the file is damaged", movedAside());
    EXPECT_EQ(contentOf(journal() + ".unreadable").size(), whole.size());
    expectCleanedNow();
}

TEST_F(CleanJournal, OfANewerVersionStopsTheCleanUp) {
    makeJournalNewer();
    const std::string before = contentOf(journal());
    expectRefused("written by a newer version of the program");
    EXPECT_EQ(contentOf(journal()), before);
}

TEST_F(CleanJournal, LockedForTooLongStopsTheCleanUp) {
    Descriptor lock = lockedJournal();
    ASSERT_TRUE(lock.isOpen());
    const ProgramResult result = tarvin({"clean", "--yes", photos()});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot open journal '" + journal() +
                                 "': in use by another process\n"
                                 "tarvin: nothing was moved\n");
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(treeOf(photos()).size(), 4U);
    EXPECT_EQ(trashed(), 1U);
    lock.reset();
    EXPECT_EQ(tarvin({"clean", "--yes", photos()}).status, 0);
    EXPECT_EQ(trashed(), 3U);
}

TEST_F(CleanJournal, ReplacedByAFolderIsMovedAsideAndStopsTheCleanUp) {
    fs::remove(journal());
    fs::create_directory(journal());
    const Tree before = treeOf(photos());
    const ProgramResult result = tarvin({"clean", "--yes", photos()});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot open journal '" + journal() + "': Is a directory\n" +
                                 movedAside() + "tarvin: nothing was moved\n");
    expectNothingMoved(before);
    expectCleanedNow();
}

/// The data folder on a separate small volume, which is full.
class CleanJournalOnAFullDisk : public CleanJournal {
 protected:
    static void fill(const std::string& folder) {
        for (const std::size_t size : {65536U, 4096U, 1U}) {
            std::ofstream file(folder + "/full" + std::to_string(size));
            while (file << std::string(size, 'x') << std::flush) {
            }
        }
    }
};

TEST_F(CleanJournalOnAFullDisk, CannotBeWrittenAndStopsTheCleanUp) {
    const std::string kept = folder_.pathOf("kept");
    fs::rename(support(), kept);
    fs::create_directory(support());
    const Mount disk("none", support(), "tmpfs", 0, "size=1m");
    if (disk) {
        fs::copy(kept, support());
        fill(support());
        expectStopped("No space left on device");
    }
}

TEST_F(CleanJournalOnAFullDisk, CannotBeCreatedAndStopsTheCleanUp) {
    fs::remove_all(support());
    fs::create_directory(support());
    const Mount disk("none", support(), "tmpfs", 0, "size=1m");
    if (disk) {
        fill(support());
        expectRefused("No space left on device");
    }
}

TEST_F(CleanJournalOnAFullDisk, WithoutFreeInodesStopsTheCleanUp) {
    fs::remove_all(support());
    fs::create_directory(support());
    // One inode is the folder itself.
    const Mount disk("none", support(), "tmpfs", 0, "size=1m,nr_inodes=2");
    if (disk) {
        expectRefused("No space left on device");
    }
}

TEST_F(CleanJournalOnAFullDisk, OnAReadOnlyVolumeStopsTheCleanUp) {
    fs::remove_all(support());
    fs::create_directory(support());
    const Mount disk("none", support(), "tmpfs", MS_RDONLY);
    if (disk) {
        expectRefused(support() + "/clean-ups.lock", "Read-only file system");
    }
}

}  // namespace
}  // namespace tarvin
