#include "cli/restore_fixture.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <string>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// Empty files are identical, and are moved and restored like others.
class EmptyFiles : public RestoreFixture {
 protected:
    EmptyFiles() { writeEqual({"a.txt", "b.txt", "c/a.txt", "d.txt"}, ""); }
};

TEST_F(EmptyFiles, AllButOneAreMovedAndRestoredWithTheirDates) {
    writeEqual({"one.txt"}, "x");
    const Tree before = treeOf(photos());
    const ProgramResult cleaned = tarvin({"clean", "--yes", photos()});
    EXPECT_EQ(cleaned.status, 0);
    EXPECT_TRUE(cleaned.output.ends_with("Duplicates Cleaned: 3\nSpace Regained: 0.00 KB \n"))
        << cleaned.output;
    EXPECT_EQ(treeOf(photos()).size(), 2U);
    EXPECT_EQ(trashed(), 3U);
    EXPECT_EQ(trashInfos(), 3U);
    EXPECT_EQ(tarvin({"totals"}).output, "Files cleaned so far: 3 (0.00 KB)\n");
    EXPECT_EQ(restore().status, 0);
    EXPECT_EQ(treeOf(photos()), before);
    EXPECT_EQ(trashed(), 0U);
    EXPECT_EQ(trashInfos(), 0U);
    EXPECT_EQ(tarvin({"totals"}).output, "Files cleaned so far: 0 (0.00 KB)\n");
}

TEST_F(EmptyFiles, ChangedInTheTrashStayThere) {
    clean();
    for (const auto& entry : fs::directory_iterator(trash() + "/files")) {
        std::ofstream(entry.path()) << "x";
        break;
    }
    const Json json = restoreAsJson();
    std::multiset<std::string> outcomes;
    for (const Json& file : json["files"]) {
        outcomes.insert(file["outcome"]);
    }
    EXPECT_EQ(outcomes, (std::multiset<std::string>{"changed", "toItsPlace", "toItsPlace"}));
    EXPECT_EQ(trashed(), 1U);
    expectTotals(1);
}

}  // namespace
}  // namespace tarvin
