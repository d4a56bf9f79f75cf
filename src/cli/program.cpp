#include "cli/program.h"

#include "cli/arguments.h"
#include "cli/clean_command.h"
#include "cli/command.h"
#include "cli/common_options.h"
#include "cli/exceptions_command.h"
#include "cli/forget_command.h"
#include "cli/help_command.h"
#include "cli/messages.h"
#include "cli/parser.h"
#include "cli/restore_command.h"
#include "cli/scan_command.h"
#include "cli/terminal.h"
#include "cli/totals_command.h"
#include "cli/usage_texts.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

namespace {

constexpr const char* description =
    "Find byte-for-byte identical files and move copies to the Trash.\n"
    "'tarvin help COMMAND' explains a command.";

constexpr const char* programExamples =
    "Examples:\n"
    "  tarvin scan ~/Pictures ~/Downloads\n"
    "  tarvin scan --format json --output duplicates.json ~/Pictures\n"
    "  tarvin clean --dry-run ~/Pictures\n"
    "  tarvin restore\n"
    "  tarvin exceptions add ~/Pictures/keep-both.jpg";

/// Layout of the help texts. The parser's own layout adds marks such as "REQUIRED", which repeat
/// the usage line.
class HelpFormatter final : public CLI::Formatter {
 public:
    HelpFormatter() {
        label("Positionals", "Arguments");
        column_width(30);
    }

    std::string make_usage(const CLI::App* app, std::string name) const override {
        std::string line = "\nUsage: " + name;
        if (!app->get_subcommands({}).empty()) {
            line += " COMMAND";
        }
        line += " [OPTION]...";
        for (const CLI::Option* option : app->get_options()) {
            if (option->get_positional()) {
                line += ' ' + make_option_usage(option);
            }
        }
        return line += '\n';
    }

    std::string make_option_name(const CLI::Option* option, bool isPositional) const override {
        std::string names = CLI::Formatter::make_option_name(option, isPositional);
        const std::size_t comma = names.find(',');
        return comma == std::string::npos ? names : names.insert(comma + 1, " ");
    }

    std::string make_option_opts(const CLI::Option* option) const override {
        const std::string type = option->get_type_size() == 0 ? "" : option->get_type_name();
        return type.empty() ? "" : ' ' + type;
    }
};

/// A command and its parser.
struct Entry {
    std::unique_ptr<Command> command;
    CLI::App* parser = nullptr;
};

std::vector<Entry> addCommands(CLI::App& program, Platform& platform) {
    std::vector<Entry> entries;
    entries.push_back({std::make_unique<ScanCommand>(platform), nullptr});
    entries.push_back({std::make_unique<CleanCommand>(platform), nullptr});
    entries.push_back({std::make_unique<RestoreCommand>(platform), nullptr});
    entries.push_back({std::make_unique<ExceptionsCommand>(platform), nullptr});
    entries.push_back({std::make_unique<TotalsCommand>(platform), nullptr});
    entries.push_back({std::make_unique<ForgetCommand>(platform), nullptr});
    entries.push_back({std::make_unique<HelpCommand>(), nullptr});
    for (Entry& entry : entries) {
        entry.parser = &entry.command->addTo(program);
        entry.parser->group("Commands");
    }
    return entries;
}

/// The innermost command that was parsed.
const CLI::App& parsedCommand(const CLI::App& program) {
    const std::vector<CLI::App*> chosen = program.get_subcommands();
    return chosen.empty() ? program : parsedCommand(*chosen.back());
}

ExitStatus parseAndRun(CLI::App& program, const std::vector<Entry>& entries,
                       std::vector<std::string> arguments) {
    if (arguments.empty()) {
        return refuse(missingCommandText(), program.get_name());
    }
    const std::string& first = arguments.front();
    if (!first.starts_with('-') && subcommandOf(program, first) == nullptr) {
        return refuse(unknownCommandText(first, program), program.get_name());
    }
    if (const std::optional<Misspelling> misspelt = misspellingIn(program, arguments)) {
        return refuse(misspelt->reason, commandLineOf(*misspelt->command));
    }
    try {
        std::reverse(arguments.begin(), arguments.end());  // the parser reads them from the end
        program.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        return print(helpOf(parsedCommand(program)));
    } catch (const CLI::CallForVersion&) {
        return print(program.get_name() + ' ' + TARVIN_VERSION + '\n');
    } catch (const CLI::ExtrasError&) {
        const CLI::App& command = parsedCommand(program);
        return refuse(unexpectedArgumentText(program.remaining(true).front(), command),
                      commandLineOf(command));
    } catch (const CLI::ParseError& error) {
        const CLI::App& command = parsedCommand(program);
        return refuse(usageErrorText(error, command), commandLineOf(command));
    }
    const auto chosen = std::find_if(entries.begin(), entries.end(),
                                     [](const Entry& entry) { return entry.parser->parsed(); });
    return chosen == entries.end() ? refuse(missingCommandText(), program.get_name())
                                   : chosen->command->run();
}

}  // namespace

int runProgram(std::span<const char* const> arguments, Platform& platform) {
    reserveStandardStreams();
    // A closed pipe and a file size limit must be write errors (EPIPE, EFBIG): neither signal may
    // end a clean-up between two files.
    for (const int signal : {SIGPIPE, SIGXFSZ}) {
        static_cast<void>(std::signal(signal, SIG_IGN));
    }
    CLI::App program(description, "tarvin");
    program.formatter(std::make_shared<HelpFormatter>());
    program.footer(programExamples);
    program.set_help_flag("-h,--help", "Print help and exit");
    program.set_version_flag("-V,--version", TARVIN_VERSION, "Print the version and exit");
    addColorOption(program);
    // Zero commands are accepted here: parseAndRun() reports the missing one. Otherwise the parser
    // would, and hide a wrong option.
    program.require_subcommand(0, 1);
    const std::vector<Entry> entries = addCommands(program, platform);
    return static_cast<int>(parseAndRun(program, entries, escapedForParser(arguments)));
}

}  // namespace tarvin
