#include "cli/program_run.h"
#include "cli/result_json.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace tarvin {
namespace {

bool makeExampleTree(const std::string& folder) {
    const std::string command = std::string(TARVIN_EXAMPLE_TREE) + " '" + folder + "'";
    return std::system(command.c_str()) == 0;  // NOLINT(concurrency-mt-unsafe)
}

TEST(ExampleTree, HasCopiesInThreeCategories) {
    const TemporaryFolder folder;
    ASSERT_TRUE(makeExampleTree(folder.pathOf("tree")));
    const ProgramResult result = runTarvin({"scan", "--format", "json", folder.pathOf("tree")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
    const Json json = parsedJson(result.output);
    EXPECT_EQ(json["collected"], Json::parse(R"({"Image": 7, "Video": 0, "Audio": 4,
                                                 "Documents": 5, "Other": 0})"));
    EXPECT_EQ(json["totalFiles"], 7);
    EXPECT_EQ(json["totalFilesSize"], 361000);
    EXPECT_EQ(
        setsIn(json, folder.pathOf("tree/")),
        (Sets{{"Photos/2025 Summer/beach.jpg", "Photos/Best of/beach.jpg",
               "Photos/Best of/beach (1).JPG"},
              {"Photos/2025 Summer/lighthouse.png", "Desktop/lighthouse copy.png"},
              {"Music/Album/01 Morning.mp3", "Music/Mixtape/01 Morning.mp3", "Desktop/Morning.wav"},
              {"Papers/letter.pdf", "Papers/Old/letter.pdf"},
              {"Papers/empty.txt", "Papers/Old/empty.txt"}}));
}

TEST(ExampleTree, IsTheSameEveryTime) {
    const TemporaryFolder folder;
    ASSERT_TRUE(makeExampleTree(folder.pathOf("tree")));
    const ProgramRun::Words scan{"scan", "--format", "json", folder.pathOf("tree")};
    const Json first = foreseeable(runTarvin(scan).output);
    ASSERT_TRUE(makeExampleTree(folder.pathOf("tree")));
    EXPECT_EQ(foreseeable(runTarvin(scan).output), first);
}

}  // namespace
}  // namespace tarvin
