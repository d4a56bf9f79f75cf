#include "controller/kept_files.h"

#include "controller/deletion_fixture.h"
#include "interface/list_panel.h"
#include "interface/list_table.h"
#include "model/file_store.h"

#include <QClipboard>
#include <QGuiApplication>
#include <cerrno>

namespace tarvin {
namespace {

std::string reasonOf(const MoveResult& result) {
    return KeptFiles::reasonOf(result).toStdString();
}

std::string refusal(TrashRefusalKind kind, int code = 0) {
    return reasonOf({MoveOutcome::refused, "the words of the system", kind, {code}});
}

TEST(KeptFiles, DescribesOutcomesInTheWindowsLanguage) {
    EXPECT_EQ(reasonOf({MoveOutcome::changed, {}}), "Changed since the scan");
    EXPECT_EQ(reasonOf({MoveOutcome::lastCopy, {}}), "No other copy is left");
    EXPECT_EQ(reasonOf({MoveOutcome::lastCopy, "its copy on another volume may be the same file"}),
              "Its copy on another volume may be the same file");
    EXPECT_EQ(reasonOf({MoveOutcome::gone, {}}), "Not there any more");
    EXPECT_EQ(reasonOf({MoveOutcome::stopped, {}}), "Stopped before its turn");
}

TEST(KeptFiles, DescribesRefusalsByKindOrTheSystemsText) {
    using enum TrashRefusalKind;
    EXPECT_EQ(refusal(TrashRefusalKind::system, ENOSPC), "The Trash of this volume is full");
    EXPECT_EQ(refusal(TrashRefusalKind::system, EDQUOT), "The Trash of this volume is full");
    EXPECT_EQ(refusal(TrashRefusalKind::system, EACCES), "Permission denied");
    EXPECT_EQ(refusal(TrashRefusalKind::system, EPERM), "Permission denied");
    EXPECT_EQ(refusal(TrashRefusalKind::system, EROFS), "the words of the system");
    for (const TrashRefusalKind kind : {noVolume, noHome}) {
        EXPECT_EQ(refusal(kind), "This volume has no Trash");
    }
    EXPECT_EQ(refusal(otherVolume), "Its Trash is on another volume");
    EXPECT_EQ(refusal(notOurs, EPERM), "The Trash belongs to another user");
}

TEST(KeptFiles, CountsAllAndListsTenThousand) {
    const std::shared_ptr<FileStore> store = FileStore::create();
    const std::shared_ptr<File> file =
        store->share(store->addFile(store->addRoot("/somewhere"), "name.jpg", 1, {}, {}));
    KeptFiles kept;
    kept.add(*file, {MoveOutcome::moved, {}});
    EXPECT_EQ(kept.left(), 0U);
    for (int number = 0; number < 10'003; ++number) {
        kept.add(*file, {MoveOutcome::changed, {}});
    }
    EXPECT_EQ(kept.left(), 10'003U);
    FileReasons list;
    list.setFiles(kept.reasons(), kept.all());
    ASSERT_EQ(list.rowCount(), 10'001);
    EXPECT_EQ(list.index(0, 0).data().toString(), QStringLiteral("name.jpg"));
    EXPECT_EQ(list.index(0, 1).data().toString(), QStringLiteral("/somewhere"));
    EXPECT_EQ(list.index(0, 2).data().toString(), QStringLiteral("Changed since the scan"));
    EXPECT_EQ(list.index(10'000, 0).data().toString(), QStringLiteral("and 3 more"));
    EXPECT_TRUE(list.index(10'000, 0).data(ListTable::mutedRole).toBool());
    EXPECT_FALSE(list.index(9'999, 0).data(ListTable::mutedRole).toBool());
}

TEST(KeptFiles, ListsFilesNotMovedBackBeforeTenThousandLeft) {
    const std::shared_ptr<File> left = FileStore::standalone("/somewhere/left.jpg", 1);
    const std::shared_ptr<File> notBack = FileStore::standalone("/somewhere/trashed.jpg", 1);
    KeptFiles kept;
    for (int number = 0; number < 10'000; ++number) {
        kept.add(*left, {MoveOutcome::changed, {}});
    }
    kept.add(*notBack, {MoveOutcome::moved, "words", TrashRefusalKind::taken, {EEXIST}});
    EXPECT_EQ(kept.left(), 10'000U);
    EXPECT_EQ(kept.notBack(), 1U);
    EXPECT_EQ(kept.all(), 10'001U);
    const QVector<FileReason> reasons = kept.reasons();
    ASSERT_EQ(reasons.size(), 10'000);
    EXPECT_EQ(reasons[0].name, QStringLiteral("trashed.jpg"));
    EXPECT_EQ(reasons[0].reason,
              QStringLiteral("In the Trash, not moved back: Something else has its name now"));
    EXPECT_EQ(reasons[1].name, QStringLiteral("left.jpg"));
}

TEST(KeptFiles, SaysWhyAFileWasNotMovedBack) {
    const auto reason = [](TrashRefusalKind kind, int code) {
        return reasonOf({MoveOutcome::moved, "the words of the system", kind, {code}});
    };
    EXPECT_EQ(reason(TrashRefusalKind::system, ENOSPC),
              "In the Trash, not moved back: The disk is full");
    EXPECT_EQ(reason(TrashRefusalKind::system, EROFS),
              "In the Trash, not moved back: the words of the system");
    EXPECT_EQ(reason(TrashRefusalKind::gone, ENOENT), "No longer in the Trash");
}

/// A list of extensions with sets of two files, "EXTENSION-SET-NUMBER", of which the second one is
/// marked.
class KeptFilesOfAWalk : public testing::Test {
 protected:
    void SetUp() override {
        for (const char* name : {"jpg", "png", "txt"}) {
            const auto extension = std::make_shared<Extensions>(name);
            modal_.addExtension(extension);
            for (int number = 0; number < 3; ++number) {
                extension->addSet(makeSet(std::string(name) + '-' + std::to_string(number)));
            }
            modal_.changeStateOfExtension(extension, nullptr, nullptr);
        }
    }

    [[nodiscard]] Extensions& extension(std::size_t number) {
        return *modal_.extensionsArray()[number];
    }
    [[nodiscard]] Set& set(std::size_t extensionNumber, std::size_t number) {
        return *extension(extensionNumber).sets()[number];
    }

    /// The names of the files listed after a set.
    [[nodiscard]] std::vector<std::string> restBehind(const Set* last) const {
        KeptFiles kept;
        kept.addRest(modal_, last, {MoveOutcome::stopped, {}});
        std::vector<std::string> names;
        for (const FileReason& file : kept.reasons()) {
            names.push_back(file.name.toStdString());
        }
        return names;
    }

 private:
    static std::shared_ptr<Set> makeSet(const std::string& name) {
        auto set = std::make_shared<Set>();
        for (const char* number : {"-0", "-1"}) {
            set->addFiles(FileStore::standalone("/somewhere/" + name + number, 10));
        }
        return set;
    }

    Modal modal_;
};

using Names = std::vector<std::string>;

TEST_F(KeptFilesOfAWalk, AreTheMarkedFilesAfterTheLastSetBegun) {
    EXPECT_EQ(restBehind(&set(1, 1)), (Names{"png-2-1", "txt-0-1", "txt-1-1", "txt-2-1"}));
    EXPECT_EQ(restBehind(&set(2, 2)), Names());
    EXPECT_EQ(restBehind(nullptr).size(), 9U);
}

TEST_F(KeptFilesOfAWalk, ExcludeWhatTheWalkSkips) {
    extension(0).setExtensionState(CheckState::off);
    extension(2).setExtensionState(CheckState::off);
    set(1, 1).setSetsState(CheckState::off);
    EXPECT_EQ(restBehind(nullptr), (Names{"png-0-1", "png-2-1"}));
    EXPECT_EQ(restBehind(&set(1, 0)), (Names{"png-2-1"}));
}

TEST_F(KeptFilesOfAWalk, IncludeTheCurrentExtensionThoughItsStateIsOff) {
    extension(1).setExtensionState(CheckState::off);
    EXPECT_EQ(restBehind(&set(1, 0)),
              (Names{"png-1-1", "png-2-1", "txt-0-1", "txt-1-1", "txt-2-1"}));
    // The walk had not begun it.
    EXPECT_EQ(restBehind(&set(0, 2)), (Names{"txt-0-1", "txt-1-1", "txt-2-1"}));
}

/// Files that a clean-up did not move, in the report and in its list.
class KeptFilesOfADeletion : public DeletionFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        scanAndReview();
    }

    [[nodiscard]] std::vector<Lines> rows() {
        std::vector<Lines> rows;
        const QAbstractItemModel& model = *window().keptWindow->table->model();
        for (int row = 0; row < model.rowCount(); ++row) {
            Lines texts;
            for (int column = 0; column < 3; ++column) {
                texts.push_back(model.index(row, column).data().toString().toStdString());
            }
            rows.push_back(texts);
        }
        return rows;
    }

    [[nodiscard]] Lines row(const std::string& name, const std::string& reason) const {
        return {name, folder.pathOf("found"), reason};
    }
};

TEST_F(KeptFilesOfADeletion, AreReportedAndListed) {
    click("markAll");
    write("a2.jpg", "changed");
    std::filesystem::remove(found("b2.jpg"));
    platform.trash().refuse(found("c2.txt"));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 1");
    EXPECT_EQ(textOf("keptLine"), "3 files were left where they are.");
    click("keptShow");
    EXPECT_FALSE(window().informationWindow->isVisible());
    ASSERT_TRUE(window().keptWindow->isVisible());
    EXPECT_EQ(rows(), (std::vector<Lines>{row("a2.jpg", "Changed since the scan"),
                                          row("b2.jpg", "Not there any more"),
                                          row("c2.txt", "Permission denied")}));
    EXPECT_EQ(covers(), 1);
}

TEST_F(KeptFilesOfADeletion, UseTheSingularForOneFile) {
    click("markAll");
    platform.trash().refuse(found("c2.txt"));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
    EXPECT_EQ(textOf("keptLine"), "1 file was left where it is.");
}

TEST_F(KeptFilesOfADeletion, IncludeTheLastCopy) {
    click("markAll");
    std::filesystem::remove(found("c1.txt"));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
    click("keptShow");
    EXPECT_EQ(rows(), (std::vector<Lines>{row("c2.txt", "No other copy is left")}));
}

TEST_F(KeptFilesOfADeletion, NoneAreNotMentioned) {
    click("markAll");
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 4");
    EXPECT_FALSE(window().informationWindow->keptLine->isVisible());
    EXPECT_FALSE(window().informationWindow->keptShow->isVisible());
}

TEST_F(KeptFilesOfADeletion, ThoseOfTheLastRunAreForgotten) {
    click("markAll");
    platform.trash().refuse(found("c2.txt"));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
    click("scanInforOKBtn");
    click("unMarkAll");
    click("finishButton");
    EXPECT_EQ(information()[1], "Please select any file to delete.");
    EXPECT_FALSE(window().informationWindow->keptLine->isVisible());
}

TEST_F(KeptFilesOfADeletion, AStopAddsTheRemainingFiles) {
    click("markAll");
    ASSERT_NO_FATAL_FAILURE(deleteAndStopAt("a2.jpg"));
    EXPECT_EQ(information()[1], "Duplicates Cleaned: 1");
    EXPECT_EQ(textOf("keptLine"), "3 files were left where they are.");
    click("keptShow");
    EXPECT_EQ(rows(), (std::vector<Lines>{row("b2.jpg", "Stopped before its turn"),
                                          row("b3.jpg", "Stopped before its turn"),
                                          row("c2.txt", "Stopped before its turn")}));
    click("keptClose");
    click("scanInforOKBtn");
    // A run that cannot begin.
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 0");
    EXPECT_EQ(textOf("keptLine"), "3 files were left where they are.");
}

/// After the move the remaining copy is gone, and moving back fails.
TEST_F(KeptFilesOfADeletion, OneNotMovedBackIsReportedAndListed) {
    click("markAll");
    files.beforeCall(
        FileCall::attributesAtPath, 1, [this] { std::filesystem::remove(found("c1.txt")); },
        "c1.txt");
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 4");
    EXPECT_FALSE(isThere("c1.txt"));
    EXPECT_FALSE(isThere("c2.txt"));
    EXPECT_EQ(textOf("keptLine"), "1 file in the Trash may be the last copy.");
    EXPECT_EQ(control("keptShow")->accessibleName(), QStringLiteral("Show the files to check"));
    click("keptShow");
    EXPECT_EQ(textOf("keptHeader"), "Could Not Be Moved Back");
    EXPECT_EQ(textOf("keptSentence"),
              "These files are in the Trash. No other copy of them may be left outside it.");
    EXPECT_EQ(control("keptTable")->accessibleName(), QStringLiteral("Files to check"));
    EXPECT_EQ(
        rows(),
        (std::vector<Lines>{row("c2.txt", "In the Trash, not moved back: Permission denied")}));
}

TEST_F(KeptFilesOfADeletion, ThoseNotMovedBackAreListedFirst) {
    click("markAll");
    platform.trash().refuse(found("a2.jpg"));
    platform.trash().refuse(found("b2.jpg"));
    files.beforeCall(
        FileCall::attributesAtPath, 1, [this] { std::filesystem::remove(found("c1.txt")); },
        "c1.txt");
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 2");
    EXPECT_EQ(textOf("keptLine"), "Left: 2. Maybe last copies: 1.");
    click("keptShow");
    EXPECT_EQ(textOf("keptHeader"), "Files to Check");
    EXPECT_EQ(textOf("keptSentence"),
              "Files in the Trash may be last copies. The others were not moved and are still "
              "marked.");
    EXPECT_EQ(rows(), (std::vector<Lines>{
                          row("c2.txt", "In the Trash, not moved back: Permission denied"),
                          row("a2.jpg", "Permission denied"), row("b2.jpg", "Permission denied")}));
    click("keptClose");
    click("scanInforOKBtn");
    // The next run has only files that were not moved.
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 0");
    EXPECT_EQ(textOf("keptLine"), "2 files were left where they are.");
    EXPECT_EQ(control("keptShow")->accessibleName(),
              QStringLiteral("Show the files that were left where they are"));
    click("keptShow");
    EXPECT_EQ(textOf("keptHeader"), "Left Where They Are");
    EXPECT_EQ(textOf("keptSentence"),
              "These files were not moved to the Trash. They are still in the results and still "
              "marked.");
    EXPECT_EQ(control("keptTable")->accessibleName(), QStringLiteral("Files left where they are"));
}

TEST_F(KeptFilesOfADeletion, ClosingTheListShowsTheReportAgain) {
    click("markAll");
    platform.trash().refuse(found("c2.txt"));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
    click("keptShow");
    EXPECT_EQ(window().focusWidget(), window().keptWindow->closeButton);
    QTest::keyClick(window().focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(window().keptWindow->isVisible());
    ASSERT_TRUE(window().informationWindow->isVisible());
    EXPECT_EQ(positionOf(window().informationWindow), QPoint(250, 200));
    EXPECT_EQ(window().focusWidget(), window().informationWindow->keptShow);
    click("scanInforOKBtn");
    EXPECT_EQ(covers(), 0);
}

TEST_F(KeptFilesOfADeletion, CopyListPutsThemOnTheClipboard) {
    click("markAll");
    platform.trash().refuse(found("c2.txt"));
    EXPECT_EQ(deleteMarked(), "Duplicates Cleaned: 3");
    click("keptShow");
    click("keptCopy");
    EXPECT_EQ(
        QGuiApplication::clipboard()->text().toStdString(),
        "Name\tLocation\tReason\nc2.txt\t" + folder.pathOf("found") + "\tPermission denied\n");
}

}  // namespace
}  // namespace tarvin
