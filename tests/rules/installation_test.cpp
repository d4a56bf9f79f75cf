#include "rules/project_files.h"
#include "support/shell_command.h"
#include "support/temporary_folder.h"

#include <glib.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

using testing::HasSubstr;
using Paths = std::vector<std::string>;

/// Files installed for the terminal program.
const Paths terminalFiles{
    "bin/tarvin",
    "share/bash-completion/completions/tarvin",
    "share/doc/tarvin/changelog",
    "share/doc/tarvin/copyright",
    "share/man/man1/tarvin.1",
    "share/zsh/site-functions/_tarvin",
};

/// Files installed in addition if the window program is built.
const Paths windowFiles{
    "bin/tarvin-duplicate-file-remover",
    "libexec/tarvin-duplicate-file-remover/tarvin-image-preview",
    "libexec/tarvin-duplicate-file-remover/tarvin-url-reader",
    "share/applications/tarvin-duplicate-file-remover.desktop",
    "share/applications/zz-tarvin-duplicate-file-remover-folders.desktop",
    "share/bash-completion/completions/tarvin-duplicate-file-remover",
    "share/doc/tarvin-duplicate-file-remover/changelog",
    "share/doc/tarvin-duplicate-file-remover/copyright",
    "share/icons/hicolor/128x128/apps/tarvin-duplicate-file-remover.png",
    "share/icons/hicolor/16x16/apps/tarvin-duplicate-file-remover.png",
    "share/icons/hicolor/22x22/apps/tarvin-duplicate-file-remover.png",
    "share/icons/hicolor/24x24/apps/tarvin-duplicate-file-remover.png",
    "share/icons/hicolor/256x256/apps/tarvin-duplicate-file-remover.png",
    "share/icons/hicolor/32x32/apps/tarvin-duplicate-file-remover.png",
    "share/icons/hicolor/48x48/apps/tarvin-duplicate-file-remover.png",
    "share/icons/hicolor/512x512/apps/tarvin-duplicate-file-remover.png",
    "share/icons/hicolor/64x64/apps/tarvin-duplicate-file-remover.png",
    "share/icons/hicolor/scalable/apps/tarvin-duplicate-file-remover.svg",
    "share/man/man1/tarvin-duplicate-file-remover.1",
    "share/metainfo/tarvinsoftware.tarvin.duplicate_file_remover.metainfo.xml",
    "share/tarvin-duplicate-file-remover/Urls.plist",
    "share/tarvin-duplicate-file-remover/exceptions.png",
    "share/tarvin-duplicate-file-remover/index.html",
    "share/tarvin-duplicate-file-remover/locations.png",
    "share/tarvin-duplicate-file-remover/marked.png",
    "share/tarvin-duplicate-file-remover/report.png",
    "share/tarvin-duplicate-file-remover/scan.png",
    "share/tarvin-duplicate-file-remover/start.png",
    "share/tarvin-duplicate-file-remover/summary.png",
    "share/zsh/site-functions/_tarvin-duplicate-file-remover",
};

constexpr const char* metainfo =
    "packaging/linux/tarvinsoftware.tarvin.duplicate_file_remover.metainfo.xml";
constexpr const char* entryInMenus = "packaging/linux/tarvin-duplicate-file-remover.desktop";
constexpr const char* entryForFolders =
    "packaging/linux/zz-tarvin-duplicate-file-remover-folders.desktop";

/// The build, installed into a temporary folder.
class Installation : public testing::Test {
 protected:
    void SetUp() override {
        const CommandResult result =
            runCommand("'" TARVIN_CMAKE "' --install '" TARVIN_BUILD_DIR "' --prefix '" +
                       prefix_.path() + "'");
        ASSERT_EQ(result.status, 0) << result.output;
    }

    [[nodiscard]] fs::path prefix() const { return prefix_.path(); }

 private:
    TemporaryFolder prefix_;
};

