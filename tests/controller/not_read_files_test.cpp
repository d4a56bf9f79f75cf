#include "controller/not_read_files.h"

#include "controller/result_fixture.h"
#include "controls/notice_strip.h"
#include "interface/list_panel.h"
#include "interface/list_table.h"
#include "interface/notice_panel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <cerrno>

namespace tarvin {
namespace {

using RowTexts = std::vector<std::string>;

/// A row of a list: "NAME|FOLDER|REASON".
std::string rowText(const QString& name, const QString& folder, const QString& reason) {
    return QStringList{name, folder, reason}.join(QLatin1Char('|')).toStdString();
}

RowTexts rowsOf(const QVector<FileReason>& reasons) {
    RowTexts rows;
    for (const FileReason& each : reasons) {
        rows.push_back(rowText(each.name, each.folder, each.reason));
    }
    return rows;
}

void addFolder(ScanResult& result, const std::string& path, int error = EACCES) {
    ++result.unreadable.folders;
    result.unreadable.kept.push_back({path, true, {error}});
}

void addFile(ScanResult& result, const std::string& path, int error = EACCES) {
    ++result.unreadable.files;
    result.unreadable.kept.push_back({path, false, {error}});
}

std::string noticeOf(std::uint64_t folders, std::uint64_t files) {
    ScanResult result;
    result.unreadable.folders = folders;
    result.unreadable.files = files;
    return NotReadFiles(result).notice().toStdString();
}

std::string reasonOf(int error) {
    return NotReadFiles::reasonOf({error}).toStdString();
}

TEST(NotReadFiles, TheNoticeHasTheNumbersThatAreNotZero) {
    EXPECT_EQ(noticeOf(0, 0), "");
    EXPECT_EQ(noticeOf(1, 0), "1 folder could not be read.");
    EXPECT_EQ(noticeOf(3, 0), "3 folders could not be read.");
    EXPECT_EQ(noticeOf(0, 1), "1 file could not be read.");
    EXPECT_EQ(noticeOf(0, 1'200), "1,200 files could not be read.");
    EXPECT_EQ(noticeOf(1, 1), "1 folder and 1 file could not be read.");
    EXPECT_EQ(noticeOf(1, 12), "1 folder and 12 files could not be read.");
    EXPECT_EQ(noticeOf(3, 1), "3 folders and 1 file could not be read.");
    EXPECT_EQ(noticeOf(3, 12), "3 folders and 12 files could not be read.");
}

TEST(NotReadFiles, FrequentReasonsAreInTheLanguageOfTheWindow) {
    EXPECT_EQ(reasonOf(EACCES), "Permission denied");
    EXPECT_EQ(reasonOf(EPERM), "Permission denied");
    EXPECT_EQ(reasonOf(EIO), "Input/output error");
    EXPECT_EQ(reasonOf(ENOENT), "Not there any more");
    for (const int error :
         {ETIMEDOUT, EHOSTDOWN, EHOSTUNREACH, ENETDOWN, ENETUNREACH, ENOTCONN, ECONNRESET}) {
        EXPECT_EQ(reasonOf(error), "Stopped answering") << error;
    }
    EXPECT_EQ(reasonOf(EMFILE), "Too many open files");
}

TEST(NotReadFiles, AFileThatChangedHasItsOwnReason) {
    ScanResult result;
    addFile(result, "/home/anna/log.txt", 0);
    result.unreadable.kept.back().hasChanged = true;
    EXPECT_EQ(rowsOf(NotReadFiles(result).reasons()),
              (RowTexts{"log.txt|/home/anna|Changed while it was read"}));
}

TEST(NotReadFiles, LocationsAndFoldersComeBeforeFiles) {
    ScanResult result;
    result.unreadableLocations = {{"/media/stick", {ENOENT}},
                                  {"/home/me/Trash", {EOPNOTSUPP}, true}};
    addFolder(result, "/home/ben/private");
    addFile(result, "/home/anna/contract.pdf", EIO);
    const NotReadFiles files(result);
    EXPECT_EQ(files.folders(), 3U);
    EXPECT_EQ(files.files(), 1U);
    EXPECT_EQ(files.all(), 4U);
    EXPECT_EQ(rowsOf(files.reasons()), (RowTexts{"private|/home/ben|Permission denied",
                                                 "Trash|/home/me|Trash folders are never scanned",
                                                 "stick|/media|Not there any more",
                                                 "contract.pdf|/home/anna|Input/output error"}));
    EXPECT_EQ(files.reasons()[2].kind, FileReason::Kind::folder);
    EXPECT_EQ(files.reasons()[3].kind, FileReason::Kind::file);
}

TEST(NotReadFiles, OfFoldersInsideOneAnotherOnlyTheTopmostIsListed) {
    ScanResult result;
    result.unreadableLocations = {{"/a", {EIO}}};
    addFolder(result, "/a");
    addFolder(result, "/a b");
    addFolder(result, "/a/b");
    addFolder(result, "/a/b/c");
    addFolder(result, "/ab");
    addFile(result, "/a/b/file");
    const NotReadFiles files(result);
    EXPECT_EQ(rowsOf(files.reasons()),
              (RowTexts{"a|/|Input/output error", "a b|/|Permission denied",
                        "ab|/|Permission denied", "file|/a/b|Permission denied"}));
    EXPECT_EQ(files.notice(), QStringLiteral("3 folders and 1 file could not be read."));
}

TEST(NotReadFiles, TheRootFolderContainsAllOthers) {
    ScanResult result;
    result.unreadableLocations = {{"/", {EIO}}, {"/home", {EIO}}};
    const NotReadFiles files(result);
    EXPECT_EQ(rowsOf(files.reasons()), (RowTexts{"/||Input/output error"}));
    EXPECT_EQ(files.folders(), 1U);
}

TEST(NotReadFiles, CountsAllAndListsTenThousand) {
    ScanResult result;
    for (int number = 0; number < 10'003; ++number) {
        addFile(result, "/somewhere/" + std::to_string(number));
    }
    result.unreadable.files += 100'000;  // of which only the number is known
    const NotReadFiles files(result);
    FileReasons list;
    list.setFiles(files.reasons(), files.all());
    ASSERT_EQ(list.rowCount(), 10'001);
    EXPECT_EQ(list.index(10'000, 0).data().toString(), QStringLiteral("and 100,003 more"));
    EXPECT_FALSE(list.index(10'000, 0).data(ListTable::pictureRole).isValid());
}

TEST(FileReasons, ShowTheKindOfEachAsAnImageAndToAssistiveTechnology) {
    FileReasons list;
    list.setFiles({fileReason("/a/b", {}, FileReason::Kind::folder),
                   fileReason("/a/c", {}, FileReason::Kind::file), fileReason("/a/d", {})},
                  3);
    const auto data = [&list](int row, int role) {
        return list.index(row, FileReasons::name).data(role).toString().toStdString();
    };
    EXPECT_EQ(data(0, ListTable::pictureRole), "folder");
    EXPECT_EQ(data(1, ListTable::pictureRole), "ui/file");
    EXPECT_EQ(data(2, ListTable::pictureRole), "");
    EXPECT_EQ(data(0, Qt::AccessibleDescriptionRole), "Folder");
    EXPECT_EQ(data(1, Qt::AccessibleDescriptionRole), "File");
    EXPECT_EQ(data(2, Qt::AccessibleDescriptionRole), "");
    EXPECT_FALSE(list.index(0, FileReasons::location).data(ListTable::pictureRole).isValid());
}

/// A scan with a folder and two files that cannot be read.
class NotReadFilesOfAScan : public ResultFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        write("closed/x.jpg", "one");
        write("y.jpg", "one");
        write("z.jpg", "one");
    }

    void failSome() {
        files.failCall(FileCall::openDirectoryAt, FaultyFileSystem::each, EACCES, "/closed");
        files.failCall(FileCall::openFile, FaultyFileSystem::each, EIO, "/y.jpg");
        files.failCall(FileCall::openFile, FaultyFileSystem::each, EACCES, "/z.jpg");
    }

    void scanWithFailures() {
        failSome();
        scanAndReview();
        // The notice gets its width with the next events.
        QCoreApplication::sendPostedEvents();
    }

    [[nodiscard]] NoticeStrip& notice() { return *window().results->notReadNotice; }
    [[nodiscard]] const ListPanel& panel() { return *window().notReadWindow; }

    [[nodiscard]] RowTexts rows() {
        RowTexts rows;
        const QAbstractItemModel& model = *panel().table->model();
        for (int row = 0; row < model.rowCount(); ++row) {
            const auto text = [&](int column) {
                return model.index(row, column).data().toString();
            };
            rows.push_back(rowText(text(0), text(1), text(2)));
        }
        return rows;
    }

    [[nodiscard]] std::string found() const { return folder.pathOf("found"); }
};

TEST_F(NotReadFilesOfAScan, AreNumberedInTheBarAndListed) {
    scanWithFailures();
    ASSERT_TRUE(notice().isVisible());
    EXPECT_EQ(notice().text(), QStringLiteral("1 folder and 2 files could not be read."));
    click("notReadNotice");
    ASSERT_TRUE(panel().isVisible());
    EXPECT_EQ(covers(), 1);
    EXPECT_EQ(rows(), (RowTexts{"closed|" + found() + "|Permission denied",
                                "y.jpg|" + found() + "|Input/output error",
                                "z.jpg|" + found() + "|Permission denied"}));
}

TEST_F(NotReadFilesOfAScan, NoneAreNotMentioned) {
    scanAndReview();
    EXPECT_FALSE(notice().isVisible());
    EXPECT_EQ(panel().table->model()->rowCount(), 0);
}

TEST_F(NotReadFilesOfAScan, AreMentionedUntilTheResultsAreLeft) {
    scanWithFailures();
    click("imageButton");
    EXPECT_TRUE(notice().isVisible());
    click("scanInforOKBtn");
    click("buttonHomePage");
    EXPECT_FALSE(notice().isVisible());
    EXPECT_EQ(panel().table->model()->rowCount(), 0);
}

TEST_F(NotReadFilesOfAScan, AreMentionedWithoutDuplicatesToo) {
    files.failCall(FileCall::openFile, FaultyFileSystem::each, EACCES, ".jpg");
    files.failCall(FileCall::openFile, FaultyFileSystem::each, EACCES, ".txt");
    scan();
    EXPECT_TRUE(delegate->results().isEmpty());
    EXPECT_TRUE(notice().isVisible());
}

TEST_F(NotReadFilesOfAScan, TheSummaryWithoutDuplicatesLeadsToTheList) {
    files.failCall(FileCall::openFile, FaultyFileSystem::each, EACCES, ".jpg");
    files.failCall(FileCall::openFile, FaultyFileSystem::each, EACCES, ".txt");
    scan();
    InformationPanel& summary = *window().informationWindow;
    ASSERT_TRUE(summary.isVisible());
    ASSERT_TRUE(summary.notReadShow->isVisible());
    EXPECT_EQ(summary.notReadShow->text(), QStringLiteral("Show what was not read…"));
    EXPECT_EQ(summary.notReadShow->accessibleName(),
              QStringLiteral("10 files could not be read. Show what was not read…"));
    EXPECT_EQ(window().focusWidget(), summary.scanInforOKBtn);
    const Lines lines = information();
    QTest::keyClick(window().focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window().focusWidget(), summary.notReadShow);
    QTest::keyClick(window().focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(panel().isVisible());
    EXPECT_FALSE(summary.isVisible());
    EXPECT_EQ(covers(), 1);
    EXPECT_EQ(rows().size(), 10U);
    EXPECT_EQ(window().focusWidget(), panel().closeButton);
    QTest::keyClick(window().focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(information(), lines);
    EXPECT_EQ(covers(), 1);
    EXPECT_EQ(window().focusWidget(), summary.notReadShow);
    click("notReadShow");
    click("notReadClose");
    // The end is as without the list.
    click("scanInforOKBtn");
    EXPECT_EQ(covers(), 0);
    EXPECT_TRUE(comesTo("1"));
}

TEST_F(NotReadFilesOfAScan, TheNoticeOfAScanWithoutFilesLeadsToTheList) {
    files.failCall(FileCall::openRootDirectory, FaultyFileSystem::each, EACCES, "/found");
    launch({found()});
    click("findDuplicateExact");
    ASSERT_TRUE(comesTrue([this] { return alerts.shown.size() == 1; }));
    const Alert notice = alerts.shown.front();
    EXPECT_EQ(notice.informativeText, QStringLiteral("No duplicates File found"));
    EXPECT_EQ(notice.buttons,
              QStringList({QStringLiteral("Ok"), QStringLiteral("Show what was not read…")}));
    EXPECT_EQ(notice.escapeButton, 0);
    alerts.press(1);
    ASSERT_TRUE(panel().isVisible());
    EXPECT_EQ(rows(), (RowTexts{"found|" + folder.path() + "|Permission denied"}));
    EXPECT_EQ(window().focusWidget(), panel().closeButton);
    EXPECT_EQ(screen(), QStringLiteral("5"));
    QTest::keyClick(window().focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(covers(), 0);
    // Back to the notice, which ends as without the list.
    ASSERT_EQ(alerts.shown.size(), 2U);
    EXPECT_EQ(alerts.shown.back().buttons, notice.buttons);
    alerts.press(0);
    EXPECT_EQ(screen(), QStringLiteral("1"));
    EXPECT_EQ(panel().table->model()->rowCount(), 0);
}

TEST_F(NotReadFilesOfAScan, TheWindowCanBeClosedOverTheListOfAScanWithoutFiles) {
    files.failCall(FileCall::openRootDirectory, FaultyFileSystem::each, EACCES, "/found");
    launch({found()});
    click("findDuplicateExact");
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    alerts.press(1);
    EXPECT_TRUE(window().close());
    EXPECT_GT(terminations, 0);
    EXPECT_FALSE(window().runningAlert->isVisible());
}

TEST_F(NotReadFilesOfAScan, TheNoticeOfAScanThatFoundNothingHasOneAnswer) {
    std::filesystem::remove_all(found());
    launch({folder.makeFolder("found")});
    click("findDuplicateExact");
    ASSERT_TRUE(comesTrue([this] { return !alerts.shown.empty(); }));
    EXPECT_EQ(alerts.shown.front().buttons, QStringList(QStringLiteral("Ok")));
}

TEST_F(NotReadFilesOfAScan, TheSummaryWithDuplicatesDoesNotMentionThem) {
    failSome();
    scan();
    ASSERT_TRUE(window().informationWindow->isVisible());
    EXPECT_FALSE(window().informationWindow->notReadShow->isVisible());
}

TEST_F(NotReadFilesOfAScan, TheSummaryWithoutDuplicatesMentionsOnlyWhatThereIs) {
    std::filesystem::remove_all(found());
    write("one.jpg", "one");
    write("two.jpg", "two");
    scan();
    ASSERT_TRUE(window().informationWindow->isVisible());
    EXPECT_FALSE(window().informationWindow->notReadShow->isVisible());
}

TEST_F(NotReadFilesOfAScan, ClosingTheListReturnsTheFocusToTheNotice) {
    scanWithFailures();
    notice().setFocus();
    QTest::keyClick(&notice(), Qt::Key_Return);
    EXPECT_EQ(window().focusWidget(), panel().closeButton);
    QTest::keyClick(window().focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(panel().isVisible());
    EXPECT_EQ(covers(), 0);
    EXPECT_EQ(window().focusWidget(), &notice());
    // Again, with the other key.
    QTest::keyClick(&notice(), Qt::Key_Space);
    QTest::keyClick(window().focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(panel().isVisible());
}

TEST_F(NotReadFilesOfAScan, CopyListPutsThemOnTheClipboard) {
    scanWithFailures();
    click("notReadNotice");
    click("notReadCopy");
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              "Name\tLocation\tReason\nclosed\t" + found() + "\tPermission denied\ny.jpg\t" +
                  found() + "\tInput/output error\nz.jpg\t" + found() + "\tPermission denied\n");
    EXPECT_TRUE(panel().isVisible());
}

}  // namespace
}  // namespace tarvin
