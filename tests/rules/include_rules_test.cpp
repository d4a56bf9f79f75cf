#include "rules/include_rules.h"

#include "rules/project_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>
#include <vector>

namespace tarvin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(IncludeRules, TheSourcesFollowTheLayerTable) {
    const std::vector<std::filesystem::path> files = cppFilesBelow("src");
    ASSERT_THAT(files, testing::Contains("src/model/file.h"));
    for (const std::filesystem::path& file : files) {
        const std::string path = file.lexically_relative("src").string();
        EXPECT_THAT(includeBreaches(path, readProjectFile(file)), IsEmpty());
    }
}

TEST(IncludeRules, AForbiddenArrowBetweenFoldersIsNamedWithItsLine) {
    EXPECT_THAT(includeBreaches("model/set.h", "#pragma once\n#include \"scan/finder.h\"\n"),
                ElementsAre("model/set.h:2: model/ may not include \"scan/finder.h\""));
}

TEST(IncludeRules, EveryForbiddenLineOfAFileIsNamed) {
    EXPECT_THAT(includeBreaches("platform/a.cpp",
                                "#include \"model/file.h\"\n"
                                "#include <string>\n"
                                "#include \"cli/options.h\"\n"),
                ElementsAre("platform/a.cpp:1: platform/ may not include \"model/file.h\"",
                            "platform/a.cpp:3: platform/ may not include \"cli/options.h\""));
}

TEST(IncludeRules, AFolderMayIncludeItself) {
    EXPECT_THAT(includeBreaches("scan/a.cpp", "#include \"scan/a.h\"\n"), IsEmpty());
    EXPECT_THAT(includeBreaches("platform/linux/a.cpp", "#include \"platform/linux/a.h\"\n"),
                IsEmpty());
}

TEST(IncludeRules, AHeaderIsNamedWithItsFolder) {
    EXPECT_THAT(includeBreaches("scan/a.cpp", "#include \"a.h\"\n"),
                ElementsAre("scan/a.cpp:1: scan/ may not include \"a.h\""));
    EXPECT_THAT(includeBreaches("scan/a.cpp", "#include \"../model/file.h\"\n"),
                ElementsAre("scan/a.cpp:1: scan/ may not include \"../model/file.h\""));
    EXPECT_THAT(includeBreaches("scan/a.cpp", "#include \"scan\"\n"),
                ElementsAre("scan/a.cpp:1: scan/ may not include \"scan\""));
}

TEST(IncludeRules, TheModelMayIncludeOnlyTwoHeadersOfThePlatform) {
    EXPECT_THAT(includeBreaches("model/a.cpp",
                                "#include \"platform/file_system.h\"\n"
                                "#include \"platform/timestamp.h\"\n"),
                IsEmpty());
    EXPECT_THAT(includeBreaches("model/a.cpp", "#include \"platform/trash_move.h\"\n"),
                ElementsAre("model/a.cpp:1: model/ may not include \"platform/trash_move.h\""));
}

TEST(IncludeRules, TheCleanUpKnowsModelPlatformAndStoreAlone) {
    EXPECT_THAT(includeBreaches("clean/a.cpp",
                                "#include \"clean/a.h\"\n"
                                "#include \"model/set.h\"\n"
                                "#include \"platform/trash_move.h\"\n"
                                "#include \"store/clean_up_journal.h\"\n"),
                IsEmpty());
    for (const std::string name : {"scan/scan_run.h", "cli/messages.h", "controller/session.h"}) {
        EXPECT_THAT(includeBreaches("clean/a.cpp", "#include \"" + name + "\"\n"),
                    ElementsAre("clean/a.cpp:1: clean/ may not include \"" + name + '"'));
    }
    for (const std::string folder : {"model", "scan", "store", "platform"}) {
        const std::string path = folder + "/a.cpp";
        EXPECT_THAT(includeBreaches(path, "#include \"clean/clean_up.h\"\n"),
                    ElementsAre(path + ":1: " + folder + "/ may not include \"clean/clean_up.h\""));
    }
    EXPECT_THAT(includeBreaches("controller/a.h", "#include \"clean/clean_up_run.h\"\n"),
                IsEmpty());
}

