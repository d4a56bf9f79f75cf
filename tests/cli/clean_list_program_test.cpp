#include "cli/program_run.h"
#include "cli/result_json.h"
#include "store/exception_file.h"
#include "support/file_content.h"
#include "support/pipe.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

/// Photos, a list of their sets that the program has written, and a separate data folder.
class CleanList : public testing::Test {
 protected:
    CleanList() {
        for (const char* name : {"photos/a.jpg", "photos/b.jpg", "photos/c.jpg"}) {
            folder_.writeFile(name, "three equal photos");
        }
        folder_.writeFile("photos/d.txt", "two papers");
        folder_.writeFile("photos/e.txt", "two papers");
    }

    ProgramResult tarvin(const ProgramRun::Words& arguments, int input = -1) const {
        return runTarvin(arguments, {.environment = {{"XDG_DATA_HOME", folder_.pathOf("data")}},
                                     .input = input});
    }

    [[nodiscard]] std::string photo(const std::string& name) const {
        return folder_.pathOf("photos/" + name);
    }

    [[nodiscard]] Json scan() const {
        return parsedJson(tarvin({"scan", "--format", "json", folder_.pathOf("photos")}).output);
    }

    /// The list with "keep" for the files with these names.
    [[nodiscard]] Json keeping(const std::vector<std::string>& names) const {
        Json list = scan();
        for (Json& category : list["categories"]) {
            for (Json& extension : category["extensions"]) {
                for (Json& set : extension["sets"]) {
                    for (Json& file : set["files"]) {
                        for (const std::string& name : names) {
                            if (file["filePath"] == photo(name)) {
                                file["keep"] = true;
                            }
                        }
                    }
                }
            }
        }
        return list;
    }

    [[nodiscard]] std::string write(const Json& list, const std::string& name = "list.json") const {
        return folder_.writeFile(name, list.dump());
    }

    /// A list of one set.
    [[nodiscard]] std::string writeSet(const Json& files,
                                       const std::string& name = "list.json") const {
        Json list;
        list["categories"][0]["extensions"][0]["sets"][0]["files"] = files;
        return write(list, name);
    }

    /// The names of the files that are left.
    [[nodiscard]] std::string left() const {
        std::string names;
        for (const char* name : {"a.jpg", "b.jpg", "c.jpg", "d.txt", "e.txt"}) {
            if (std::filesystem::exists(photo(name))) {
                names += name[0];
            }
        }
        return names;
    }

    TemporaryFolder folder_;
};

TEST_F(CleanList, MovesWhatTheListDoesNotKeep) {
    const std::string list = write(keeping({"b.jpg", "c.jpg", "e.txt"}));
    const ProgramResult planned = tarvin({"clean", "--dry-run", "--from", list});
    EXPECT_EQ(planned.status, 0);
    EXPECT_EQ(planned.errors, "");
    EXPECT_EQ(planned.output.find(photo("b.jpg")), std::string::npos);
    EXPECT_NE(planned.output.find("Would move to the Trash: " + photo("a.jpg") + '\n'),
              std::string::npos);
    EXPECT_EQ(left(), "abcde");
    const ProgramResult result = tarvin({"clean", "--yes", "--from", list});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(result.output.ends_with("Duplicates Cleaned: 2\nSpace Regained: 0.03 KB \n"))
        << result.output;
    EXPECT_EQ(left(), "bce");
}

TEST_F(CleanList, AnUneditedListDoesWhatCleanDoes) {
    const std::string list = write(scan());
    const std::string listed = tarvin({"clean", "-n", "-f", "json", "--from", list}).output;
    const std::string found =
        tarvin({"clean", "-n", "-f", "json", folder_.pathOf("photos")}).output;
    EXPECT_EQ(parsedJson(listed)["files"].size(), 3U);
    EXPECT_EQ(parsedJson(listed)["deletedFilesSize"], parsedJson(found)["deletedFilesSize"]);
    EXPECT_EQ(tarvin({"clean", "-y", "--from", list}).status, 0);
    EXPECT_EQ(left().size(), 2U);
}

