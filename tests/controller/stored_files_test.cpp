#include "controller/put_back_fixture.h"
#include "interface/translation.h"
#include "platform/file_lock.h"
#include "store/clean_up_journal.h"
#include "store/property_list.h"
#include "support/add_to_totals.h"
#include "support/file_size_limit.h"

#include <QCoreApplication>
#include <fstream>
#include <iterator>

namespace tarvin {
namespace {

/// The stored files, with a result on the screen that changes them.
class StoredFiles : public DeletionFixture {
 protected:
    [[nodiscard]] std::string dataPath() { return folder.pathOf("support/data.plist"); }

    [[nodiscard]] static std::string contentOf(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// The root of data.plist.
    [[nodiscard]] PropertyList storedData() {
        std::optional<PropertyList> list = PropertyList::parse(contentOf(dataPath()));
        EXPECT_TRUE(list && list->isDictionary()) << contentOf(dataPath());
        return list ? std::move(*list) : PropertyList::dictionary();
    }

    [[nodiscard]] bool showsTotals() { return window().home->cleanHistory->isVisible(); }

    void deleteSet(int extension, int set) {
        clickBox(tree().indexOfSet(extension, set));
        EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 1");
        click("scanInforOKBtn");
    }

    /// Starts a deletion that reports why it cannot begin and moves nothing.
    void expectNoCleanUp() {
        click("markAll");
        click("finishButton");
        EXPECT_TRUE(comesTrue([this] { return !delegate->deletion().isRunning(); }));
        EXPECT_EQ(information()[1],
                  "The clean-up could not begin: its moves cannot be written down.");
        EXPECT_NE(information()[2], "");
        EXPECT_FALSE(window().deletionPreview->isVisible());
        EXPECT_TRUE(platform.trash().attempts().empty());
        EXPECT_EQ(textOf("selectedCount"), "Marked Duplicate Files: 4");
    }

    void excludeAll() {
        click("markAll");
        click("addEceptionBtn");
        click("excOKBtn");
        EXPECT_EQ(information()[1], "\nSuccessfully added 4 files to exceptions.");
        click("scanInforOKBtn");
    }
};

TEST_F(StoredFiles, AreMadeAtTheFirstStart) {
    ASSERT_FALSE(std::filesystem::exists(folder.pathOf("support")));
    launch();
    const PropertyList data = storedData();
    EXPECT_EQ(data.number("deletedCount"), 0U);
    EXPECT_EQ(data.number("deletedSize"), 0U);
    EXPECT_EQ(data.number("matchingLevel"), 5U);
    EXPECT_EQ(data.number("matchingSize"), 2U);
    EXPECT_FALSE(showsTotals());
}

TEST_F(StoredFiles, WithoutACountAreNotRepairedWhenTheyAreRead) {
    PropertyList list = PropertyList::dictionary();
    list.setNumber("deletedSize", 7);
    folder.writeFile("support/data.plist", list.xml());
    launch();
    EXPECT_EQ(delegate->session().alreadyDeletedCount(), 0);
    EXPECT_EQ(delegate->session().alreadyDeletedSize(), 7U);
    EXPECT_FALSE(showsTotals());
    EXPECT_EQ(contentOf(dataPath()), list.xml());
}

TEST_F(StoredFiles, ThatCannotBeReadAreReplacedByTheTotals) {
    folder.writeFile("support/data.plist", "no property list");
    writeThreeSets();
    scanAndReview();
    EXPECT_EQ(contentOf(dataPath()), "no property list");
    deleteSet(0, 0);
    const PropertyList data = storedData();
    EXPECT_EQ(data.number("deletedCount"), 1U);
    EXPECT_EQ(data.number("deletedSize"), 3U);
    EXPECT_EQ(data.number("matchingLevel"), std::nullopt);
    EXPECT_EQ(data.number("matchingSize"), std::nullopt);
}

/// A file is in place of the folder: no move can be recorded in advance.
TEST_F(StoredFiles, ThatCannotBeWrittenKeepACleanUpFromBeginning) {
    writeThreeSets();
    folder.writeFile("support", "in the way");
    scanAndReview();
    expectNoCleanUp();
    EXPECT_EQ(contentOf(folder.pathOf("support")), "in the way");
}

TEST_F(StoredFiles, WithADamagedJournalPreventOnlyOneCleanUp) {
    writeThreeSets();
    folder.writeFile("support/clean-ups.sqlite", std::string(5000, 'x'));
    scanAndReview();
    expectNoCleanUp();
    EXPECT_EQ(information()[2], "the file is damaged");
    EXPECT_EQ(information()[3], "The file was set aside; the next clean-up begins a new one.");
    EXPECT_EQ(contentOf(folder.pathOf("support/clean-ups.sqlite.unreadable")),
              std::string(5000, 'x'));
    click("scanInforOKBtn");
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 4");
}

TEST_F(StoredFiles, WithALockedJournalPreventACleanUp) {
    writeThreeSets();
    const std::string path = folder.writeFile("support/clean-ups.sqlite", std::string(5000, 'x'));
    const LockFile locks(folder.pathOf("support/clean-ups.lock"));
    const Result<FileLock> open = locks.tryTake(0, LockSharing::shared);
    ASSERT_TRUE(open);
    scanAndReview();
    expectNoCleanUp();
    EXPECT_EQ(information()[2], "the file is damaged");
    EXPECT_EQ(information()[3], "");
    EXPECT_EQ(contentOf(path), std::string(5000, 'x'));
}

/// A folder has the name of the temporary file: only the totals cannot be written.
TEST_F(StoredFiles, ThatCannotBeWrittenApplyWhileTheProgramRuns) {
    writeThreeSets();
    scanAndReview();
    folder.makeFolder("support/data.plist.new/inside");
    deleteSet(0, 0);
    EXPECT_EQ(textOf("cleanHistory"), "Files cleaned so far: 1 (0.00 KB)");
    deleteSet(1, 0);
    EXPECT_EQ(textOf("cleanHistory"), "Files cleaned so far: 2 (0.01 KB)");
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 0);
    click("buttonHomePage");
    EXPECT_TRUE(showsTotals());
}

TEST_F(StoredFiles, ThatCannotBeWrittenStillKeepExceptionsFromScans) {
    writeThreeSets();
    folder.writeFile("support", "in the way");
    scanAndReview();
    excludeAll();
    EXPECT_TRUE(isEnabled("removeExceptionBtn"));
    scanAgain();
    EXPECT_EQ(modal().extensionCount(), 0U);
}

class WithoutASupportFolder : public StoredFiles {
 protected:
    void SetUp() override {
        platform.setApplicationSupportFolder(std::nullopt);
        writeThreeSets();
        scanAndReview();
    }
};

TEST_F(WithoutASupportFolder, NoCleanUpBegins) {
    EXPECT_EQ(delegate->session().alreadyDeletedCount(), 0);
    expectNoCleanUp();
    EXPECT_EQ(information()[2], "there is no home folder to keep the journal in");
    EXPECT_FALSE(std::filesystem::exists("/data.plist"));
    EXPECT_FALSE(std::filesystem::exists("/clean-ups.sqlite"));
}

TEST_F(WithoutASupportFolder, ExceptionsHoldUntilTheyAreForgotten) {
    excludeAll();
    EXPECT_TRUE(isEnabled("removeExceptionBtn"));
    scanAgain();
    EXPECT_EQ(modal().extensionCount(), 0U);
    click("scanInforOKBtn");
    ASSERT_EQ(screen(), QStringLiteral("1"));
    delegate->exceptions().removeExceptions();
    alerts.press(0);
    click("scanInforOKBtn");
    delegate->locations().openWith({folder.pathOf("found")});
    click("findDuplicateExact");
    ASSERT_TRUE(comesTo("4"));
    EXPECT_EQ(modal().totalFiles(), 4U);
    EXPECT_FALSE(std::filesystem::exists("/exception.plist"));
}

/// A crashed clean-up that moved one file of 70 bytes.
void leaveCleanUp(const std::string& folder) {
    auto opened = CleanUpJournal::open(folder);
    auto& journal = std::get<CleanUpJournal>(opened);
    const CleanUpId id = std::get<CleanUpId>(journal.begin({}));
    const std::vector<PlannedMove> moves{{"/nowhere/a.txt", 1, 70, {}}};
    const MoveRow row = std::get<MoveRow>(journal.plan(id, moves));
    const RecordedOutcome outcome{row, MoveState::moved, "/nowhere/Trash", "a.txt", {}};
    ASSERT_FALSE(journal.record({&outcome, 1}));
}

TEST_F(StoredFiles, CountTheFilesOfACrashedCleanUp) {
    leaveCleanUp(folder.pathOf("support"));
    launch();
    EXPECT_TRUE(comesTrue([&] { return showsTotals(); }));
    EXPECT_EQ(textOf("cleanHistory"), "Files cleaned so far: 1 (0.07 KB)");
    EXPECT_EQ(storedData().number("deletedCount"), 1U);
}

TEST_F(StoredFiles, AreLeftAloneByARecoveryWithoutAJournal) {
    launch();
    EXPECT_FALSE(std::filesystem::exists(folder.pathOf("support/clean-ups.sqlite")));
}

/// There is space for .trashinfo files and totals, but not for the journal: a file size limit of
/// the process simulates a full disk.
class WithoutRoomForTheJournal : public PutBackFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        scanAndReview();
    }

