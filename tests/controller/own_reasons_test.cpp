#include "controller/own_reasons.h"

#include "controller/kept_files.h"
#include "controller/put_back_fixture.h"
#include "controller/put_back_list.h"
#include "interface/translation.h"
#include "support/shell_command.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {
namespace {

/// Installs the German translation during its lifetime.
class German final {
 public:
    German() : translator_(loadTranslation(QLocale(QStringLiteral("de")))) {
        QCoreApplication::installTranslator(translator_.get());
    }
    German(const German&) = delete;
    German& operator=(const German&) = delete;
    ~German() { QCoreApplication::removeTranslator(translator_.get()); }

 private:
    const std::unique_ptr<QTranslator> translator_;
};

struct Pair {
    TrashRefusalKind kind;
    const char* english;
    const char* german;
};

constexpr std::array refusals{
    Pair{TrashRefusalKind::gone, "No longer in the Trash", "Nicht mehr im Papierkorb"},
    Pair{TrashRefusalKind::taken, "Something else has its name now",
         "Etwas anderes hat jetzt seinen Namen"},
    Pair{TrashRefusalKind::otherVolume, "Its Trash is on another volume",
         "Sein Papierkorb liegt auf einem anderen Laufwerk"},
    Pair{TrashRefusalKind::noHome, "This volume has no Trash",
         "Kein Papierkorb auf diesem Laufwerk"},
    Pair{TrashRefusalKind::noVolume, "This volume has no Trash",
         "Kein Papierkorb auf diesem Laufwerk"},
    Pair{TrashRefusalKind::link, "A folder of the Trash is a link",
         "Ein Ordner des Papierkorbs ist eine Verknüpfung"},
    Pair{TrashRefusalKind::notFolder, "A part of the Trash is not a folder",
         "Ein Teil des Papierkorbs ist kein Ordner"},
    Pair{TrashRefusalKind::notOurs, "The Trash belongs to another user",
         "Der Papierkorb gehört jemand anderem"},
    Pair{TrashRefusalKind::notPrivate, "Other users can change the Trash",
         "Andere können den Papierkorb ändern"},
    Pair{TrashRefusalKind::noName, "There is no free name in the Trash",
         "Im Papierkorb ist kein Name mehr frei"}};

TEST(OwnReasons, OfTheTrashDependOnTheirKind) {
    for (const Pair& pair : refusals) {
        const std::string text = OwnReasons::ofTrash(pair.kind, "words").toStdString();
        EXPECT_EQ(text, pair.english);
        EXPECT_EQ(KeptFiles::reasonOf({MoveOutcome::refused, "words", pair.kind, {}}).toStdString(),
                  pair.english);
    }
    EXPECT_EQ(OwnReasons::ofTrash(TrashRefusalKind::system, "words"), QStringLiteral("words"));
}

TEST(OwnReasons, OfTheTrashAreGermanInTheGermanWindow) {
    const German german;
    for (const Pair& pair : refusals) {
        EXPECT_EQ(OwnReasons::ofTrash(pair.kind, "words").toStdString(), pair.german);
        PutBackFile file;
        file.outcome = PutBackOutcome::refused;
        file.error = {EPERM};
        file.reason = "words";
        file.refusal = PutBackRefusal::trash;
        file.trash = pair.kind;
        EXPECT_EQ(PutBackList::reasonOf(file).toStdString(), pair.german);
    }
}

/// The texts of errors that the window can show.
constexpr std::array<std::pair<const char*, const char*>, 11> errors{
    {{"there is no home folder to keep the journal in",
      "es gibt keinen persönlichen Ordner für die Aufzeichnungen"},
     {"in use by another process", "ein anderes Programm benutzt es gerade"},
     {"a database of another program", "die Datenbank eines anderen Programms"},
     {"written by a newer version of the program",
      "von einer neueren Version des Programms geschrieben"},
     {"is a link", "ist eine Verknüpfung"},
     {"the file is damaged", "die Datei ist beschädigt"},
     {"the file was moved or replaced", "die Datei wurde verschoben oder ersetzt"},
     {"not a regular file", "keine gewöhnliche Datei"},
     {"the file is too large", "die Datei ist zu groß"},
     {"not a property list", "keine Eigenschaftsliste"},
     {"not a property list of totals", "keine Eigenschaftsliste mit Summen"}}};

TEST(OwnReasons, OfTheStoreStayAsTheyAreInEnglish) {
    for (const auto& [english, german] : errors) {
        EXPECT_EQ(OwnReasons::ofStore(english).toStdString(), english);
    }
    EXPECT_EQ(OwnReasons::ofStore("No space left on device"),
              QStringLiteral("No space left on device"));
}

TEST(OwnReasons, OfTheStoreAreGermanInTheGermanWindow) {
    const German german;
    for (const auto& [english, text] : errors) {
        EXPECT_EQ(OwnReasons::ofStore(english).toStdString(), text);
        // Files that were not moved because of such an error.
        EXPECT_EQ(KeptFiles::reasonOf({MoveOutcome::refused, english}).toStdString(), text);
    }
    EXPECT_EQ(OwnReasons::ofStore("No space left on device"),
              QStringLiteral("No space left on device"));
}

/// They are recognised by their texts, so a new or changed one must fail here.
TEST(OwnReasons, OfTheStoreAreThoseOfItsSources) {
    const CommandResult found = runCommand(
        "cat src/store/clean_up_*.cpp src/store/sqlite_*.cpp src/store/stored_list.cpp "
        "src/store/data_file.cpp src/clean/recovery.cpp | grep -v static_assert | "
        R"(grep -oE '"[a-z]+( [a-z]+)+"' | LC_ALL=C sort -u)");
    std::vector<std::string> known;
    for (const auto& [english, german] : errors) {
        known.push_back('"' + std::string(english) + "\"\n");
    }
    std::sort(known.begin(), known.end());
    std::string all;
    for (const std::string& text : known) {
        all += text;
    }
    EXPECT_EQ(found.output, all);
}

TEST(OwnReasons, ThatAMoveWasNotPlannedIsOne) {
    const MoveResult result{
        .outcome = MoveOutcome::refused, .reason = "in English", .isUnplanned = true};
    EXPECT_EQ(KeptFiles::reasonOf(result).toStdString(), "Its move was not written down before");
    const German german;
    EXPECT_EQ(KeptFiles::reasonOf(result).toStdString(),
              "Das Verschieben war nicht vorher aufgezeichnet");
}

/// The texts on the screen of the product.
class OwnReasonsOnScreen : public PutBackFixture {
 protected:
    void SetUp() override {
        writeThreeSets();
        scanAndReview();
    }
    ~OwnReasonsOnScreen() override { delegate.reset(); }