TEST_F(CleanList, WithoutAFileToMoveItMovesNothing) {
    const Json one = Json::array({{{"filePath", photo("a.jpg")}}});
    for (const std::string& list :
         {folder_.writeFile("none.json", R"({"categories": []})"),
          writeSet(Json::array(), "empty.json"), writeSet(one, "one.json"),
          write(keeping({"a.jpg", "b.jpg", "c.jpg", "d.txt", "e.txt"}), "all.json")}) {
        const ProgramResult planned = tarvin({"clean", "--dry-run", "--from", list});
        EXPECT_EQ(planned.status, 0) << list;
        EXPECT_EQ(planned.errors, "") << list;
        EXPECT_EQ(planned.output,
                  "Marked Duplicate Files: 0\nMarked File Size: 0.00 KB\n"
                  "Dry run: nothing was moved.\n")
            << list;
        const ProgramResult result = tarvin({"clean", "--yes", "--from", list});
        EXPECT_EQ(result.status, 0) << list;
        EXPECT_EQ(result.errors, "") << list;
        EXPECT_EQ(result.output, "Duplicates Cleaned: 0\nSpace Regained: 0.00 KB \n") << list;
        EXPECT_EQ(left(), "abcde") << list;
    }
}

TEST_F(CleanList, AnEmptyFileIsNoList) {
    const std::string list = folder_.writeFile("list.json", "");
    const ProgramResult result = tarvin({"clean", "--yes", "--from", list});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors, "tarvin: cannot use list '" + list + "': it is empty\n");
    EXPECT_EQ(left(), "abcde");
}

TEST_F(CleanList, ReadsStandardInput) {
    Pipe pipe;
    const std::string list = keeping({"b.jpg", "d.txt"}).dump();
    ASSERT_EQ(::write(pipe.writing(), list.data(), list.size()), static_cast<ssize_t>(list.size()));
    pipe.closeWriting();
    EXPECT_EQ(tarvin({"clean", "--yes", "--from", "-"}, pipe.reading()).status, 0);
    EXPECT_EQ(left(), "bd");
}

TEST_F(CleanList, AFileThatChangedSinceIsNotMoved) {
    const std::string list = write(keeping({"a.jpg", "d.txt"}));
    folder_.writeFile("photos/b.jpg", "other equal photos");
    const ProgramResult result = tarvin({"clean", "--yes", "--from", list});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot move '" + photo("b.jpg") +
                                 "' to the Trash: no file of its set that stays has the same "
                                 "content\n");
    EXPECT_EQ(left(), "abd");
}

TEST_F(CleanList, ASetThatLostItsKeptFileStays) {
    const std::string list = write(keeping({"a.jpg", "d.txt"}));
    std::filesystem::remove(photo("a.jpg"));
    const ProgramResult result = tarvin({"clean", "--yes", "--from", list});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find("tarvin: cannot read '" + photo("a.jpg") +
                                 "': No such file or directory\n"),
              std::string::npos)
        << result.errors;
    EXPECT_EQ(left(), "bcd");
}

TEST_F(CleanList, ExcludedFilesStay) {
    const std::string list = write(keeping({"a.jpg", "d.txt"}));
    ASSERT_EQ(tarvin({"exceptions", "add", photo("b.jpg")}).status, 0);
    const ProgramResult result = tarvin({"clean", "--yes", "--from", list});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarvin: cannot move '" + photo("b.jpg") +
                                 "' to the Trash: it is on the exceptions list\n");
    EXPECT_EQ(left(), "abd");
    EXPECT_EQ(tarvin({"clean", "--yes", "--no-exceptions", "--from",
                      writeSet(Json::array(
                          {{{"filePath", photo("a.jpg")}}, {{"filePath", photo("b.jpg")}}}))})
                  .status,
              0);
    EXPECT_EQ(left(), "ad");
}

