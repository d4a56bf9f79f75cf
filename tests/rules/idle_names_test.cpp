#include "rules/project_files.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <regex>
#include <string>

namespace tarvin {
namespace {

std::string withoutComments(const std::string& text) {
    static const std::regex comment("//[^\n]*");
    return std::regex_replace(text, comment, "");
}

/// All sources of the programs.
const std::string& sources() {
    static const std::string all = [] {
        std::string text;
        for (const std::filesystem::path& file : cppFilesBelow("src")) {
            text += withoutComments(readProjectFile(file));
        }
        return text;
    }();
    return all;
}

/// How often a name stands in the sources, comments aside.
std::ptrdiff_t occurrences(const std::string& name) {
    const std::regex word("\\b" + name + "\\b");
    return std::distance(std::sregex_iterator(sources().begin(), sources().end(), word),
                         std::sregex_iterator());
}

struct IdleName {
    const char* name;
    std::ptrdiff_t places;  ///< declarations and definitions, and a connection or a setting
};

// Names that docs/architecture.md lists as being without a caller or a reader.
constexpr IdleName idleNames[] = {
    {"showLoading", 2},
    {"buttonHomeSimilarPageClicked", 2},
    {"buttonScanFolderClicked", 2},
    {"showAllCheckAlert", 2},
    {"treeView", 1},
    {"notif", 2},
    {"markUnmarkSelectedOutlineImage", 2},
    {"openSelectedImageOfOutlineView", 2},
    {"moveSelectedItemToTrash", 2},
    {"markAllSelectedSet", 2},
    {"unMarkAllSelectedSet", 2},
    {"getInfo", 2},
    {"getVolumeName", 2},
    {"similarIndex", 2},
    {"dataEqualsAtPath", 2},
    {"md5OfFile", 2},
    {"checkNilDate", 2},
    {"resetButton", 4},
    {"setButtonID", 2},
    {"setViewTransparent", 2},
};

std::string sectionOfNames() {
    const std::string page = readProjectFile("docs/architecture.md");
    const std::size_t begin = page.find("\n### Names without a caller\n");
    EXPECT_NE(begin, std::string::npos);
    return page.substr(begin, page.find("\n### ", begin + 1) - begin);
}

TEST(IdleNames, EachIsThereAndNothingCallsIt) {
    for (const IdleName& idle : idleNames) {
        EXPECT_EQ(occurrences(idle.name), idle.places) << idle.name;
    }
}

TEST(IdleNames, EachIsInTheListOfTheDocument) {
    const std::string section = sectionOfNames();
    for (const IdleName& idle : idleNames) {
        EXPECT_NE(section.find('`' + std::string(idle.name) + '`'), std::string::npos) << idle.name;
    }
}

}  // namespace
}  // namespace tarvin
