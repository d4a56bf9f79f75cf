#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace tarvin {

/// Layout of the help texts. The parser's own layout adds marks such as "REQUIRED", which repeat
/// the usage line.
class HelpFormatter final : public CLI::Formatter {
 public:
    HelpFormatter();

    std::string make_usage(const CLI::App* app, std::string name) const override;
    std::string make_option_name(const CLI::Option* option, bool isPositional) const override;
    std::string make_option_opts(const CLI::Option* option) const override;
};

}  // namespace tarvin
