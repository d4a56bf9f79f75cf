#include "support/file_content.h"
#include "support/waiting.h"
#include "window/home.h"
#include "window/input.h"
#include "window/program_window.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

namespace tarvin {
namespace {

namespace fs = std::filesystem;

/// The programs in the folders of an installation, with an updater and with URLs that lead to a
/// folder of the test.
class InstalledUpdates : public testing::Test {
 protected:
    InstalledUpdates() {
        const TemporaryFolder& folder = home_.folder();
        for (const std::string& subfolder : {bin_, share_, helpers_}) {
            folder.makeFolder(subfolder);
        }
        install(TARVIN_PROGRAM, bin_ + "/program");
        install(TARVIN_URL_READER, helpers_ + "/tarvin-url-reader");
        install(TARVIN_UPDATER, helpers_ + "/Tarvin Duplicate File Remover Updater");
        folder.writeFile(share_ + "/Urls.plist",
                         "<plist version=\"1.0\"><dict><key>FolderLocation</key><string>file://" +
                             folder.path() +
                             "</string><key>FolderName</key><string>our updates</string>"
                             "</dict></plist>");
        folder.makeFolder("our updates");
        home_.setProgram(folder.pathOf(bin_ + "/program"));
    }

    void announce(const std::string& version) const {
        home_.folder().writeFile("our updates/Update.plist",
                                 "<plist version=\"1.0\"><dict><key>" TARVIN_VERSION
                                 "</key><string>" +
                                     version + "</string></dict></plist>");
    }

    [[nodiscard]] std::string told() const { return home_.folder().pathOf(helpers_ + "/told"); }

    Home home_;

 private:
    void install(const fs::path& program, const std::string& subfolder) const {
        fs::copy_file(program, home_.folder().pathOf(subfolder));
    }

    const std::string bin_ = "installed/bin";
    const std::string share_ = "installed/share/tarvin-duplicate-file-remover";
    const std::string helpers_ = "installed/libexec/tarvin-duplicate-file-remover";
};

constexpr const char* offer = "New update available (Tarvin Duplicate File Remover 99.0)";

TEST_F(InstalledUpdates, AreFoundAtStartAndFetchedByTheUpdater) {
    announce("99.0");
    const auto product = home_.startProduct();
    const ProgramWindow window(product->pid());
    window.waitForText(offer);
    window.click("Update");
    window.waitForEnd(offer);
    ASSERT_TRUE(waitUntil([this] { return fs::exists(told()); }));
    EXPECT_EQ(contentOf(told()), "nothing\n");
    EXPECT_TRUE(product->runs()) << product->errors();
}

TEST_F(InstalledUpdates, CanBePostponed) {
    announce("99.0");
    const auto product = home_.startProduct();
    const ProgramWindow window(product->pid());
    window.waitForText(offer);
    window.click("Remind Me Later");
    window.waitForEnd(offer);
    window.click("Scan Folders");
    window.waitForText("Choose Locations");
    EXPECT_FALSE(fs::exists(told()));
}

TEST_F(InstalledUpdates, AreNotOfferedForTheNewestVersion) {
    announce(TARVIN_VERSION);
    const auto product = home_.startProduct();
    const ProgramWindow window(product->pid());
    window.click("Help");
    for (const char* key : {"Up", "Up", "Return"}) {  // the second last menu item
        input::key(key);
    }
    window.waitForText("Your application is up to date");
    window.click("Ok");
    window.waitForEnd("Your application is up to date");
    EXPECT_FALSE(window.shows(ATSPI_ROLE_LABEL, offer));
}

}  // namespace
}  // namespace tarvin