Paths filesBelow(const fs::path& folder) {
    Paths files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_directory() || entry.is_symlink()) {
            files.push_back(entry.path().lexically_relative(folder).string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// The first group of the first match of the pattern; empty without a match.
std::string found(const std::string& text, const std::string& pattern) {
    const std::unique_ptr<GRegex, decltype(&g_regex_unref)> regex(
        g_regex_new(pattern.c_str(), G_REGEX_MULTILINE, GRegexMatchFlags{}, nullptr),
        &g_regex_unref);
    GMatchInfo* match = nullptr;
    g_regex_match(regex.get(), text.c_str(), GRegexMatchFlags{}, &match);
    const std::unique_ptr<GMatchInfo, decltype(&g_match_info_unref)> owned(match,
                                                                           &g_match_info_unref);
    const std::unique_ptr<gchar, decltype(&g_free)> group(g_match_info_fetch(match, 1), &g_free);
    return group == nullptr ? std::string() : std::string(group.get());
}

std::string foundIn(const fs::path& projectFile, const std::string& pattern) {
    return found(readProjectFile(projectFile), pattern);
}

/// The value of a key in a desktop entry.
std::string valueOf(const char* entry, const std::string& key) {
    return foundIn(entry, "\n" + key + "=([^\n]*)");
}

TEST_F(Installation, HasEveryFileAndNoOther) {
    Paths expected = terminalFiles;
    if (TARVIN_HAS_WINDOW) {
        expected.insert(expected.end(), windowFiles.begin(), windowFiles.end());
    }
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(filesBelow(prefix()), expected);
}

TEST_F(Installation, LetsEverybodyReadAllAndStartThePrograms) {
    for (const std::string& file : filesBelow(prefix())) {
        const bool isProgram =
            (file.starts_with("bin/") || file.starts_with("libexec/")) && !file.ends_with(".so");
        EXPECT_EQ(fs::status(prefix() / file).permissions(), fs::perms(isProgram ? 0755 : 0644))
            << file;
    }
}

TEST_F(Installation, HasProgramsThatTellTheirNameAndVersion) {
    for (const std::string& file : filesBelow(prefix() / "bin")) {
        const CommandResult result =
            runCommand("'" + (prefix() / "bin" / file).string() + "' --version");
        EXPECT_EQ(result.output, file + " " TARVIN_VERSION "\n");
        EXPECT_EQ(result.status, 0);
    }
}

TEST(Version, IsTheSameWhereverItIsTold) {
    EXPECT_EQ(foundIn("CHANGELOG.md", "\n## \\[([^\\]]*)\\]"), TARVIN_VERSION);
    EXPECT_EQ(foundIn(metainfo, "<release version=\"([^\"]*)\""), TARVIN_VERSION);
    EXPECT_EQ(foundIn("packaging/debian/changelog.in",
                      "^tarvin-duplicate-file-remover \\(([^)]*)-[0-9]+\\) "),
              TARVIN_VERSION);
    for (const char* page :
         {"packaging/man/tarvin.1", "packaging/man/tarvin-duplicate-file-remover.1"}) {
        EXPECT_EQ(foundIn(page, "^\\.TH [^\n]* \"tarvin ([^\"]*)\""), TARVIN_VERSION) << page;
    }
}

TEST(Version, HasOneDateOfRelease) {
    const std::string date =
        foundIn("CHANGELOG.md", "\n## \\[[^\\]]*\\] - ([0-9]{4}-[0-9]{2}-[0-9]{2})\n");
    EXPECT_NE(date, "");
    EXPECT_EQ(foundIn(metainfo, "<release version=\"[^\"]*\" date=\"([^\"]*)\""), date);
}

TEST(DesktopEntries, AreValid) {
    for (const char* entry : {entryInMenus, entryForFolders}) {
        const CommandResult result = runCommand(std::string("desktop-file-validate ") + entry);
        EXPECT_EQ(result.output, "") << entry;
        EXPECT_EQ(result.status, 0) << entry;
    }
}

TEST(DesktopEntries, StartTheProgramAndShowItsIcon) {
    for (const char* entry : {entryInMenus, entryForFolders}) {
        EXPECT_EQ(valueOf(entry, "Exec"), "tarvin-duplicate-file-remover %F") << entry;
        EXPECT_EQ(valueOf(entry, "Icon"), "tarvin-duplicate-file-remover") << entry;
    }
}

/// Otherwise the window has no icon and appears twice in the taskbar.
TEST(DesktopEntries, AreKnownToTheProgramByName) {
    const std::string main = readProjectFile("src/app/main.cpp");
    EXPECT_EQ(found(readProjectFile("src/controller/command_line.h"), "programName = \"([^\"]*)\""),
              "tarvin-duplicate-file-remover");
    EXPECT_THAT(main, HasSubstr("setDesktopFileName(QString::fromLatin1(tarvin::programName))"));
    EXPECT_EQ(fs::path(entryInMenus).stem(), "tarvin-duplicate-file-remover");
    EXPECT_THAT(
        readProjectFile(metainfo),
        HasSubstr("<launchable type=\"desktop-id\">tarvin-duplicate-file-remover.desktop<"));
}

TEST(DesktopEntries, OfferFoldersButNeverBecomeWhatOpensThem) {
    EXPECT_EQ(valueOf(entryInMenus, "MimeType"), "");
    for (const char* manager :
         {"caja", "nemo", "org.gnome.Nautilus", "org.kde.dolphin", "pcmanfm", "thunar", "xfe"}) {
        const TemporaryFolder folder;
        const std::string own = manager + std::string(".desktop");
        folder.writeFile("share/applications/" + own,
                         "[Desktop Entry]\nType=Application\nName=Files\nExec=true %U\n"
                         "MimeType=inode/directory;\n");
        // Entries of missing programs are ignored.
        folder.writeFile("bin/tarvin-duplicate-file-remover", "#!/bin/sh\n");
        const CommandResult result =
            runCommand("cp packaging/linux/*.desktop '" + folder.pathOf("share/applications") +
                       "' && cd '" + folder.path() +
                       "' && chmod +x bin/* && update-desktop-database share/applications && "
                       "env LC_ALL=C PATH=\"$PWD/bin:$PATH\" XDG_DATA_DIRS=\"$PWD/share\" "
                       "XDG_DATA_HOME=\"$PWD/home\" XDG_CONFIG_HOME=\"$PWD/home\" "
                       "XDG_CONFIG_DIRS=\"$PWD/home\" XDG_CURRENT_DESKTOP= "
                       "gio mime inode/directory");
        EXPECT_EQ(result.status, 0) << result.output;
        EXPECT_THAT(result.output, testing::ContainsRegex("^Default application[^\n]*: " + own));
        EXPECT_THAT(result.output, HasSubstr(fs::path(entryForFolders).filename().string()));
    }
}

/// Allowed hints: the project has no website for its AppStream ID and homepage, and versions of the
/// tool before 1.0 know only the old developer tag, which later ones refuse.
TEST(SoftwareCentreEntry, IsValid) {
    const CommandResult result =
        runCommand(std::string("case $(appstreamcli --version) in "
                               "*' 0.'*) known=unknown-tag;; *) known=url-homepage-missing;; esac; "
                               "appstreamcli validate --no-net --strict --no-color "
                               "--override=cid-maybe-not-rdns=pedantic,$known=pedantic ") +
                   metainfo);
    EXPECT_EQ(result.status, 0) << result.output;
}

std::uint32_t bigEndian(const std::string& bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t byte = at; byte < at + 4; ++byte) {
        number = number << 8U | static_cast<unsigned char>(bytes.at(byte));
    }
    return number;
}

TEST(Icons, HaveTheSizesThatTheirFoldersTell) {
    std::vector<std::uint32_t> sizes;
    for (const std::string& file : filesBelow(projectRoot() / "resources/icons/hicolor")) {
        const std::string picture = readProjectFile("resources/icons/hicolor/" + file);
        ASSERT_EQ(picture.substr(1, 3), "PNG") << file;
        const std::uint32_t width = bigEndian(picture, 16);
        EXPECT_EQ(bigEndian(picture, 20), width) << file;
        const std::string side = std::to_string(width);
        EXPECT_EQ(file, side + 'x' + side + "/apps/tarvin-duplicate-file-remover.png");
        sizes.push_back(width);
    }
    EXPECT_THAT(sizes, testing::UnorderedElementsAre(16, 22, 24, 32, 48, 64, 128, 256, 512));
}

TEST(MacApplication, IsToldToTheSystem) {
    const CommandResult result = runCommand(
        "python3 -c 'import plistlib; list = plistlib.load(open(\"packaging/macos/Info.plist.in\", "
        "\"rb\")); types, = list[\"CFBundleDocumentTypes\"]; "
        "print(types[\"LSItemContentTypes\"], types[\"LSHandlerRank\"], "
        "list[\"CFBundleIdentifier\"])'");
    EXPECT_EQ(result.output, "['public.folder'] Alternate ${MACOSX_BUNDLE_GUI_IDENTIFIER}\n");
    EXPECT_THAT(readProjectFile("cmake/TarvinMacBundle.cmake"),
                HasSubstr("MACOSX_BUNDLE_GUI_IDENTIFIER "
                          "tarvinsoftware.Tarvin-Duplicate-File-Remover\n"));
}

}  // namespace
}  // namespace tarvin