TEST(IncludeRules, TheScanAndTheStoreDoNotKnowEachOther) {
    EXPECT_THAT(includeBreaches("scan/a.cpp", "#include \"store/data_file.h\"\n"),
                ElementsAre("scan/a.cpp:1: scan/ may not include \"store/data_file.h\""));
    EXPECT_THAT(includeBreaches("store/a.cpp", "#include \"scan/finder.h\"\n"),
                ElementsAre("store/a.cpp:1: store/ may not include \"scan/finder.h\""));
}

TEST(IncludeRules, TheTerminalProgramMayIncludeTheWholeCore) {
    EXPECT_THAT(includeBreaches("cli/main.cpp",
                                "#include \"clean/clean_up_run.h\"\n"
                                "#include \"model/file.h\"\n"
                                "#include \"platform/platform.h\"\n"
                                "#include \"scan/finder.h\"\n"
                                "#include \"store/exception_file.h\"\n"),
                IsEmpty());
    EXPECT_THAT(includeBreaches("cli/main.cpp", "#include \"controller/app_delegate.h\"\n"),
                ElementsAre("cli/main.cpp:1: cli/ may not include \"controller/app_delegate.h\""));
}

TEST(IncludeRules, NothingBelowTheWindowMayIncludeQt) {
    for (const std::string folder :
         {"platform", "text", "model", "scan", "store", "clean", "report", "cli"}) {
        const std::string path = folder + "/a.cpp";
        EXPECT_THAT(includeBreaches(path, "#include <QString>\n"),
                    ElementsAre(path + ":1: " + folder + "/ may not include <QString>"));
        EXPECT_THAT(includeBreaches(path, "#include <QtCore/qglobal.h>\n"),
                    ElementsAre(path + ":1: " + folder + "/ may not include <QtCore/qglobal.h>"));
    }
}

TEST(IncludeRules, TheWindowMayIncludeQt) {
    for (const std::string path : {"controls/a.h", "interface/a.h", "controller/a.h", "app/a.h"}) {
        EXPECT_THAT(includeBreaches(path, "#include <QWidget>\n#include <QtGui/QIcon>\n"),
                    IsEmpty());
    }
}

TEST(IncludeRules, TheControlsKnowNothingOfOurs) {
    EXPECT_THAT(includeBreaches("controls/a.cpp", "#include \"model/file.h\"\n"),
                ElementsAre("controls/a.cpp:1: controls/ may not include \"model/file.h\""));
}

TEST(IncludeRules, EachLibraryIsNamedOnlyInTheSourcesOfItsFolder) {
    struct Row {
        std::string header;
        std::string home;
    };
    const std::vector<Row> rows = {{"plist/plist.h", "store"},
                                   {"sqlite3.h", "store"},
                                   {"glib.h", "platform"},
                                   {"utf8proc.h", "text"},
                                   {"xxhash.h", "scan"}};
    for (const Row& row : rows) {
        const std::string line = "#include <" + row.header + ">\n";
        for (const std::string folder :
             {"model", "scan", "store", "clean", "report", "platform", "text", "cli"}) {
            if (folder != row.home) {
                EXPECT_THAT(includeBreaches(folder + "/a.cpp", line),
                            ElementsAre(folder + "/a.cpp:1: " + folder + "/ may not include <" +
                                        row.header + '>'));
            }
        }
        EXPECT_THAT(includeBreaches(row.home + "/a.cpp", line), IsEmpty());
        EXPECT_THAT(
            includeBreaches(row.home + "/a.h", line),
            ElementsAre(row.home + "/a.h:1: a header may not include <" + row.header + '>'));
    }
}

TEST(IncludeRules, OnlyThePlatformReportsAndTheTerminalProgramSpeakToTheSystem) {
    const std::string lines = "#include <unistd.h>\n#include <sys/stat.h>\n";
    EXPECT_THAT(includeBreaches("platform/linux/a.cpp", lines), IsEmpty());
    EXPECT_THAT(includeBreaches("cli/a.cpp", lines), IsEmpty());
    EXPECT_THAT(includeBreaches("report/a.cpp", lines), IsEmpty());
    EXPECT_THAT(includeBreaches("cli/a.h", lines),
                ElementsAre("cli/a.h:1: a header may not include <unistd.h>",
                            "cli/a.h:2: a header may not include <sys/stat.h>"));
    EXPECT_THAT(includeBreaches("scan/a.cpp", lines),
                ElementsAre("scan/a.cpp:1: scan/ may not include <unistd.h>",
                            "scan/a.cpp:2: scan/ may not include <sys/stat.h>"));
}

