#include "cli/help_command.h"

#include "cli/common_options.h"
#include "cli/messages.h"
#include "cli/parser.h"
#include "cli/usage_texts.h"

#include <CLI/CLI.hpp>

namespace tarvin {

CLI::App& HelpCommand::addTo(CLI::App& program) {
    program_ = &program;
    CLI::App* command = program.add_subcommand("help", "Show help for the program or a command");
    command->add_option("COMMAND", words_, "Command to explain [default: the program]")
        ->type_name("");
    addColorOption(*command);
    return *command;
}

ExitStatus HelpCommand::run() {
    const CLI::App* asked = program_;
    for (const std::string& word : words_) {
        const CLI::App* const next = subcommandOf(*asked, word);
        if (next == nullptr) {
            return refuse(unknownCommandText(word, *asked), commandLineOf(*asked));
        }
        asked = next;
    }
    return print(helpOf(*asked));
}

}  // namespace tarvin
