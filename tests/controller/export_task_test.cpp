#include "controller/left_threads.h"
#include "controller/result_fixture.h"
#include "report/list_reader.h"
#include "support/file_content.h"
#include "support/held_file_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <variant>

namespace tarvin {
namespace {

class ExportTest : public ResultFixture {
 protected:
    /// Exports to a file of that name and waits for the result.
    std::string exportTo(const std::string& name, std::size_t type) {
        panels.target = folder.pathOf(name);
        panels.type = type;
        window().exportResultsItem->trigger();
        EXPECT_TRUE(comesTrue([this] { return !information().empty(); }));
        return *panels.target;
    }

    static constexpr std::size_t csv = 0;
    static constexpr std::size_t json = 1;
    static constexpr std::size_t text = 2;
};

TEST_F(ExportTest, SuggestsANameAndThreeTypes) {
    writeThreeSets();
    scanAndReview();
    window().exportResultsItem->trigger();
    ASSERT_EQ(panels.saved.size(), 1U);
    EXPECT_EQ(panels.saved[0].title, QStringLiteral("Export Results"));
    EXPECT_EQ(panels.saved[0].fileName, QStringLiteral("Duplicate files 2026-01-31"));
    ASSERT_EQ(panels.saved[0].types.size(), 3U);
    EXPECT_EQ(panels.saved[0].types[0].name, QStringLiteral("CSV"));
    EXPECT_EQ(panels.saved[0].types[1].extension, QStringLiteral("json"));
    EXPECT_EQ(panels.saved[0].types[2].name, QStringLiteral("Text"));
    EXPECT_EQ(panels.saved[0].types[2].extension, QStringLiteral("txt"));
    // Cancelled.
    EXPECT_EQ(information(), Lines{});
}

TEST_F(ExportTest, WritesTheMarksAndSaysHowMany) {
    writeThreeSets();
    scanAndReview();
    select(0, 0);
    clickFileBox(1);
    const std::string file = exportTo("sets.csv", csv);
    EXPECT_EQ(information(), (Lines{"Information", "3 sets exported.", "sets.csv", ""}));
    const std::string written = contentOf(file);
    EXPECT_TRUE(
        written.starts_with("category,extension,set,index,size,modified,created,path,"
                            "path_bytes,keep\r\nImage,jpg,1,0,"))
        << written;
    EXPECT_NE(written.find("/a1.jpg,,true\r\n"), std::string::npos) << written;
    EXPECT_NE(written.find("/a2.jpg,,\r\n"), std::string::npos) << written;
    EXPECT_NE(written.find("/c2.txt,,true\r\n"), std::string::npos) << written;
}

TEST_F(ExportTest, WritesTheListOfTheTabThatIsShown) {
    writeThreeSets();
    scanAndReview();
    click("documentButton");
    click("scanInforOKBtn");
    const std::string file = exportTo("sets.txt", text);
    EXPECT_EQ(information(), (Lines{"Information", "1 set exported.", "sets.txt", ""}));
    const std::string written = contentOf(file);
    EXPECT_TRUE(written.starts_with("Documents\n  txt\n    Set(1)")) << written;
    EXPECT_NE(written.find("      [ ] " + folder.pathOf("found/c1.txt") + '\n'), std::string::npos)
        << written;
    EXPECT_EQ(written.find("jpg"), std::string::npos) << written;
}

TEST_F(ExportTest, AListInJsonCanBeReadAgain) {
    writeThreeSets();
    scanAndReview();
    click("markAll");
    const std::string file = exportTo("sets.json", json);
    const int opened = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    const auto read = readListedFiles(opened);
    ::close(opened);
    ASSERT_TRUE(std::holds_alternative<ListedFiles>(read));
    const ListedFiles& listed = std::get<ListedFiles>(read);
    ASSERT_EQ(listed.size(), 7U);
    int kept = 0;
    for (const ListedFile& each : listed) {
        kept += each.keep ? 1 : 0;
    }
    EXPECT_EQ(kept, 3);
    EXPECT_TRUE(listed[0].keep);
    EXPECT_EQ(listed[0].path, folder.pathOf("found/a1.jpg"));
    EXPECT_FALSE(listed[1].keep);
}

TEST_F(ExportTest, AFailureIsShownAndLeavesNoFile) {
    writeThreeSets();
    scanAndReview();
    exportTo("none/sets.csv", csv);
    EXPECT_EQ(information(), (Lines{"Information", "The results could not be exported.",
                                    "No such file or directory", ""}));
    EXPECT_FALSE(std::filesystem::exists(folder.pathOf("none")));
}

TEST_F(ExportTest, ItsKeyActsAfterTheMenuWasOpenedWithoutAResult) {
    writeThreeSets();
    scanAndReview();
    click("buttonHomePage");
    Q_EMIT window().moreMenu->aboutToShow();
    EXPECT_FALSE(window().exportResultsItem->isEnabled());
    delegate->locations().openWith({folder.pathOf("found")});
    click("findDuplicateExact");
    ASSERT_TRUE(comesTo("4"));
    click("scanInforOKBtn");
    const std::string target = folder.pathOf("sets.csv");
    panels.target = target;
    QTest::keyClick(window().windowHandle(), Qt::Key_E, Qt::ControlModifier);
    EXPECT_TRUE(comesTrue([&] { return std::filesystem::exists(target); }));
}

TEST_F(ExportTest, AFolderAsTargetIsRefused) {
    writeThreeSets();
    scanAndReview();
    folder.makeFolder("sets.csv");
    exportTo("sets.csv", csv);
    EXPECT_EQ(information(),
              (Lines{"Information", "The results could not be exported.", "Is a directory", ""}));
}

TEST_F(ExportTest, ThroughALinkItsTargetIsReplaced) {
    writeThreeSets();
    scanAndReview();
    const std::string target = folder.writeFile("target.csv", "old");
    folder.makeLink("link.csv", target);
    exportTo("link.csv", csv);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.pathOf("link.csv")));
    EXPECT_TRUE(contentOf(target).starts_with("category,"));
}

