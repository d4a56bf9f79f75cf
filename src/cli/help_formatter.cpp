#include "cli/help_formatter.h"

namespace tarvin {

HelpFormatter::HelpFormatter() {
    label("Positionals", "Arguments");
    column_width(30);
}

std::string HelpFormatter::make_usage(const CLI::App* app, std::string name) const {
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

std::string HelpFormatter::make_option_name(const CLI::Option* option, bool isPositional) const {
    std::string names = CLI::Formatter::make_option_name(option, isPositional);
    const std::size_t comma = names.find(',');
    return comma == std::string::npos ? names : names.insert(comma + 1, " ");
}

std::string HelpFormatter::make_option_opts(const CLI::Option* option) const {
    const std::string type = option->get_type_size() == 0 ? "" : option->get_type_name();
    return type.empty() ? "" : ' ' + type;
}

}  // namespace tarvin
