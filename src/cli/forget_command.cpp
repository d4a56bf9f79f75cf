#include "cli/forget_command.h"

#include "cli/common_options.h"
#include "cli/messages.h"
#include "store/scan_memory.h"

#include <CLI/CLI.hpp>

#include <optional>
#include <string>
#include <variant>

namespace tarvin {

namespace {

constexpr const char* forgetExamples =
    "Exit status:\n"
    "  0    done\n"
    "  1    the remembered scans could not be removed\n"
    "  2    usage error; nothing was done";

}  // namespace

CLI::App& ForgetCommand::addTo(CLI::App& program) {
    CLI::App* command =
        program.add_subcommand("forget", "Remove what scans with --remember have stored");
    command->footer(forgetExamples);
    addColorOption(*command);
    return *command;
}

ExitStatus ForgetCommand::run() {
    const std::optional<std::string> folder = platform_.applicationSupportFolder();
    if (!folder) {
        return printNoHomeFolder("remove remembered scans");
    }
    const StoreResult<bool> removed = ScanMemory::remove(*folder);
    if (const auto* error = std::get_if<StoreError>(&removed)) {
        return printStoreError("remove remembered scans", *error);
    }
    return print(std::get<bool>(removed) ? "Remembered scans removed.\n"
                                         : "No scans are remembered.\n");
}

}  // namespace tarvin