TEST_F(CleanList, BadEntriesAreReportedAndOthersMoved) {
    folder_.makeLink("photos/link.jpg", photo("a.jpg"));
    const std::string list =
        writeSet(Json::array({{{"filePath", photo("a.jpg")}},
                              {{"filePath", "b.jpg"}},
                              {{"filePath", photo("../photos/b.jpg")}},
                              {{"filePath", folder_.pathOf("photos")}},
                              {{"filePath", photo("link.jpg")}},
                              {{"filePath", photo("b.jpg")}},
                              {{"filePath", photo("b.jpg")}},
                              {{"filePath", photo("none")}},
                              {{"filePath", photo("x")}, {"filePathBytes", "2f79"}},
                              {{"filePath", photo("c.jpg")}}}));
    const ProgramResult result = tarvin({"clean", "--yes", "--from", list});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors,
              "tarvin: cannot use 'b.jpg' of the list: the path must be absolute, without empty, "
              "'.' and '..' parts\n"
              "tarvin: cannot use '" +
                  photo("../photos/b.jpg") +
                  "' of the list: the path must be absolute, without empty, '.' and '..' parts\n"
                  "tarvin: cannot use '" +
                  folder_.pathOf("photos") +
                  "' of the list: it is a folder\n"
                  "tarvin: cannot use '" +
                  photo("link.jpg") +
                  "' of the list: it is not a regular file\n"
                  "tarvin: cannot use '" +
                  photo("b.jpg") +
                  "' of the list: the list has it more than once\n"
                  "tarvin: cannot read '" +
                  photo("none") +
                  "': No such file or directory\n"
                  "tarvin: cannot use '" +
                  photo("x") + "' of the list: 'filePath' and 'filePathBytes' differ\n");
    EXPECT_EQ(left(), "abde");
}

TEST_F(CleanList, NamesOfAnyBytesAreFound) {
    folder_.writeFile("odd/\xFF one.jpg", "same");
    folder_.writeFile("odd/two\nlines.jpg", "same");
    const Json list =
        parsedJson(tarvin({"scan", "--format", "json", folder_.pathOf("odd")}).output);
    EXPECT_EQ(tarvin({"clean", "--yes", "--from", write(list)}).status, 0);
    EXPECT_NE(std::filesystem::exists(folder_.pathOf("odd/\xFF one.jpg")),
              std::filesystem::exists(folder_.pathOf("odd/two\nlines.jpg")));
}

TEST_F(CleanList, ADamagedListMovesNothing) {
    const std::string whole = keeping({"a.jpg", "d.txt"}).dump();
    const std::string cut = folder_.writeFile("cut.json", whole.substr(0, whole.size() - 3));
    const ProgramResult result =
        tarvin({"clean", "--yes", "--output", folder_.pathOf("report"), "--from", cut});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors, "tarvin: cannot use list '" + cut + "': it ends too early (byte " +
                                 std::to_string(whole.size() - 3) + ")\n");
    EXPECT_FALSE(std::filesystem::exists(folder_.pathOf("report")));
    EXPECT_EQ(
        tarvin({"clean", "--yes", "--from", folder_.pathOf("none")}).errors,
        "tarvin: cannot read list '" + folder_.pathOf("none") + "': No such file or directory\n");
    EXPECT_EQ(left(), "abcde");
}

TEST_F(CleanList, AListOfANewerVersionMovesNothing) {
    Json list = keeping({"a.jpg", "d.txt"});
    EXPECT_EQ(list["version"], 1);
    list["version"] = 2;
    const ProgramResult result = tarvin({"clean", "--yes", "--from", write(list)});
    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.errors.starts_with("tarvin: cannot use list '" +
                                          folder_.pathOf("list.json") +
                                          "': its version is 2, and this tarvin reads 1 (byte "))
        << result.errors;
    EXPECT_EQ(left(), "abcde");
    list.erase("version");
    EXPECT_EQ(tarvin({"clean", "--yes", "--from", write(list)}).status, 0);
    EXPECT_EQ(left(), "ad");
}