/// Words in a source that hold on one system only.
std::vector<std::string> systemsIn(const std::string& source) {
    static const std::regex words(
        "__linux__|__gnu_linux__|__APPLE__|__MACH__|_WIN32|Q_OS_[A-Z]+|platform/"
        "(linux|macos|posix)/");
    return {std::sregex_token_iterator(source.begin(), source.end(), words), {}};
}

TEST(IncludeRules, OnlyThePlatformAsksForTheSystem) {
    for (const std::filesystem::path& file : cppFilesBelow("src")) {
        if (!file.string().starts_with("src/platform/")) {
            EXPECT_THAT(systemsIn(readProjectFile(file)), IsEmpty()) << file;
        }
    }
    EXPECT_THAT(systemsIn("#ifdef Q_OS_DARWIN\n#include \"platform/linux/volumes.h\"\n"),
                ElementsAre("Q_OS_DARWIN", "platform/linux/"));
}

TEST(IncludeRules, TheOptionAndJsonLibrariesBelongToTheTerminalProgram) {
    const std::string lines = "#include <CLI/CLI.hpp>\n#include <nlohmann/json.hpp>\n";
    EXPECT_THAT(includeBreaches("cli/a.h", lines), IsEmpty());
    EXPECT_THAT(includeBreaches("store/a.cpp", lines),
                ElementsAre("store/a.cpp:1: store/ may not include <CLI/CLI.hpp>",
                            "store/a.cpp:2: store/ may not include <nlohmann/json.hpp>"));
}

TEST(IncludeRules, ReportsUseTheJsonLibraryInTheirSources) {
    const std::string line = "#include <nlohmann/json.hpp>\n";
    EXPECT_THAT(includeBreaches("report/a.cpp", line), IsEmpty());
    EXPECT_THAT(includeBreaches("report/a.h", line),
                ElementsAre("report/a.h:1: a header may not include <nlohmann/json.hpp>"));
}

TEST(IncludeRules, EveryFolderMayIncludeTheStandardLibrary) {
    for (const std::string folder : {"model", "scan", "store", "clean", "platform", "cli",
                                     "controls", "interface", "controller", "app"}) {
        EXPECT_THAT(includeBreaches(folder + "/a.h", "#include <vector>\n"), IsEmpty());
    }
}

TEST(IncludeRules, AnUnknownLibraryIsAllowedNowhere) {
    for (const std::string name : {"boost/asio.hpp", "gio/gio.h"}) {
        EXPECT_THAT(
            includeBreaches("platform/a.cpp", "#include <" + name + ">\n"),
            ElementsAre("platform/a.cpp:1: <" + name + "> is of no library that the project uses"));
    }
}

TEST(IncludeRules, BlanksInTheLineDoNotHideAnInclude) {
    EXPECT_THAT(includeBreaches("model/a.cpp", "  #  include\t\"scan/a.h\"\n"),
                ElementsAre("model/a.cpp:1: model/ may not include \"scan/a.h\""));
}

TEST(IncludeRules, AnIncludeBehindAMacroIsRefused) {
    EXPECT_THAT(includeBreaches("scan/a.cpp", "#include HEADER\n"),
                ElementsAre("scan/a.cpp:1: an #include that names no file cannot be judged"));
}

TEST(IncludeRules, OtherLinesAreNotJudged) {
    EXPECT_THAT(includeBreaches("model/a.cpp",
                                "// #include \"scan/a.h\"\n"
                                "#define INCLUDE \"scan/a.h\"\n"
                                "const char* text = \"#include <QString>\";\n"),
                IsEmpty());
}

TEST(IncludeRules, AFileOutsideTheTableIsRefused) {
    EXPECT_THAT(includeBreaches("helpers/a.h", ""),
                ElementsAre("helpers/a.h: in no folder of the layer table"));
    EXPECT_THAT(includeBreaches("model", ""),
                ElementsAre("model: in no folder of the layer table"));
}

}  // namespace
}  // namespace tarvin
