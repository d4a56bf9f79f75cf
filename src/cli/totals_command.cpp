#include "cli/totals_command.h"

#include "clean/recovered_journal.h"
#include "cli/color_option.h"
#include "cli/messages.h"
#include "cli/print.h"
#include "scan/clean_texts.h"
#include "store/data_file.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <string>

namespace tarvin {

namespace {

constexpr const char* totalsExamples =
    "Exit status:\n"
    "  0    done\n"
    "  1    the totals could not be read, or not be printed\n"
    "  2    the command line is wrong; nothing was done";

}  // namespace

CLI::App& TotalsCommand::addTo(CLI::App& program) {
    CLI::App* command = program.add_subcommand(
        "totals", "Tells how many files were moved to the Trash over all runs.");
    command->footer(totalsExamples);
    addColorOption(*command);
    return *command;
}

ExitStatus TotalsCommand::run() {
    const std::optional<std::string> folder = platform_.applicationSupportFolder();
    if (!folder) {
        complain("there is no home folder to keep totals in");
        return ExitStatus::incomplete;
    }
    DataFile data(folder);
    const std::optional<StoreError> failure = data.loadDataFile();
    if (failure) {
        complainAbout(failure->path, failure->text);
        return ExitStatus::incomplete;
    }
    // The totals may lack what a clean-up has moved whose process was ended.
    if (const std::optional<StoreError> unsettled = recoverAtStart(platform_, data)) {
        complainAbout(unsettled->path, unsettled->text);
        return ExitStatus::incomplete;
    }
    return print(cleanedSoFarText(data.alreadyDeletedCount(), data.alreadyDeletedSize()) + '\n');
}

}  // namespace tarvin
