#include "window/copies.h"
#include "window/home.h"
#include "window/input.h"
#include "window/program_window.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace tarvin {
namespace {

TEST(Languages, AreChosenInTheOrderOfTheUser) {
    struct Choice {
        const char* languages;
        const char* help;
    };
    for (const Choice& choice : {Choice{"nl:ja:fr", "ヘルプ"}, Choice{"zh_CN", "帮助"},
                                 Choice{"nl:en:fr", "Help"}, Choice{"nl", "Help"}}) {
        Home home;
        home.setLanguages(choice.languages);
        const auto product = home.startProduct();
        const ProgramWindow window(product->pid());
        EXPECT_TRUE(window.shows(ATSPI_ROLE_PUSH_BUTTON, choice.help)) << choice.languages;
    }
}

TEST(Languages, AreSpokenByTheDialogForFolders) {
    Home home;
    home.setLanguages("fr");
    const auto product = home.startProduct();
    const ProgramWindow window(product->pid());
    window.click("Analyser des dossiers");
    window.click("Ajouter des dossiers");
    window.wait(ATSPI_ROLE_PUSH_BUTTON, "Annuler");
    input::key("Escape");
    window.waitForButton("Ajouter des dossiers", true);
}

TEST(Languages, LeadThroughAScan) {
    Home home;
    home.setLanguages("es");
    const std::string folder = home.folder().makeFolder("Archive");
    writeCopies(folder, {{"jpg", 1, 2}});
    const auto product = home.startProduct({folder});
    const ProgramWindow window(product->pid());
    window.click("Analizar");
    window.waitForText("Duplicados encontrados");
    window.click("Revisar");
    window.click("Marcar todo");
    window.waitForText("Archivos marcados: 1");
    window.click("Eliminar");
    window.waitForText("Duplicados limpiados: 1");
}

}  // namespace
}  // namespace tarvin