    /// Deletes the marked files; the space runs out after planning and before the first move.
    [[nodiscard]] std::string deleteAndFillAt(const std::string& part) {
        deleteAndHoldAt(part);
        room.set(1000);
        barrier.open();
        return reported() ? information()[1] : "no report";
    }

    FileSizeLimit room;
};

TEST_F(WithoutRoomForTheJournal, TheTotalsOnScreenAreThoseOfTheReport) {
    click("markAll");
    EXPECT_EQ(deleteAndFillAt("a2.jpg"), "Duplicates Cleaned: 4");
    EXPECT_FALSE(isThere("a2.jpg"));
    EXPECT_EQ(textOf("cleanHistory"), "Files cleaned so far: 4 (0.02 KB)");
    EXPECT_EQ(delegate->session().alreadyDeletedCount(), 4);
    EXPECT_EQ(delegate->session().alreadyDeletedSize(), 22U);
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 0);
}

TEST_F(WithoutRoomForTheJournal, TheNextStartCountsOnceWhatWasMoved) {
    click("markAll");
    EXPECT_EQ(deleteAndFillAt("a2.jpg"), "Duplicates Cleaned: 4");
    delegate.reset();
    room.lift();
    launch();
    EXPECT_TRUE(comesTrue([this] { return window().home->cleanHistory->isVisible(); }));
    EXPECT_EQ(textOf("cleanHistory"), "Files cleaned so far: 4 (0.02 KB)");
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 4);
}

