#include "cli/restore_bench.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <fstream>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// A journal that cannot be used.
class RestoreJournal : public RestoreBench {
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
            EXPECT_EQ(result.errors, "tarvin: " + path + ": " + reason + "\n");
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
    std::fstream file(journal(), std::ios::in | std::ios::out | std::ios::binary);
    // The version of the schema in the header of a database, the last of four bytes.
    file.seekp(63);
    file.put(9);
    file.close();
    expectRefused(journal(), "written by a newer version of the program");
}

TEST_F(RestoreJournal, ThatIsLockedIsNamed) {
    const int held = ::open(journal().c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(held, 0);
    // Where a database is locked by whoever writes it.
    struct flock whole{};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    whole.l_start = 0x40000000;
    whole.l_len = 512;
    ASSERT_EQ(::fcntl(held, F_SETLK, &whole), 0);
    const ProgramResult result = restore();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: " + journal() + ": in use by another process\n");
    ::close(held);
    EXPECT_EQ(restore().status, 0);
}

TEST_F(RestoreJournal, WhoseTotalsAreDamagedPutsBackAndSaysSo) {
    const std::string totals = fs::path(journal()).parent_path().string() + "/data.plist";
    std::ofstream(totals) << "damaged";
    const ProgramResult result = restore();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: " + totals + ": could not be used; it is kept as " + totals +
                                 ".unreadable and a new one was begun\n");
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
