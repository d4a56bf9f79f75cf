#include "controller/export_texts.h"
#include "controller/result_fixture.h"
#include "report/list_reader.h"
#include "support/file_content.h"

#include <fcntl.h>
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

TEST_F(ExportTest, WhileItWritesTheWindowIsCoveredAndKeysDoNothing) {
    writeThreeSets();
    scanAndReview();
    panels.target = folder.pathOf("pipe");
    ASSERT_EQ(::mkfifo(panels.target->c_str(), 0600), 0);
    // Writing blocks until the pipe has a reader.
    window().exportResultsItem->trigger();
    EXPECT_TRUE(delegate->exporting().isWriting());
    EXPECT_EQ(covers(), 1);
    QTest::keyClick(&window(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(modal().totalFilesSelected(), 0U);
    const int reader = ::open(panels.target->c_str(), O_RDONLY | O_CLOEXEC);
    EXPECT_TRUE(comesTrue([this] { return !information().empty(); }));
    ::close(reader);
    EXPECT_FALSE(delegate->exporting().isWriting());
    click("scanInforOKBtn");
    EXPECT_EQ(covers(), 0);
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
