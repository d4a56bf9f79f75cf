#include "rules/text_rules.h"

#include "rules/project_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tarvin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TextRules, TheProjectsFilesAreInOrder) {
    for (const char* folder : {"src", "tests", "bench"}) {
        for (const std::filesystem::path& file : cppFilesBelow(folder)) {
            EXPECT_THAT(textBreaches(file.string(), readProjectFile(file)), IsEmpty());
        }
    }
}

TEST(TextRules, ATabIsRefused) {
    EXPECT_THAT(textBreaches("src/model/a.cpp", "int a;\t// x\n"),
                ElementsAre("src/model/a.cpp: a tab"));
}

TEST(TextRules, AHeaderIsGuardedByALineOfItsOwn) {
    EXPECT_THAT(textBreaches("src/model/a.h", "#pragma once\n\nint a();\n"), IsEmpty());
    EXPECT_THAT(textBreaches("src/model/a.h", "// Why.\n#pragma once\n"), IsEmpty());
    EXPECT_THAT(textBreaches("src/model/a.h", "int a();\n"),
                ElementsAre("src/model/a.h: a header without #pragma once"));
    EXPECT_THAT(textBreaches("src/model/a.h", "// #pragma once\n"),
                ElementsAre("src/model/a.h: a header without #pragma once"));
}

TEST(TextRules, ASourceNeedsNoGuard) {
    EXPECT_THAT(textBreaches("src/model/a.cpp", "int a;\n"), IsEmpty());
}

TEST(TextRules, ATestThatWaitsForAFixedTimeIsRefused) {
    const std::string call = std::string("std::this_thread::sleep") + "_for(1s);\n";
    EXPECT_THAT(textBreaches("tests/scan/a_test.cpp", call),
                ElementsAre(std::string("tests/scan/a_test.cpp: a fixed wait, sleep") + "_for()"));
    EXPECT_THAT(textBreaches("tests/scan/a_test.cpp", std::string("usl") + "eep(5);\n"),
                ElementsAre(std::string("tests/scan/a_test.cpp: a fixed wait, usl") + "eep()"));
}

TEST(TextRules, TheProductMaySleep) {
    const std::string call = std::string("std::this_thread::sleep") + "_for(1s);\n";
    EXPECT_THAT(textBreaches("src/platform/a.cpp", call), IsEmpty());
}

}  // namespace
}  // namespace tarvin
