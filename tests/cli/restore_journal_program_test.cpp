#include "cli/restore_fixture.h"

#include <gmock/gmock.h>

#include <fstream>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// A journal that cannot be used.
class RestoreJournal : public RestoreFixture {
 protected:
    RestoreJournal() {
        writeEqual({"a.jpg", "b.jpg"});
        clean();
    }

    void expectRefused(const std::string& path, const std::string& reason) const {
        for (const ProgramRun::Words& words :
             {ProgramRun::Words{"restore", "--yes"}, ProgramRun::Words{"restore", "--list"}}) {
            const ProgramResult result = tarvin(words);
            EXPECT_EQ(result.status, 1);
            EXPECT_EQ(result.output, "");
            EXPECT_EQ(result.errors,
                      "tarvin: cannot open journal '" + path + "': " + reason + "\n");
        }
        EXPECT_EQ(trashed(), 1U);
    }
};

TEST_F(RestoreJournal, ThatIsDamagedIsNamed) {
    std::ofstream(journal()) << std::string(5000, 'x');
    expectRefused(journal(), "the file is damaged");
    EXPECT_EQ(contentOf(journal()), std::string(5000, 'x'));
}

TEST_F(RestoreJournal, OfANewerVersionIsNamed) {
    makeJournalNewer();
    expectRefused(journal(), "written by a newer version of the program");
}

TEST_F(RestoreJournal, ThatIsLockedIsNamed) {
    Descriptor lock = lockedJournal();
    ASSERT_TRUE(lock.isOpen());
    const ProgramResult result = restore();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors,
              "tarvin: cannot open journal '" + journal() + "': in use by another process\n");
    lock.reset();
    EXPECT_EQ(restore().status, 0);
}

TEST_F(RestoreJournal, DamagedTotalsAreMovedAside) {
    const std::string totals = fs::path(journal()).parent_path().string() + "/data.plist";
    std::ofstream(totals) << "damaged";
    const ProgramResult result = restore();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: '" + totals + "' is damaged; kept as '" + totals +
                                 ".unreadable', and a new file was started\n");
    EXPECT_EQ(trashed(), 0U);
}

TEST_F(RestoreJournal, TotalsNeverFallBelowZero) {
    const std::string totals = fs::path(journal()).parent_path().string() + "/data.plist";
    ASSERT_TRUE(fs::remove(totals));
    EXPECT_EQ(restore().status, 0);
    EXPECT_EQ(tarvin({"totals"}).output, "Files cleaned so far: 0 (0.00 KB)\n");
}

}  // namespace
}  // namespace tarvin
