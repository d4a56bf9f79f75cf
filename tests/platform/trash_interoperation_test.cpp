#include "platform/trash_fixture.h"
#include "support/desktop_session.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {
namespace {

/// Files that other programs see and restore, in a home Trash or on a volume.
class TrashOfOtherPrograms : public TrashFixture {
 protected:
    static std::string quoted(const std::string& word) { return DesktopSession::quoted(word); }

    [[nodiscard]] std::string trash() const { return home_.pathOf("data/Trash"); }

    TrashOfOtherPrograms() {
        mover_ = makeTrashMover({trash(), static_cast<std::uint32_t>(::geteuid())},
                                {calls_, clock_, mountTable_});
        clock_.set(std::chrono::sys_days(std::chrono::year(2024) / 2 / 29) +
                   std::chrono::hours(12));
    }

    /// Creates and moves files with various names. Returns their paths.
    std::vector<std::string> moveFilesIn(const std::string& folder) {
        std::vector<std::string> paths;
        for (const std::string name :
             {"plain.jpg", "a b%41 'q'.txt", "\xC3\xA4\xE2\x82\xAC.txt", "plain.jpg", ".hidden"}) {
            const std::string path =
                folder + "/folder " + std::to_string(paths.size()) + '/' + name;
            std::filesystem::create_directories(std::filesystem::path(path).parent_path());
            std::ofstream(path) << "bytes";
            EXPECT_TRUE(move(path).ok()) << path;
            EXPECT_FALSE(std::filesystem::exists(path));
            paths.push_back(path);
        }
        return paths;
    }

    /// A path as the desktop's tool prints it.
    static std::string escaped(const std::string& path) {
        constexpr std::string_view digits = "0123456789abcdef";
        std::string text;
        for (const char byte : path) {
            const auto value = static_cast<unsigned char>(byte);
            text += value < 0x80 ? std::string(1, byte)
                                 : std::string("\\x") + digits[value / 16] + digits[value % 16];
        }
        return text;
    }

    void expectListedByDesktop(const std::vector<std::string>& paths) {
        const CommandResult result = session_.run("gio trash --list");
        for (const std::string& path : paths) {
            EXPECT_TRUE(result.output.find('\t' + escaped(path) + '\n') != std::string::npos ||
                        result.output.find('\t' + path + '\n') != std::string::npos)
                << path << " in " << result.output;
        }
    }

    /// Without names that are not ASCII: version 2.74 restores them, its own too, under the escaped
    /// name.
    void expectPutBackByDesktop(const std::vector<std::string>& paths) {
        const CommandResult result = session_.run(
            "gio trash --list | grep -v AC.txt | cut -f 1 | "
            "while read -r name; do gio trash --restore \"$name\"; done");
        for (const std::string& path : paths) {
            if (path.ends_with("\xAC.txt")) {
                expectPutBackByTerminal({path});
            } else {
                expectBack({path}, result);
            }
        }
    }

    void expectListedByTerminal(const std::vector<std::string>& paths) {
        const CommandResult result = session_.runAlone("TZ=UTC0 trash-list");
        for (const std::string& path : paths) {
            EXPECT_NE(result.output.find("2024-02-29 12:00:00 " + path + '\n'), std::string::npos)
                << path << " in " << result.output;
        }
    }

    void expectPutBackByTerminal(const std::vector<std::string>& paths) {
        for (const std::string& path : paths) {
            // It lists the files below the folder and asks which one.
            const CommandResult result = session_.runAlone(
                "cd " + quoted(std::filesystem::path(path).parent_path().native()) +
                " && echo 0 | trash-restore");
            expectBack({path}, result);
        }
    }

    static void expectBack(const std::vector<std::string>& paths, const CommandResult& result) {
        for (const std::string& path : paths) {
            EXPECT_EQ(contentOf(path), "bytes") << path << ": " << result.output;
        }
    }

    static void expectEmpty(const std::string& trash) {
        EXPECT_EQ(entriesIn(trash + "/files"), 0U);
        EXPECT_EQ(entriesIn(trash + "/info"), 0U);
    }

    const TimeZone zone_{"UTC0"};
    TemporaryFolder home_;
    DesktopSession session_{home_};
};

TEST_F(TrashOfOtherPrograms, DesktopSeesMovesToTheHomeTrash) {
    const auto paths = moveFilesIn(folder_.path());
    expectListedByDesktop(paths);
    expectPutBackByDesktop(paths);
    expectEmpty(trash());
}

TEST_F(TrashOfOtherPrograms, TerminalSeesMovesToTheHomeTrash) {
    const auto paths = moveFilesIn(folder_.path());
    expectListedByTerminal(paths);
    expectPutBackByTerminal(paths);
    expectEmpty(trash());
}

TEST_F(TrashOfOtherPrograms, DesktopSeesMovesOnAVolume) {
    if (hasVolume()) {
        const auto paths = moveFilesIn(volume_->pathOf("photos"));
        expectListedByDesktop(paths);
        expectPutBackByDesktop(paths);
        expectEmpty(volume_->pathOf(".Trash-" + user()));
    }
}

TEST_F(TrashOfOtherPrograms, TerminalSeesMovesOnAVolume) {
    if (hasVolume()) {
        const auto paths = moveFilesIn(volume_->pathOf("photos"));
        expectListedByTerminal(paths);
        expectPutBackByTerminal(paths);
        expectEmpty(volume_->pathOf(".Trash-" + user()));
    }
}

TEST_F(TrashOfOtherPrograms, DesktopSeesMovesToTheSharedOne) {
    if (hasVolume()) {
        std::filesystem::create_directory(volume_->pathOf(".Trash"));
        ::chmod(volume_->pathOf(".Trash").c_str(), 01777);
        const auto paths = moveFilesIn(volume_->pathOf("photos"));
        expectListedByDesktop(paths);
        expectListedByTerminal(paths);
        expectPutBackByTerminal(paths);
        expectEmpty(volume_->pathOf(".Trash/" + user()));
    }
}

TEST_F(TrashOfOtherPrograms, DesktopMovesCanBeRestored) {
    const std::string inHome = home_.writeFile("a b.txt", "bytes");
    std::string files = quoted(inHome);
    if (hasVolume()) {
        std::ofstream(volume_->pathOf("c.txt")) << "bytes";
        files += ' ' + quoted(volume_->pathOf("c.txt"));
    }
    const CommandResult result = session_.run("gio trash " + files);
    EXPECT_FALSE(std::filesystem::exists(inHome)) << result.output;
    EXPECT_FALSE(putBack({trash(), "a b.txt"}, inHome));
    EXPECT_EQ(contentOf(inHome), "bytes");
    expectEmpty(trash());
    if (hasVolume()) {
        const std::string own = volume_->pathOf(".Trash-" + user());
        EXPECT_FALSE(putBack({own, "c.txt"}, volume_->pathOf("c.txt")));
        EXPECT_EQ(contentOf(volume_->pathOf("c.txt")), "bytes");
        expectEmpty(own);
    }
}

TEST_F(TrashOfOtherPrograms, HoldsOurFilesBesideTheirs) {
    const std::string path = home_.writeFile("a.txt", "bytes");
    const CommandResult result = session_.run("gio trash " + quoted(path));
    EXPECT_FALSE(std::filesystem::exists(path)) << result.output;
    home_.writeFile("a.txt", "bytes");
    const auto moved = move(path);
    ASSERT_TRUE(moved.ok());
    EXPECT_EQ(moved->name, "a.2.txt");
    EXPECT_EQ(entriesIn(trash() + "/files"), 2U);
}

}  // namespace
}  // namespace tarvin
