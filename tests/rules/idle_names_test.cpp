#include "rules/project_files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <map>
#include <string>

namespace tarvin {
namespace {

bool isPartOfAName(char character) {
    return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

/// Counts each word of a source, without comments.
void countWords(const std::string& text, std::map<std::string, int>& counts) {
    auto at = text.begin();
    while (at != text.end()) {
        if (*at == '/' && at + 1 != text.end() && at[1] == '/') {
            at = std::find(at, text.end(), '\n');
        } else if (isPartOfAName(*at)) {
            const auto end = std::find_if_not(at, text.end(), isPartOfAName);
            ++counts[std::string(at, end)];
            at = end;
        } else {
            ++at;
        }
    }
}

/// Occurrences of each word in the sources of the programs.
const std::map<std::string, int>& words() {
    static const std::map<std::string, int> counts = [] {
        std::map<std::string, int> all;
        for (const std::filesystem::path& file : cppFilesBelow("src")) {
            countWords(readProjectFile(file), all);
        }
        return all;
    }();
    return counts;
}

struct IdleName {
    const char* name;
    int places;  ///< declarations and definitions, and a connection or a setting
};

// Names that docs/architecture.md lists as unused.
constexpr IdleName idleNames[] = {
    {"showLoading", 1},
    {"buttonHomeSimilarPageClicked", 1},
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
    {"afterSimilarReportCall", 1},
    {"dataEqualsAtPath", 2},
    {"md5OfFile", 2},
    {"checkNilDate", 2},
    {"resetButton", 3},
    {"setButtonID", 2},
};

std::string sectionOfNames() {
    const std::string page = readProjectFile("docs/architecture.md");
    const std::size_t begin = page.find("\n### Names without a caller\n");
    EXPECT_NE(begin, std::string::npos);
    return page.substr(begin, page.find("\n### ", begin + 1) - begin);
}

TEST(IdleNames, EachIsThereAndNothingCallsIt) {
    for (const IdleName& idle : idleNames) {
        const auto found = words().find(idle.name);
        EXPECT_EQ(found == words().end() ? 0 : found->second, idle.places) << idle.name;
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
