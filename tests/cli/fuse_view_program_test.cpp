#include "cli/program_run.h"
#include "support/file_content.h"
#include "support/fuse_view.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvin {
namespace {

TEST(CleanOfAView, KeepsAFileThatIsFoundUnderTwoPaths) {
    const TemporaryFolder folder;
    const std::string photo = folder.writeFile("photos/a.jpg", "the only one");
    const FuseView view(folder.pathOf("photos"));
    if (!view) {
        return;
    }
    for (const ProgramRun::Words& places :
         {ProgramRun::Words{folder.pathOf("photos"), view.pathOf("")},
          ProgramRun::Words{view.pathOf(""), folder.pathOf("photos")}}) {
        ProgramRun::Words words{"clean", "--yes"};
        words.insert(words.end(), places.begin(), places.end());
        const ProgramResult result =
            runTarvin(words, {.environment = {{"XDG_DATA_HOME", folder.pathOf("data")}}});
        EXPECT_EQ(result.status, 1);
        EXPECT_NE(result.errors.find("a.jpg' to the Trash: "), std::string::npos) << result.errors;
        EXPECT_EQ(result.output, "Duplicates Cleaned: 0\nSpace Regained: 0.00 KB \n");
        EXPECT_EQ(contentOf(photo), "the only one");
    }
}

}  // namespace
}  // namespace tarvin