TEST_F(CleanList, WhatIsNeitherAFileNorAPipeIsRefused) {
    const std::vector<std::pair<std::string, std::string>> rows = {
        {folder_.path(), "it is a folder"},
        {"/dev/null", "it is neither a file nor a pipe"},
        {"/dev/zero", "it is neither a file nor a pipe"}};
    for (const auto& [path, reason] : rows) {
        const ProgramResult result = tarvin({"clean", "--yes", "--from", path});
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.errors, "tarvin: cannot use list '" + path + "': " + reason + '\n');
    }
}

TEST_F(CleanList, ReadsAPipeThatAnotherProcessWrites) {
    const std::string list = write(keeping({"b.jpg", "d.txt"}));
    const std::string pipe = folder_.pathOf("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::thread writer([&] { std::ofstream(pipe) << contentOf(list); });
    EXPECT_EQ(tarvin({"clean", "--yes", "--from", pipe}).status, 0);
    writer.join();
    EXPECT_EQ(left(), "bd");
}

TEST_F(CleanList, EndlessInputThatIsNoListIsRefusedAtOnce) {
    const auto before = std::signal(SIGPIPE, SIG_IGN);
    Pipe pipe;
    std::thread writer([&] {
        const std::string noise(4096, '[');
        while (::write(pipe.writing(), noise.data(), noise.size()) > 0) {
        }
    });
    const ProgramResult result = tarvin({"clean", "--yes", "--from", "-"}, pipe.reading());
    pipe.closeReading();
    writer.join();
    static_cast<void>(std::signal(SIGPIPE, before));
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors,
              "tarvin: cannot use list standard input: not a list of sets: it is not an object "
              "(byte 1)\n");
    EXPECT_EQ(left(), "abcde");
}

TEST_F(CleanList, NoOptionThatChoosesFilesGoesWithAList) {
    const std::string list = write(keeping({"a.jpg", "d.txt"}));
    const std::vector<ProgramRun::Words> rows = {{"--min-size", "1"},
                                                 {"--max-size", "9"},
                                                 {"--skip-hidden"},
                                                 {"--remember"},
                                                 {"--one-file-system"},
                                                 {"--exclude", "*.jpg"},
                                                 {"--files-from", "/dev/null"},
                                                 {"--files-from", "/dev/null", "--null"},
                                                 {"--keep", "newest"},
                                                 {"--prefer", "/tmp"},
                                                 {"--protect", "/tmp"}};
    for (const ProgramRun::Words& option : rows) {
        ProgramRun::Words words{"clean", "--yes", "--from", list};
        words.insert(words.end(), option.begin(), option.end());
        const ProgramResult result = tarvin(words);
        EXPECT_EQ(result.status, 2) << option[0];
        EXPECT_TRUE(result.errors.find(" and --from cannot be combined\n") != std::string::npos ||
                    result.errors.find("--from and ") != std::string::npos)
            << option[0] << ": " << result.errors;
    }
    EXPECT_EQ(left(), "abcde");
}

TEST_F(CleanList, NeedsYesOrADryRunWithoutATerminal) {
    const Pipe pipe;
    const ProgramResult result = tarvin({"clean", "--from", "-"}, pipe.reading());
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.errors,
              "tarvin: --from - requires --yes or --dry-run: standard input cannot answer as well\n"
              "Try 'tarvin clean --help'.\n");
    EXPECT_TRUE(tarvin({"clean", "--from", write(scan())})
                    .errors.starts_with("tarvin: cannot ask for confirmation: "));
    EXPECT_EQ(left(), "abcde");
}

TEST_F(CleanList, RestorePutsTheFilesBack) {
    const std::string list = write(keeping({"c.jpg", "e.txt"}));
    ASSERT_EQ(tarvin({"clean", "--yes", "--from", list}).status, 0);
    ASSERT_EQ(left(), "ce");
    EXPECT_EQ(tarvin({"restore", "--yes"}).status, 0);
    EXPECT_EQ(left(), "abcde");
}

}  // namespace
}  // namespace tarvin