    /// The status of every row after the folder of the files was replaced.
    [[nodiscard]] Lines statuses() {
        Lines statuses;
        if (opens()) {
            for (const Lines& row : rows()) {
                statuses.push_back(row[2]);
            }
        }
        return statuses;
    }

    const German german;
};

TEST_F(OwnReasonsOnScreen, ThatAFolderIsALinkIsSaidInGerman) {
    cleanUp();
    std::filesystem::rename(found(""), folder.pathOf("elsewhere"));
    std::filesystem::create_directory_symlink(folder.pathOf("elsewhere"), folder.pathOf("found"));
    EXPECT_EQ(statuses(), Lines(4, "Sein Ordner ist jetzt eine Verknüpfung"));
}

TEST_F(OwnReasonsOnScreen, ThatSomethingElseIsWhereAFolderWasIsSaidInGerman) {
    cleanUp();
    std::filesystem::rename(found(""), folder.pathOf("elsewhere"));
    folder.writeFile("found", "a file");
    EXPECT_EQ(statuses(), Lines(4, "Wo sein Ordner war, ist jetzt etwas anderes"));
}

TEST_F(OwnReasonsOnScreen, ThatThereIsNoHomeFolderIsSaidInGerman) {
    platform.setApplicationSupportFolder(std::nullopt);
    ASSERT_TRUE(opens());
    EXPECT_EQ(information()[2], "es gibt keinen persönlichen Ordner für die Aufzeichnungen");
    click("scanInforOKBtn");
    click("markAll");
    EXPECT_EQ(deleteMarked(),
              "Das Aufräumen konnte nicht beginnen: Die Schritte lassen sich nicht aufzeichnen.");
    EXPECT_EQ(information()[2], "es gibt keinen persönlichen Ordner für die Aufzeichnungen");
}

}  // namespace
}  // namespace tarvin
