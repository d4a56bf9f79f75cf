#include "rules/text_rules.h"

#include "rules/project_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>

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
    // Split in two, so that this file does not break the rule.
    using Halves = std::pair<std::string, std::string>;
    for (const auto& [first, second] :
         {Halves{"std::this_thread::sleep", "_for"}, Halves{"std::this_thread::sleep", "_until"},
          Halves{"::usl", "eep"}, Halves{"::nanosl", "eep"}, Halves{"QThread::msl", "eep"},
          Halves{"QTest::qSl", "eep"}, Halves{"QTest::qWa", "it"}}) {
        const std::string call = first + second;
        EXPECT_THAT(textBreaches("tests/scan/a_test.cpp", call + "(5);\n"),
                    ElementsAre("tests/scan/a_test.cpp: a fixed wait, " +
                                call.substr(call.rfind(':') + 1) + "()"));
    }
    EXPECT_THAT(textBreaches("tests/scan/a_test.cpp", std::string("clock_nanosl") + "eep(5);\n"),
                ElementsAre(std::string("tests/scan/a_test.cpp: a fixed wait, nanosl") + "eep()"));
}

TEST(TextRules, PollingForAConditionMaySleep) {
    const std::string call = std::string("::nanosl") + "eep(&interval, nullptr);\n";
    EXPECT_THAT(textBreaches("tests/support/waiting.h", "#pragma once\n" + call), IsEmpty());
    EXPECT_THAT(textBreaches("tests/support/other.h", "#pragma once\n" + call),
                ElementsAre(std::string("tests/support/other.h: a fixed wait, nanosl") + "eep()"));
}

TEST(TextRules, TheProductMaySleep) {
    const std::string call = std::string("std::this_thread::sleep") + "_for(1s);\n";
    EXPECT_THAT(textBreaches("src/platform/a.cpp", call), IsEmpty());
}

}  // namespace
}  // namespace tarvin
