#include "cli/program_run.h"
#include "cli/result_json.h"
#include "support/mount.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace tarvin {
namespace {

/// Three equal photos in three folders, and a separate data folder with its Trash.
class Keep : public testing::Test {
 protected:
    Keep() {
        write("all/import/new photo.jpg", std::chrono::hours(1));
        write("all/best/2024/photo.jpg", std::chrono::hours(3));
        write("all/archive/photo.jpg", std::chrono::hours(2));
    }

    void write(const std::string& name, std::chrono::hours age) const {
        const std::string path = folder_.writeFile(name, "the same photo");
        std::filesystem::last_write_time(path, std::filesystem::file_time_type::clock::now() - age);
    }

    ProgramResult tarvin(ProgramRun::Words arguments, const std::string& scanned = "all") const {
        arguments.push_back(scanned);
        return runTarvin(arguments, {.folder = folder_.path(),
                                     .environment = {{"XDG_DATA_HOME", folder_.pathOf("data")}}});
    }

    /// The files that are left after a clean-up.
    std::set<std::string> leftAfter(ProgramRun::Words arguments,
                                    const std::string& scanned = "all") const {
        arguments.insert(arguments.begin(), {"clean", "--yes"});
        const ProgramResult result = tarvin(arguments, scanned);
        EXPECT_EQ(result.status, 0) << result.errors;
        return left();
    }

    [[nodiscard]] std::set<std::string> left() const {
        std::set<std::string> names;
        const std::filesystem::path all = folder_.pathOf("all");
        for (const auto& entry : std::filesystem::recursive_directory_iterator(all)) {
            if (entry.is_regular_file()) {
                names.insert(entry.path().lexically_relative(all));
            }
        }
        return names;
    }

    void expectRefusal(ProgramRun::Words arguments, const std::string& reason) const {
        for (const char* command : {"scan", "clean"}) {
            ProgramRun::Words words = arguments;
            words.insert(words.begin(), command);
            if (std::string(command) == "clean") {
                words.emplace_back("--yes");
            }
            const ProgramResult result = tarvin(words);
            EXPECT_EQ(result.status, 2);
            EXPECT_EQ(result.output, "");
            EXPECT_EQ(result.errors,
                      "tarvin: " + reason + "\nTry 'tarvin " + command + " --help'.\n");
        }
        EXPECT_EQ(left().size(), 3U);
    }

