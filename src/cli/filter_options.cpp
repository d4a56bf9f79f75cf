#include "cli/filter_options.h"

#include "cli/size_value.h"
#include "cli/usage_texts.h"
#include "scan/exclude_pattern.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <string>

namespace tarvin {

namespace {

constexpr const char* exclude = "--exclude";

/// Why the word cannot be a pattern; empty if it can.
std::string patternError(const std::string& word) {
    if (word.empty()) {
        return missingValueText(exclude);
    }
    if (word.starts_with('-')) {
        return invalidValueText(word, exclude,
                                "looks like an option; write '[-]" + word.substr(1) +
                                    "' for names that begin with a dash");
    }
    const auto pattern = ExcludePattern::parse(word);
    return pattern ? std::string() : invalidValueText(word, exclude, pattern.error());
}

void addSizeOption(CLI::App& command, const std::string& name, std::uint64_t& bytes,
                   const std::string& help) {
    const auto check = [name](const std::string& word) {
        if (word.empty()) {
            return missingValueText(name);
        }
        const auto size = bytesFrom(word);
        return size ? std::string() : invalidValueText(word, name, size.error());
    };
    command
        .add_option_function<std::string>(
            name, [&bytes](const std::string& word) { bytes = *bytesFrom(word); }, help)
        ->type_name("SIZE")
        ->check(CLI::Validator(check, "", ""))
        ->take_last();
}

}  // namespace

void addFilterOptions(CLI::App& command, ScanFilter& filter) {
    // Each pattern is taken while parsing. As a list the parser would divide "[a,b]".
    command
        .add_option_function<std::string>(
            exclude,
            [&filter](const std::string& word) {
                filter.excluded.push_back(*ExcludePattern::parse(word));
            },
            "Skip files and folders that match GLOB; may be\nrepeated")
        ->type_name("GLOB")
        ->check(CLI::Validator(patternError, "", ""))
        ->take_last()
        ->trigger_on_parse();
    addSizeOption(command, "--min-size", filter.minSize,
                  "Skip smaller files; SIZE is in bytes, or such as\n100KB or 1.5GiB");
    addSizeOption(command, "--max-size", filter.maxSize, "Skip larger files");
    command.add_flag("--one-file-system", filter.oneFileSystem,
                     "Skip folders on other file systems");
    command.add_flag("--skip-hidden", filter.skipHidden,
                     "Skip files and folders whose name begins with a\nperiod");
}

}  // namespace tarvin
