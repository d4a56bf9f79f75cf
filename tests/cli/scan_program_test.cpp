#include "cli/program_run.h"
#include "cli/result_json.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tarvin {
namespace {

/// Noon of 31 January 2026, UTC.
void setDate(const std::string& path) {
    const auto noon = std::chrono::sys_days(std::chrono::year(2026) / 1 / 31) +
                      std::chrono::hours(12) + std::chrono::nanoseconds(123'456'789);
    std::filesystem::last_write_time(path, std::chrono::file_clock::from_sys(noon));
}

// The sanitizers reserve terabytes of address space, so memory cannot be limited under them.
#ifdef TARVIN_SANITIZED
constexpr bool limitsMemory = false;
#else
constexpr bool limitsMemory = true;
#endif
constexpr std::uint64_t manyBytes = limitsMemory ? std::uint64_t{1} << 30U : 0;
constexpr std::uint64_t fewBytes = limitsMemory ? 24 * 1024 * 1024 : 0;

/// A tree with a known result: each folder has one file, so the order of the folders on the command
/// line is that of the result.
class Scan : public testing::Test {
 protected:
    std::string write(const std::string& name, const std::string& content) const {
        std::string path = folder_.writeFile(name, content);
        setDate(path);
        return path;
    }

    [[nodiscard]] ProgramResult scan(const std::string& format,
                                     const std::vector<std::string>& folders) const {
        ProgramRun::Words arguments{"scan", "--format", format};
        arguments.insert(arguments.end(), folders.begin(), folders.end());
        return runTarvin(arguments, {.folder = folder_.path()});
    }

    TemporaryFolder folder_;
};

/// `text` with each "DIR" replaced by the folder.
std::string placed(std::string text, const std::string& folder) {
    for (std::size_t at = text.find("DIR"); at != std::string::npos;
         at = text.find("DIR", at + folder.size())) {
        text.replace(at, 3, folder);
    }
    return text;
}

TEST_F(Scan, JsonHasEveryLevel) {
    write("1/a.jpg", "photo");
    write("2/b.JPG", "photo");
    write("3/c.mp3", "sound!");
    write("4/d.mp3", "sound!");
    write("5/e.jpg", "photo");
    write("6/alone.pdf", "paper");
    const ProgramResult result = scan("json", {"1", "2", "3", "4", "5", "6"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output.back(), '\n');
    const Json expected = Json::parse(placed(R"({
        "version": 1, "totalFiles": 3, "totalFilesSize": 16, "stopped": false, "reclaimable": 16,
        "unreadable": [],
        "collected": {"Image": 3, "Video": 0, "Audio": 2, "Documents": 1, "Other": 0},
        "categories": [
            {"category": "Image", "totalFiles": 2, "totalFilesSize": 10, "extensions": [
                {"name": "jpg", "totalFilesInExtension": 2, "totalFilesInExtensionSize": 10, "sets": [
                    {"totalFilesInSet": 2, "totalFilesInSetSize": 10, "files": [
                        {"filePath": "DIR/1/a.jpg", "fileSize": 5, "index": 0,
                         "fileModificationDate": "2026-01-31T12:00:00.123456789Z"},
                        {"filePath": "DIR/2/b.JPG", "fileSize": 5, "index": 1,
                         "fileModificationDate": "2026-01-31T12:00:00.123456789Z"},
                        {"filePath": "DIR/5/e.jpg", "fileSize": 5, "index": 2,
                         "fileModificationDate": "2026-01-31T12:00:00.123456789Z"}]}]}]},
            {"category": "Video", "totalFiles": 0, "totalFilesSize": 0, "extensions": []},
            {"category": "Audio", "totalFiles": 1, "totalFilesSize": 6, "extensions": [
                {"name": "mp3", "totalFilesInExtension": 1, "totalFilesInExtensionSize": 6, "sets": [
                    {"totalFilesInSet": 1, "totalFilesInSetSize": 6, "files": [
                        {"filePath": "DIR/3/c.mp3", "fileSize": 6, "index": 0,
                         "fileModificationDate": "2026-01-31T12:00:00.123456789Z"},
                        {"filePath": "DIR/4/d.mp3", "fileSize": 6, "index": 1,
                         "fileModificationDate": "2026-01-31T12:00:00.123456789Z"}]}]}]},
            {"category": "Documents", "totalFiles": 0, "totalFilesSize": 0, "extensions": []},
            {"category": "Other", "totalFiles": 0, "totalFilesSize": 0, "extensions": []}]})",
                                             folder_.path()));
    EXPECT_EQ(foreseeable(result.output), expected);
}