    TemporaryFolder folder_;
};

TEST_F(Keep, TheNewestStays) {
    EXPECT_EQ(leftAfter({"--keep", "newest"}), (std::set<std::string>{"import/new photo.jpg"}));
}

TEST_F(Keep, TheOldestStays) {
    EXPECT_EQ(leftAfter({"--keep=oldest"}), (std::set<std::string>{"best/2024/photo.jpg"}));
}

TEST_F(Keep, TheShortestPathStays) {
    EXPECT_EQ(leftAfter({"--keep", "shortest"}), (std::set<std::string>{"archive/photo.jpg"}));
}

TEST_F(Keep, TheLongestPathStays) {
    EXPECT_EQ(leftAfter({"--keep", "longest"}), (std::set<std::string>{"import/new photo.jpg"}));
}

TEST_F(Keep, TheCopyInTheFirstPreferredFolderStays) {
    EXPECT_EQ(leftAfter({"--prefer", "all/archive/../best/", "--prefer", "all/import"}),
              (std::set<std::string>{"best/2024/photo.jpg"}));
}

TEST_F(Keep, AllProtectedFilesStayBesidesTheChosenOne) {
    EXPECT_EQ(leftAfter({"--keep", "newest", "--protect", "./all/archive"}),
              (std::set<std::string>{"import/new photo.jpg", "archive/photo.jpg"}));
}

TEST_F(Keep, WhereEverythingIsProtectedNothingIsMoved) {
    const ProgramResult planned = tarvin({"clean", "--dry-run", "--protect", "/"});
    EXPECT_EQ(planned.status, 0);
    EXPECT_EQ(planned.output,
              "Marked Duplicate Files: 0\nMarked File Size: 0.00 KB\n"
              "Dry run: nothing was moved.\n");
    const ProgramResult result = tarvin({"clean", "--yes", "--protect", "/"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.output, "Duplicates Cleaned: 0\nSpace Regained: 0.00 KB \n");
    EXPECT_EQ(left().size(), 3U);
}

TEST_F(Keep, WhereEverythingIsPreferredTheFirstFoundStays) {
    const ProgramResult found = tarvin({"scan", "--format", "json"});
    const std::string first = parsedJson(
        found.output)["categories"][0]["extensions"][0]["sets"][0]["files"][0]["filePath"];
    const ProgramResult result = tarvin({"clean", "--yes", "--prefer", "/"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(result.output.ends_with("Duplicates Cleaned: 2\nSpace Regained: 0.03 KB \n"))
        << result.output;
    EXPECT_EQ(left(), (std::set<std::string>{
                          std::filesystem::path(first).lexically_relative(folder_.pathOf("all"))}));
}

TEST_F(Keep, AFolderIsFoundBehindTheLinkThatIsScanned) {
    folder_.makeLink("link", "all");
    EXPECT_EQ(leftAfter({"--prefer", "all/archive", "--protect", "all/best"}, "link"),
              (std::set<std::string>{"archive/photo.jpg", "best/2024/photo.jpg"}));
}

TEST_F(Keep, AFolderNamedThroughALinkIsFound) {
    folder_.makeLink("link", "all/archive");
    EXPECT_EQ(leftAfter({"--prefer", "link"}), (std::set<std::string>{"archive/photo.jpg"}));
}

TEST_F(Keep, TheSameFolderPreferredAndProtectedStays) {
    EXPECT_EQ(leftAfter({"--prefer", "all/archive", "--protect", "all/archive"}),
              (std::set<std::string>{"archive/photo.jpg"}));
}

TEST_F(Keep, AFolderIsProtectedWhereItIsMountedAgain) {
    const Mount mount(folder_.pathOf("all/best"), folder_.makeFolder("bound"), nullptr, MS_BIND);
    if (!mount) {
        return;
    }
    // The mount point is scanned first, so the files have its path.
    const ProgramResult result =
        tarvin({"clean", "--yes", "--keep", "newest", "--protect", "all/best", "bound"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(left(), (std::set<std::string>{"import/new photo.jpg", "best/2024/photo.jpg"}));
}

TEST_F(Keep, AFolderInsideAProtectedOneIsProtectedWhereItIsMountedAgain) {
    const Mount mount(folder_.pathOf("all/best/2024"), folder_.makeFolder("other/bound"), nullptr,
                      MS_BIND);
    if (!mount) {
        return;
    }
    const ProgramResult result =
        tarvin({"clean", "--yes", "--keep", "newest", "--protect", "all/best", "other"});
    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(left(), (std::set<std::string>{"import/new photo.jpg", "best/2024/photo.jpg"}));
}

TEST_F(Keep, APreferredFolderIsFoundWhereItIsMountedAgain) {
    const Mount mount(folder_.pathOf("all/best"), folder_.makeFolder("bound"), nullptr, MS_BIND);
    if (mount) {
        tarvin({"clean", "--yes", "--prefer", "all/best", "bound"});
        EXPECT_EQ(left(), (std::set<std::string>{"best/2024/photo.jpg"}));
    }
}

TEST_F(Keep, HardLinksOfOneFileAreNotLostTogether) {
    std::filesystem::create_hard_link(folder_.pathOf("all/import/new photo.jpg"),
                                      folder_.pathOf("all/import/link.jpg"));
    const std::set<std::string> remaining = leftAfter({"--keep", "newest"});
    ASSERT_EQ(remaining.size(), 1U);
    EXPECT_TRUE(remaining.begin()->starts_with("import/")) << *remaining.begin();
}

TEST_F(Keep, NamesThatAreNotUtf8AreHeldByTheirFolder) {
    write("all/odd\xFF/b\xC3.jpg", std::chrono::hours(9));
    EXPECT_EQ(leftAfter({"--prefer", "all/odd\xFF"}), (std::set<std::string>{"odd\xFF/b\xC3.jpg"}));
}

TEST_F(Keep, AScanShowsWhichFilesStay) {
    const Json scan = parsedJson(tarvin({"scan", "-f", "json", "--prefer", "all/archive"}).output);
    const Json& files = scan["categories"][0]["extensions"][0]["sets"][0]["files"];
    ASSERT_EQ(files.size(), 3U);
    for (const Json& file : files) {
        const bool isInArchive =
            file["filePath"].get<std::string>().find("/archive/") != std::string::npos;
        EXPECT_EQ(file.contains("keep"), isInArchive) << file;
    }
    const std::string text = tarvin({"scan", "--keep", "newest"}).output;
    EXPECT_NE(text.find("[ ] " + folder_.pathOf("all/import/new photo.jpg")), std::string::npos)
        << text;
    EXPECT_NE(text.find("[x] " + folder_.pathOf("all/archive/photo.jpg")), std::string::npos)
        << text;
    EXPECT_EQ(left().size(), 3U);
}

TEST_F(Keep, AScanWithoutARuleShowsNoMarks) {
    EXPECT_EQ(tarvin({"scan", "-f", "json"}).output.find("keep"), std::string::npos);
    EXPECT_EQ(tarvin({"scan"}).output.find("[ ]"), std::string::npos);
}

TEST_F(Keep, OptionsThatDoNotFitTogetherAreRefused) {
    expectRefusal({"--keep", "preferred"}, "--keep preferred needs a folder: --prefer FOLDER");
    expectRefusal({"--keep", "newest", "--prefer", "all"},
                  "--prefer can only be combined with --keep preferred");
}

TEST_F(Keep, AFolderThatIsGoneIsRefused) {
    for (const char* option : {"--prefer", "--protect"}) {
        expectRefusal({option, "all/gone"}, std::string("invalid value 'all/gone' for ") + option +
                                                ": No such file or directory");
    }
}

TEST_F(Keep, AFileIsRefusedAsAFolder) {
    expectRefusal({"--prefer", "all/archive/photo.jpg"},
                  "invalid value 'all/archive/photo.jpg' for --prefer: Not a directory");
}

TEST_F(Keep, AFolderThatCannotBeReadIsRefused) {
    const std::string closed = folder_.makeFolder("closed");
    std::filesystem::permissions(closed, std::filesystem::perms::none);
    const ProgramResult result = runTarvin({"clean", "--yes", "--protect", "closed", "all"},
                                           {.folder = folder_.path(), .obeysPermissions = true});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors,
              "tarvin: invalid value 'closed' for --protect: Permission denied\n"
              "Try 'tarvin clean --help'.\n");
    EXPECT_EQ(left().size(), 3U);
}

}  // namespace
}  // namespace tarvin
