#include "platform/linux/user_folders.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {
namespace {

UserEnvironment accountOfAnn() {
    UserEnvironment environment;
    environment.accountName = "ann";
    environment.accountHome = "/home/ann";
    environment.home = "/home/ann";
    return environment;
}

std::optional<std::string> desktopOfAnn(std::string_view userDirectories) {
    return userFolderOf(UserFolder::desktop, accountOfAnn(), userDirectories);
}

TEST(DataFolder, IsTheVariableIfItIsAbsolute) {
    UserEnvironment environment = accountOfAnn();
    environment.xdgDataHome = "/data/share/";
    EXPECT_EQ(dataFolder(environment), "/data/share");
    environment.xdgDataHome = "share";
    EXPECT_EQ(dataFolder(environment), "/home/ann/.local/share");
    environment.xdgDataHome = "";
    EXPECT_EQ(dataFolder(environment), "/home/ann/.local/share");
}

TEST(DataFolder, IsBelowTheHomeFolder) {
    EXPECT_EQ(dataFolder(accountOfAnn()), "/home/ann/.local/share");
    UserEnvironment environment;
    environment.home = "/";
    EXPECT_EQ(dataFolder(environment), "/.local/share");
}

TEST(DataFolder, NeedsNoHomeIfTheVariableIsSet) {
    UserEnvironment environment;
    EXPECT_EQ(dataFolder(environment), std::nullopt);
    environment.xdgDataHome = "/data/share";
    EXPECT_EQ(dataFolder(environment), "/data/share");
}

TEST(ApplicationSupportFolder, IsInTheDataFolder) {
    UserEnvironment environment = accountOfAnn();
    EXPECT_EQ(applicationSupportFolderOf(environment),
              "/home/ann/.local/share/Tarvin Software/Tarvin Duplicate File Remover");
    environment.xdgDataHome = "/data";
    EXPECT_EQ(applicationSupportFolderOf(environment),
              "/data/Tarvin Software/Tarvin Duplicate File Remover");
    EXPECT_EQ(applicationSupportFolderOf(UserEnvironment()), std::nullopt);
}

TEST(HomeTrash, IsInTheDataFolder) {
    UserEnvironment environment = accountOfAnn();
    EXPECT_EQ(homeTrashFolder(environment), "/home/ann/.local/share/Trash");
    environment.xdgDataHome = "/data";
    EXPECT_EQ(homeTrashFolder(environment), "/data/Trash");
    EXPECT_EQ(homeTrashFolder(UserEnvironment()), std::nullopt);
}

TEST(MeetingFolders, AreTheRuntimeFolderThenTmp) {
    const std::string ofThisUser =
        "/tmp/tarvin-duplicate-file-remover-" + std::to_string(::geteuid());
    UserEnvironment environment;
    environment.xdgRuntimeDir = "/run/user/1000/";
    EXPECT_EQ(
        meetingFolders(environment),
        (std::vector<std::string>{"/run/user/1000/tarvin-duplicate-file-remover", ofThisUser}));
    for (const char* useless : {"", "run/user"}) {
        environment.xdgRuntimeDir = useless;
        EXPECT_EQ(meetingFolders(environment), std::vector<std::string>{ofThisUser}) << useless;
    }
    EXPECT_EQ(meetingFolders(UserEnvironment()), std::vector<std::string>{ofThisUser});
}

TEST(UserDirectoriesFile, IsInTheConfigurationFolder) {
    UserEnvironment environment = accountOfAnn();
    EXPECT_EQ(userDirectoriesFile(environment), "/home/ann/.config/user-dirs.dirs");
    environment.xdgConfigHome = "config";
    EXPECT_EQ(userDirectoriesFile(environment), "/home/ann/.config/user-dirs.dirs");
    environment.xdgConfigHome = "/etc/ann";
    EXPECT_EQ(userDirectoriesFile(environment), "/etc/ann/user-dirs.dirs");
    EXPECT_EQ(userDirectoriesFile(UserEnvironment()), std::nullopt);
}

TEST(UserFolder, HasItsEnglishNameByDefault) {
    const UserEnvironment environment = accountOfAnn();
    EXPECT_EQ(userFolderOf(UserFolder::home, environment, ""), "/home/ann");
    EXPECT_EQ(userFolderOf(UserFolder::desktop, environment, ""), "/home/ann/Desktop");
    EXPECT_EQ(userFolderOf(UserFolder::documents, environment, ""), "/home/ann/Documents");
    EXPECT_EQ(userFolderOf(UserFolder::pictures, environment, ""), "/home/ann/Pictures");
}

TEST(UserFolder, IsSetByItsLine) {
    const UserEnvironment environment = accountOfAnn();
    constexpr std::string_view text =
        "# This file is written by the desktop.\n"
        "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\n"
        "XDG_DOWNLOAD_DIR=\"$HOME/Downloads\"\n"
        "XDG_DOCUMENTS_DIR=\"/data/Dokumente\"\n"
        "XDG_PICTURES_DIR=\"$HOME/Eigene Bilder/2024\"\n";
    EXPECT_EQ(userFolderOf(UserFolder::home, environment, text), "/home/ann");
    EXPECT_EQ(userFolderOf(UserFolder::desktop, environment, text), "/home/ann/Schreibtisch");
    EXPECT_EQ(userFolderOf(UserFolder::documents, environment, text), "/data/Dokumente");
    EXPECT_EQ(userFolderOf(UserFolder::pictures, environment, text),
              "/home/ann/Eigene Bilder/2024");
}

TEST(UserFolder, IsNulloptIfSetToTheHomeFolder) {
    for (const char* value : {"$HOME/", "$HOME", "$HOME//", "/home/ann", "/home/ann/"}) {
        const std::string line = "XDG_DESKTOP_DIR=\"" + std::string(value) + "\"\n";
        EXPECT_EQ(desktopOfAnn(line), std::nullopt) << value;
    }
}

TEST(UserFolder, HasNoTrailingSlash) {
    EXPECT_EQ(desktopOfAnn("XDG_DESKTOP_DIR=\"$HOME/Desk//\""), "/home/ann/Desk");
    EXPECT_EQ(desktopOfAnn("XDG_DESKTOP_DIR=\"$HOME//Desk\""), "/home/ann/Desk");
    EXPECT_EQ(desktopOfAnn("XDG_DESKTOP_DIR=\"/data/Desk/\""), "/data/Desk");
}

TEST(UserFolder, IsSetByALineWithBlanks) {
    EXPECT_EQ(desktopOfAnn("  XDG_DESKTOP_DIR\t= \"$HOME/Desk\"  # mine"), "/home/ann/Desk");
    EXPECT_EQ(desktopOfAnn("XDG_DESKTOP_DIR=\"$HOME/Desk\"\r\n"), "/home/ann/Desk");
}

TEST(UserFolder, IsUnescaped) {
    EXPECT_EQ(desktopOfAnn(R"(XDG_DESKTOP_DIR="$HOME/a \"b\" \$c \\ \`d\`")"),
              R"(/home/ann/a "b" $c \ `d`)");
    EXPECT_EQ(desktopOfAnn(R"(XDG_DESKTOP_DIR="/\x/y")"), "/x/y");
}

TEST(UserFolder, KeepsBytesThatAreNotText) {
    EXPECT_EQ(desktopOfAnn("XDG_DESKTOP_DIR=\"$HOME/\xff\xc3\""), "/home/ann/\xff\xc3");
}

TEST(UserFolder, IsSetByTheLastLine) {
    EXPECT_EQ(desktopOfAnn("XDG_DESKTOP_DIR=\"$HOME/a\"\nXDG_DESKTOP_DIR=\"$HOME/b\"\n"),
              "/home/ann/b");
    EXPECT_EQ(desktopOfAnn("XDG_DESKTOP_DIR=\"$HOME/\"\nXDG_DESKTOP_DIR=\"$HOME/b\"\n"),
              "/home/ann/b");
    EXPECT_EQ(desktopOfAnn("XDG_DESKTOP_DIR=\"$HOME/a\"\nXDG_DESKTOP_DIR=\"$HOME/\"\n"),
              std::nullopt);
}

TEST(UserFolder, IsNotSetByAMalformedLine) {
    for (const char* line :
         {"#XDG_DESKTOP_DIR=\"$HOME/x\"", "XDG_DESKTOP_DIR=$HOME/x", "XDG_DESKTOP_DIR \"$HOME/x\"",
          "XDG_DESKTOP_DIR=\"$HOME/x", "XDG_DESKTOP_DIR=\"x\"", "XDG_DESKTOP_DIR=\"\"",
          "XDG_DESKTOP_DIR=\"$HOMER/x\"", "XDG_DESKTOP_DIR=\"\\$HOME/x\"",
          "XDG_DESKTOP_DIR=\"${HOME}/x\"", "XDG_DESKTOP_DIR=\"~/x\"",
          "XDG_DESKTOP_DIRS=\"$HOME/x\"", "export XDG_DESKTOP_DIR=\"$HOME/x\"",
          "xdg_desktop_dir=\"$HOME/x\"", "XDG_DESKTOP_DIR=\"$HOME/x\\\"", "XDG_DESKTOP_DIR", ""}) {
        EXPECT_EQ(desktopOfAnn(line), "/home/ann/Desktop") << line;
        const std::string kept = std::string("XDG_DESKTOP_DIR=\"/kept\"\n") + line;
        EXPECT_EQ(desktopOfAnn(kept), "/kept") << line;
    }
}

TEST(UserFolder, IsNotSetByALineWithANullByte) {
    const std::string line("XDG_DESKTOP_DIR=\"$HOME/a\0b\"", 27);
    EXPECT_EQ(desktopOfAnn(line), "/home/ann/Desktop");
}

TEST(UserFolder, NeedsAHomeFolderOnlyBelowIt) {
    const UserEnvironment nobody;
    EXPECT_EQ(userFolderOf(UserFolder::home, nobody, ""), std::nullopt);
    EXPECT_EQ(userFolderOf(UserFolder::desktop, nobody, ""), std::nullopt);
    EXPECT_EQ(userFolderOf(UserFolder::desktop, nobody, "XDG_DESKTOP_DIR=\"$HOME/a\""),
              std::nullopt);
    EXPECT_EQ(userFolderOf(UserFolder::desktop, nobody, "XDG_DESKTOP_DIR=\"/data/a\""), "/data/a");
}

TEST(UserFolder, OfARootHomeIsAtTheRoot) {
    UserEnvironment environment;
    environment.home = "/";
    EXPECT_EQ(userFolderOf(UserFolder::desktop, environment, ""), "/Desktop");
    EXPECT_EQ(userFolderOf(UserFolder::desktop, environment, "XDG_DESKTOP_DIR=\"$HOME/a\""), "/a");
    EXPECT_EQ(userFolderOf(UserFolder::desktop, environment, "XDG_DESKTOP_DIR=\"$HOME/\""),
              std::nullopt);
}

}  // namespace
}  // namespace tarvin
