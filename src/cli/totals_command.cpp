#include "cli/totals_command.h"

#include "clean/recovery.h"
#include "cli/common_options.h"
#include "cli/messages.h"
#include "scan/texts.h"
#include "store/data_file.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <string>

namespace tarvin {

namespace {

constexpr const char* totalsExamples =
    "Exit status:\n"
    "  0    done\n"
    "  1    the totals could not be read or printed\n"
    "  2    usage error; nothing was done";

}  // namespace

CLI::App& TotalsCommand::addTo(CLI::App& program) {
    CLI::App* command =
        program.add_subcommand("totals", "Show how many files have been moved to the Trash");
    command->footer(totalsExamples);
    addColorOption(*command);
    return *command;
}

ExitStatus TotalsCommand::run() {
    const std::optional<std::string> folder = platform_.applicationSupportFolder();
    if (!folder) {
        return printNoHomeFolder("read totals");
    }
    DataFile data(folder);
    const std::optional<StoreError> failure = data.loadDataFile();
    if (failure) {
        return printStoreError("read totals", *failure);
    }
    // The totals may lack the moves of a clean-up that crashed.
    if (const std::optional<StoreError> unsettled = recoverAtStart(platform_, data)) {
        printRecordError(*unsettled, data.dataPath());
        return ExitStatus::incomplete;
    }
    return print(cleanedSoFarText(data.alreadyDeletedCount(), data.alreadyDeletedSize()) + '\n');
}

}  // namespace tarvin