TEST_F(ExportTest, AnythingButAFileIsRefused) {
    writeThreeSets();
    scanAndReview();
    ASSERT_EQ(::mkfifo(folder.pathOf("pipe").c_str(), 0600), 0);
    exportTo("pipe", csv);
    EXPECT_EQ(information(), (Lines{"Information", "The results could not be exported.",
                                    "not a regular file", ""}));
    click("scanInforOKBtn");
    folder.makeLink("link.csv", folder.pathOf("missing.csv"));
    exportTo("link.csv", csv);
    EXPECT_EQ(information(), (Lines{"Information", "The results could not be exported.",
                                    "a link to a missing file", ""}));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.pathOf("link.csv")));
    EXPECT_FALSE(std::filesystem::exists(folder.pathOf("missing.csv")));
}

/// The export on a drive that does not respond until release().
class HeldExportTest : public ExportTest {
 protected:
    HeldExportTest() { fileCalls = &held; }

    void SetUp() override {
        writeThreeSets();
        scanAndReview();
        select(0, 0);
        table().setFocus();
        panels.target = folder.pathOf("sets.csv");
        window().exportResultsItem->trigger();
        ASSERT_TRUE(comesTrue([this] { return held.hasHeld(); }));
    }

    /// A thread that was left behind uses the calls of the test.
    void TearDown() override {
        held.release();
        delegate.reset();
        EXPECT_TRUE(comesTrue([] { return leftThreads == 0; }));
    }

    void keepByKey() {
        QTest::keyClick(window().windowHandle(), Qt::Key_K, Qt::ControlModifier);
        QCoreApplication::processEvents();
    }

    HeldFileCalls held{HeldFileCalls::Step::flushing};
};

TEST_F(HeldExportTest, WhileItWritesKeysDoNothing) {
    EXPECT_TRUE(delegate->exporting().isWriting());
    EXPECT_EQ(covers(), 1);
    EXPECT_TRUE(information().empty());
    keepByKey();
    EXPECT_EQ(modal().totalFilesSelected(), 0U);
    // The panel has a control of its own for keys.
    ASSERT_TRUE(comesTrue([this] { return !information().empty(); }));
    keepByKey();
    EXPECT_EQ(modal().totalFilesSelected(), 0U);
    held.release();
    ASSERT_TRUE(comesTrue([this] { return !delegate->exporting().isWriting(); }));
    click("scanInforOKBtn");
    EXPECT_EQ(covers(), 0);
    table().setFocus();
    keepByKey();
    EXPECT_EQ(modal().totalFilesSelected(), 1U);
}

TEST_F(HeldExportTest, APanelOffersToCancelAndThenTellsTheResult) {
    ASSERT_TRUE(comesTrue([this] { return !information().empty(); }));
    EXPECT_EQ(information(), (Lines{"Information", "Exporting the results\u2026", "sets.csv", ""}));
    EXPECT_EQ(control<HoverButton>("scanInforOKBtn")->text(), QStringLiteral("Cancel"));
    EXPECT_EQ(covers(), 1);
    held.release();
    ASSERT_TRUE(comesTrue([this] { return information()[1] == "3 sets exported."; }));
    EXPECT_EQ(control<HoverButton>("scanInforOKBtn")->text(), QStringLiteral("Ok"));
    EXPECT_EQ(covers(), 1);
    click("scanInforOKBtn");
    EXPECT_EQ(covers(), 0);
    EXPECT_TRUE(std::filesystem::exists(folder.pathOf("sets.csv")));
}

TEST_F(HeldExportTest, CancelFreesTheWindowAndWritesNothing) {
    ASSERT_TRUE(comesTrue([this] { return !information().empty(); }));
    click("scanInforOKBtn");
    EXPECT_FALSE(delegate->exporting().isWriting());
    EXPECT_EQ(covers(), 0);
    EXPECT_TRUE(information().empty());
    // Another export does not wait for the first.
    panels.target = folder.pathOf("other.csv");
    window().exportResultsItem->trigger();
    EXPECT_TRUE(delegate->exporting().isWriting());
    held.release();
    ASSERT_TRUE(comesTrue(
        [this] { return !information().empty() && information()[1] == "3 sets exported."; }));
    EXPECT_EQ(information()[2], "other.csv");
    EXPECT_TRUE(std::filesystem::exists(folder.pathOf("other.csv")));
    EXPECT_FALSE(std::filesystem::exists(folder.pathOf("sets.csv")));
}

TEST_F(HeldExportTest, TheWindowCanBeClosedAndLeavesNothingBehind) {
    window().close();
    EXPECT_EQ(terminations, 2);
    delegate.reset();
    EXPECT_EQ(leftThreads, 1);
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        const std::string name = entry.path().filename().native();
        EXPECT_FALSE(name.starts_with(".tarvin-") || name == "sets.csv") << name;
    }
}

TEST_F(ExportTest, WithoutSetsTheItemIsDisabled) {
    write("a.jpg", "one");
    scan();
    Q_EMIT window().moreMenu->aboutToShow();
    EXPECT_FALSE(window().exportResultsItem->isEnabled());
    delegate->exporting().open();
    EXPECT_TRUE(panels.saved.empty());
}

}  // namespace
}  // namespace tarvin
