#include "cli/program_run.h"
#include "support/file_content.h"
#include "support/pseudo_terminal.h"
#include "support/temporary_folder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstddef>
#include <filesystem>
#include <map>
#include <string>

namespace tarvin {
namespace {

/// A file that becomes immutable while the question is open.
class FixedAtTheQuestion : public ::testing::TestWithParam<unsigned> {
 protected:
    /// Sets or clears the attribute. False if the file system does not support it.
    static bool fix(const std::string& path, bool isFixed) {
        const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        unsigned flags = 0;
        ::ioctl(file, FS_IOC_GETFLAGS, &flags);
        flags = isFixed ? flags | GetParam() : flags & ~GetParam();
        const bool isDone = ::ioctl(file, FS_IOC_SETFLAGS, &flags) == 0;
        ::close(file);
        return isDone;
    }
};

TEST_P(FixedAtTheQuestion, IsReportedWithTheReason) {
    const TemporaryFolder folder;
    std::map<std::string, std::string> photos;
    for (const std::string name : {"a.jpg", "b.jpg", "c.jpg"}) {
        photos[name] = folder.writeFile("photos/" + name, "three equal photos");
    }
    PseudoTerminal terminal;
    ProgramSetting setting{.environment = {{"XDG_DATA_HOME", folder.pathOf("data")}}};
    setting.input = terminal.programsEnd();
    setting.errors = terminal.programsEnd();
    ProgramRun run({"clean", "--progress", "never", "--color", "never", folder.pathOf("photos")},
                   setting);
    terminal.readUntil("[y/N] ");
    bool isFixed = true;
    for (const auto& [name, path] : photos) {
        isFixed = isFixed && fix(path, true);
    }
    terminal.type("y\n");
    const ProgramResult result = run.wait();
    terminal.closeProgramsEnd();
    const std::string told = terminal.readAll();
    for (const auto& [name, path] : photos) {
        fix(path, false);
    }
    if (!isFixed) {
        GTEST_SKIP() << "this file system has no immutable or append-only files";
    }
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.output, "Duplicates Cleaned: 0\nSpace Regained: 0.00 KB \n");
    std::size_t refused = 0;
    for (const auto& [name, path] : photos) {
        EXPECT_EQ(contentOf(path), "three equal photos");
        refused +=
            std::size_t{told.find("tarvin: cannot move '" + path +
                                  "' to the Trash: Operation not permitted") != std::string::npos};
    }
    EXPECT_EQ(refused, 2U) << told;
    EXPECT_TRUE(std::filesystem::is_empty(folder.pathOf("data/Trash/files")));
    EXPECT_TRUE(std::filesystem::is_empty(folder.pathOf("data/Trash/info")));
}

INSTANTIATE_TEST_SUITE_P(EachAttribute, FixedAtTheQuestion,
                         ::testing::Values(FS_IMMUTABLE_FL, FS_APPEND_FL));

}  // namespace
}  // namespace tarvin