TEST_F(WithoutRoomForTheJournal, TheTotalsStayAndTheNextCleanUpCountsOnce) {
    clickBox(tree().indexOfSet(0, 0));
    EXPECT_EQ(deleteAndFillAt("a2.jpg"), "Duplicates Cleaned: 1");
    click("scanInforOKBtn");
    click("markAll");
    // There is no space for its plan.
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 0");
    click("scanInforOKBtn");
    EXPECT_EQ(textOf("cleanHistory"), "Files cleaned so far: 1 (0.00 KB)");
    room.lift();
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
    EXPECT_EQ(textOf("cleanHistory"), "Files cleaned so far: 4 (0.02 KB)");
    EXPECT_EQ(storedTotals().alreadyDeletedCount(), 4);
}

class InGerman : public StoredFiles {
 protected:
    InGerman() : translator_(loadTranslation(QLocale(QStringLiteral("de")))) {
        QCoreApplication::installTranslator(translator_.get());
    }
    ~InGerman() override {
        delegate.reset();
        QCoreApplication::removeTranslator(translator_.get());
    }

 private:
    std::unique_ptr<QTranslator> translator_;
};

TEST_F(InGerman, TheTotalsAreToldAlikeAtTheStartAndAfterADeletion) {
    DataFile before(folder.pathOf("support"));
    ASSERT_FALSE(addToTotals(before, 3, 2'000'000).has_value());
    writeThreeSets();
    scan();
    EXPECT_EQ(textOf("cleanHistory"), "Bisher bereinigte Dateien: 3 (2.00 MB)");
    click("scanInforOKBtn");
    clickBox(tree().indexOfSet(0, 0));
    click("finishButton");
    ASSERT_TRUE(reported());
    EXPECT_EQ(textOf("cleanHistory"), "Bisher bereinigte Dateien: 4 (2.00 MB)");
}

}  // namespace
}  // namespace tarvin