TEST_F(Scan, TextListsSetsAndASummary) {
    write("1/a.jpg", std::string(1000, 'p'));
    write("2/two\nlines.jpg", std::string(1000, 'p'));
    const ProgramResult result = scan("text", {"1", "2"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    const std::string expected = placed(R"(Image
  jpg
    Set(1)  1.00 KB each
      DIR/1/a.jpg
      $'DIR/2/two\nlines.jpg'

1 duplicate file in 1 set. 1.00 KB can be regained.
2 files compared. Elapsed Time: 00:0)",
                                        folder_.path());
    EXPECT_EQ(result.output.substr(0, expected.size()), expected);
}

TEST_F(Scan, HardLinksCountOnceAsReclaimable) {
    // Four hard links to two files: one file can be removed.
    write("1/a.jpg", std::string(1000, 'p'));
    write("2/b.jpg", std::string(1000, 'p'));
    std::filesystem::create_hard_link(folder_.pathOf("1/a.jpg"), folder_.pathOf("1/link.jpg"));
    std::filesystem::create_hard_link(folder_.pathOf("2/b.jpg"), folder_.pathOf("2/link.jpg"));
    // Two hard links to one file.
    write("1/c.mp3", "sound");
    std::filesystem::create_hard_link(folder_.pathOf("1/c.mp3"), folder_.pathOf("2/c.mp3"));
    const Json json = parsedJson(scan("json", {"1", "2"}).output);
    EXPECT_EQ(json["totalFiles"], 4);
    EXPECT_EQ(json["totalFilesSize"], 3005);
    EXPECT_EQ(json["reclaimable"], 1000);
    const std::string text = scan("text", {"1", "2"}).output;
    EXPECT_NE(text.find("\n4 duplicate files in 2 sets. 1.00 KB can be regained.\n"),
              std::string::npos)
        << text;
}

TEST_F(Scan, HardLinksOfOneFileAreNotReclaimable) {
    write("1/a.jpg", std::string(1000, 'p'));
    std::filesystem::create_hard_link(folder_.pathOf("1/a.jpg"), folder_.pathOf("1/b.jpg"));
    EXPECT_EQ(parsedJson(scan("json", {"1"}).output)["reclaimable"], 0);
    const std::string text = scan("text", {"1"}).output;
    EXPECT_NE(text.find("\n1 duplicate file in 1 set. 0.00 KB can be regained.\n"),
              std::string::npos)
        << text;
}

TEST_F(Scan, CsvHasARowForEachFile) {
    write("1/a,b.pdf", "paper");
    write("2/c.pdf", "paper");
    const ProgramResult result = scan("csv", {"1", "2"});
    EXPECT_EQ(result.status, 0);
    const std::string row = "Documents,pdf,1,0,5,2026-01-31T12:00:00.123456789Z,";
    EXPECT_EQ(result.output.find("category,extension,set,index,size,modified,created,path,"
                                 "path_bytes\r\n" +
                                 row),
              0U);
    EXPECT_NE(result.output.find(",\"" + folder_.path() + "/1/a,b.pdf\",\r\n"), std::string::npos);
}

TEST_F(Scan, NamesMayBeAnyBytes) {
    const std::string odd = "od\xFF\"d\n\t\x1B[0m";
    write("1/" + odd + ".jpg", "photo");
    write("2/plain.jpg", "photo");
    const Json json = parsedJson(scan("json", {"1", "2"}).output);
    const Json& file = json.at("/categories/0/extensions/0/sets/0/files/0"_json_pointer);
    EXPECT_EQ(file["filePath"], folder_.path() + "/1/od\uFFFD\"d\n\t\x1B[0m.jpg");
    EXPECT_TRUE(
        file["filePathBytes"].get<std::string>().ends_with("6f64ff22640a091b5b306d2e6a7067"));
}

TEST_F(Scan, AFolderMayHaveAnyName) {
    const std::vector<std::string> names{"[a,b]", "{}",        "++",        "scan", "\xFF",
                                         " ",     "two words", "new\nline", "*"};
    Paths paths;
    for (const std::string& name : names) {
        write(name + "/a.jpg", "photo");
        paths.insert(folder_.pathOf(name == "\xFF" ? "\uFFFD/a.jpg" : name + "/a.jpg"));
    }
    const ProgramResult result = scan("json", names);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(setsIn(parsedJson(result.output)), Sets{paths});
}

TEST_F(Scan, AfterTheEndOfOptionsAFolderMayBeginWithADash) {
    write("-b/a.jpg", "photo");
    write("--format/a.jpg", "photo");
    const ProgramResult result = scan("json", {"--", "-b", "--format"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(setsIn(parsedJson(result.output), folder_.path()),
              (Sets{{"/-b/a.jpg", "/--format/a.jpg"}}));
}

TEST_F(Scan, AFolderMayBeNamedInManyWays) {
    write("a/x.jpg", "photo");
    write("b/x.jpg", "photo");
    for (const char* name : {"b", "b/", "./b", "a/../b", ".//b/.", "../b/../b"}) {
        const std::string given =
            std::string(name).starts_with("../") ? folder_.pathOf("a/") + name : name;
        const ProgramResult result = scan("json", {"a", given});
        EXPECT_EQ(setsIn(parsedJson(result.output), folder_.path()),
                  (Sets{{"/a/x.jpg", "/b/x.jpg"}}))
            << given;
    }
}

TEST_F(Scan, AFolderThatIsALinkIsFollowed) {
    write("real/a/x.jpg", "photo");
    write("real/b/x.jpg", "photo");
    folder_.makeLink("link", "real");
    EXPECT_EQ(setsIn(parsedJson(scan("json", {"link/"}).output), folder_.path()),
              (Sets{{"/link/a/x.jpg", "/link/b/x.jpg"}}));
}

TEST_F(Scan, OverlappingFoldersDoNotMakeAFileItsOwnDuplicate) {
    write("a/sub/x.jpg", "photo");
    write("a/y.jpg", "photo");
    for (const std::vector<std::string>& folders :
         {std::vector<std::string>{"a", "a/sub"}, {"a/sub", "a"}, {"a", "a", "a/"}}) {
        const ProgramResult result = scan("json", folders);
        EXPECT_EQ(result.status, 0);
        const Json json = parsedJson(result.output);
        EXPECT_EQ(setsIn(json, folder_.path()), (Sets{{"/a/sub/x.jpg", "/a/y.jpg"}}));
        EXPECT_EQ(json["collected"]["Image"], 2);
    }
}

TEST_F(Scan, ReportsMissingFoldersAndScansTheOthers) {
    write("a/x.jpg", "photo");
    write("b/x.jpg", "photo");
    const ProgramResult result = scan("json", {"a", "missing", "a/x.jpg", "", "no/../way", "b"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors,
              placed("tarvin: cannot read $'': No such file or directory\n"
                     "tarvin: cannot read 'DIR/missing': No such file or directory\n"
                     "tarvin: cannot read 'DIR/no/../way': No such file or directory\n",
                     folder_.path()));
    EXPECT_EQ(setsIn(parsedJson(result.output), folder_.path()), (Sets{{"/a/x.jpg", "/b/x.jpg"}}));
}

TEST_F(Scan, ReportsUnreadableFilesInsideAFolder) {
    write("tree/a.jpg", "photo");
    write("tree/b.jpg", "photo");
    const std::string file = write("tree/c.jpg", "photo");
    write("tree/closed/d.jpg", "photo");
    const std::string folder = folder_.pathOf("tree/closed");
    std::filesystem::permissions(file, std::filesystem::perms::none);
    std::filesystem::permissions(folder, std::filesystem::perms::none);
    const ProgramSetting setting{.folder = folder_.path(), .obeysPermissions = true};
    const std::string told = placed(
        "tarvin: cannot read folder 'DIR/tree/closed': Permission denied\n"
        "tarvin: cannot read 'DIR/tree/c.jpg': Permission denied\n",
        folder_.path());
    const ProgramResult json = runTarvin({"scan", "--format", "json", "tree"}, setting);
    EXPECT_EQ(json.status, 1);
    EXPECT_EQ(json.errors, told);
    EXPECT_EQ(Json::parse(json.output)["unreadable"],
              Json::parse(placed(R"([{"path": "DIR/tree/closed", "reason": "Permission denied"},
                                     {"path": "DIR/tree/c.jpg", "reason": "Permission denied"}])",
                                 folder_.path())));
    const ProgramResult text = runTarvin({"scan", "tree"}, setting);
    EXPECT_EQ(text.status, 1);
    EXPECT_NE(text.output.find("\n2 files compared. "), std::string::npos) << text.output;
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all);
}

TEST_F(Scan, NamesTwentyUnreadableFilesAndListsAllInJson) {
    for (int number = 100; number < 123; ++number) {
        const std::string folder = folder_.makeFolder("tree/" + std::to_string(number));
        std::filesystem::permissions(folder, std::filesystem::perms::none);
    }
    const ProgramResult result = runTarvin({"scan", "--format", "json", "tree"},
                                           {.folder = folder_.path(), .obeysPermissions = true});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(std::count(result.errors.begin(), result.errors.end(), '\n'), 21);
    EXPECT_NE(result.errors.find("/tree/119': Permission denied\n"), std::string::npos);
    EXPECT_TRUE(result.errors.ends_with("tarvin: cannot read 3 more files and folders\n"))
        << result.errors;
    EXPECT_EQ(Json::parse(result.output)["unreadable"].size(), 23U);
}

TEST_F(Scan, NeverScansATrashFolder) {
    write("volume/.Trash-1000/files/a.jpg", "photo");
    write("volume/.Trash-1000/files/b.jpg", "photo");
    const ProgramResult result = scan("json", {"volume/.Trash-1000/files"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(
        result.errors,
        placed(
            "tarvin: cannot scan 'DIR/volume/.Trash-1000/files': Trash folders are never scanned\n",
            folder_.path()));
    EXPECT_EQ(Json::parse(result.output)["totalFiles"], 0);
}

TEST_F(Scan, SucceedsWithoutThreads) {
    write("1/a.jpg", "photo");
    write("2/b.jpg", "photo");
    const ProgramResult result =
        runTarvin({"scan", "--format", "json", "1", "2"},
                  {.folder = folder_.path(), .maxMemory = manyBytes, .threadStack = manyBytes * 4});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(setsIn(parsedJson(result.output), folder_.path()), (Sets{{"/1/a.jpg", "/2/b.jpg"}}));
}

TEST_F(Scan, ReportsThatMemoryRanOut) {
    folder_.makeFolder("tree");
    // Their names and records exceed the limit.
    for (int number = 0; number < 40'000; ++number) {
        folder_.writeFile("tree/" + std::string(200, 'n') + std::to_string(number) + ".jpg", "");
    }
    const ProgramResult result =
        runTarvin({"scan", "tree"}, {.folder = folder_.path(), .maxMemory = fewBytes});
    EXPECT_EQ(result.status, limitsMemory ? 1 : 0) << result.errors;
    EXPECT_EQ(result.errors.find("out of memory") != std::string::npos, limitsMemory)
        << result.errors;
}

TEST_F(Scan, AnEmptyFolderHasNoDuplicates) {
    folder_.makeFolder("empty");
    const ProgramResult text = scan("text", {"empty"});
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.errors, "");
    EXPECT_EQ(text.output, "No duplicates File found\n0 files compared. Elapsed Time: 00:00:00\n");
    EXPECT_EQ(setsIn(parsedJson(scan("json", {"empty"}).output)), Sets());
    EXPECT_EQ(scan("csv", {"empty"}).output,
              "category,extension,set,index,size,modified,created,path,path_bytes\r\n");
}

TEST_F(Scan, TheSameTreeGivesTheSameOutput) {
    for (int number = 0; number < 200; ++number) {
        write(std::to_string(number % 7) + "/" + std::to_string(number) + ".jpg",
              std::to_string(number % 50));
    }
    const ProgramResult first = scan("json", {"."});
    EXPECT_EQ(setsIn(parsedJson(first.output)).size(), 50U);
    const std::string csv = scan("csv", {"."}).output;
    for (int run = 0; run < 10; ++run) {
        EXPECT_EQ(foreseeable(scan("json", {"."}).output), foreseeable(first.output));
        EXPECT_EQ(scan("csv", {"."}).output, csv);
    }
}

TEST_F(Scan, TheOrderOfCreationDoesNotMatter) {
    std::vector<int> numbers;
    for (int number = 0; number < 100; ++number) {
        numbers.push_back(number * 37 % 100);
    }
    std::vector<Sets> sets;
    for (const char* tree : {"first", "second"}) {
        for (const int number : numbers) {
            write(std::string(tree) + "/" + std::to_string(number % 3) + "/" +
                      std::to_string(number) + ".jpg",
                  std::to_string(number % 20));
        }
        sets.push_back(setsIn(parsedJson(scan("json", {tree}).output), folder_.pathOf(tree)));
        numbers = {numbers.rbegin(), numbers.rend()};
    }
    EXPECT_EQ(sets[0].size(), 20U);
    EXPECT_EQ(sets[0], sets[1]);
}

}  // namespace
}  // namespace tarvin
