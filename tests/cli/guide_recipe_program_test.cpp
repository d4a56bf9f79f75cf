#include "cli/program_run.h"
#include "support/shell_command.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string replaced(std::string text, std::string_view old, std::string_view with) {
    for (std::size_t at = text.find(old); at != std::string::npos;
         at = text.find(old, at + with.size())) {
        text.replace(at, old.size(), with);
    }
    return text;
}

/// The blocks of commands under a heading of the guide, as they are on the screen.
std::vector<std::string> commandsUnder(const std::string& heading) {
    const std::string page = runCommand("cat resources/help/index.html").output;
    const std::size_t begin = page.find("<h3 id=\"" + heading + "\">");
    const std::string part = page.substr(begin, page.find("<h3", begin + 1) - begin);
    const std::string_view opening = "<code>";
    std::vector<std::string> blocks;
    for (std::size_t at = part.find("<pre"); at != std::string::npos; at = part.find("<pre", at)) {
        at = part.find(opening, at) + opening.size();
        std::string block = part.substr(at, part.find("</code>", at) - at);
        block = replaced(replaced(std::move(block), "&gt;", ">"), "&lt;", "<");
        blocks.push_back(replaced(std::move(block), "&amp;", "&"));
    }
    return blocks;
}

/// A home folder with an archive of photos and those of two phones, and a backup disk.
class GuideRecipe : public testing::Test {
 protected:
    void SetUp() override {
        folder_.writeFile("home/Archive/2024/c.jpg", "harbour");
        folder_.writeFile("home/Archive/2025/a.jpg", "beach");
        folder_.writeFile("home/Phones/Ann/IMG_1.jpg", "beach");
        folder_.writeFile("home/Phones/Ben/Favourites/c.jpg", "harbour");
        folder_.writeFile("home/Phones/Ben/IMG_9.jpg", "beach");
        folder_.writeFile("Backup/2025/a.jpg", "beach");
    }

    /// Runs a block of commands in the home folder, on a terminal where "y" is typed.
    CommandResult run(const std::string& commands) {
        const std::string script = folder_.pathOf("commands.sh");
        std::ofstream(script) << replaced(commands, "/media/ann/Backup", folder_.pathOf("Backup"));
        const std::string programs =
            std::filesystem::path(ProgramRun::program()).parent_path().native();
        return runCommand(
            "cd '" + folder_.pathOf("home") +
            "' && printf 'y\\n' | env -u XDG_DATA_HOME -u XDG_CONFIG_HOME HOME=\"$PWD\" PATH='" +
            programs + "':\"$PATH\" script -qec 'bash -e " + script + "' /dev/null");
    }

    [[nodiscard]] std::vector<std::string> photos() const {
        std::vector<std::string> paths;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_.path())) {
            const std::string path = entry.path().lexically_relative(folder_.path()).native();
            if (path.ends_with(".jpg") && path.find("Trash") == std::string::npos) {
                paths.push_back(path);
            }
        }
        return paths;
    }

 private:
    TemporaryFolder folder_;
};

TEST_F(GuideRecipe, KeepsTheArchiveTheBackupAndTheChosenFolder) {
    const std::vector<std::string> blocks = commandsUnder("phones");
    ASSERT_EQ(blocks.size(), 4U);
    const CommandResult listed = run(blocks[0]);
    EXPECT_EQ(listed.status, 0) << listed.output;
    EXPECT_THAT(listed.output, HasSubstr("Phones/Ben/Favourites/c.jpg"));
    EXPECT_THAT(listed.output, HasSubstr("Marked Duplicate Files: 3"));
    const CommandResult edited = run(blocks[1]);
    EXPECT_EQ(edited.status, 0) << edited.output;
    EXPECT_THAT(edited.output, Not(HasSubstr("Favourites")));
    EXPECT_EQ(photos().size(), 6U);
    const CommandResult cleaned = run(blocks[2]);
    EXPECT_EQ(cleaned.status, 0) << cleaned.output;
    EXPECT_THAT(photos(), testing::UnorderedElementsAre(
                              "home/Archive/2024/c.jpg", "home/Archive/2025/a.jpg",
                              "home/Phones/Ben/Favourites/c.jpg", "Backup/2025/a.jpg"));
    const CommandResult restored = run(blocks[3]);
    EXPECT_EQ(restored.status, 0) << restored.output;
    EXPECT_EQ(photos().size(), 6U);
}

}  // namespace
}  // namespace tarvin
