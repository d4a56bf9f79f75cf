#include "cli/keep_options.h"

#include "cli/choice.h"
#include "cli/common_options.h"
#include "cli/usage_texts.h"
#include "platform/file_paths.h"
#include "scan/rule_folder.h"

#include <CLI/CLI.hpp>

#include <array>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

namespace tarvin {

namespace {

constexpr std::array keepRules{Choice<KeepRule>{"first", KeepRule::first},
                               Choice<KeepRule>{"newest", KeepRule::newest},
                               Choice<KeepRule>{"oldest", KeepRule::oldest},
                               Choice<KeepRule>{"shortest", KeepRule::shortest},
                               Choice<KeepRule>{"longest", KeepRule::longest},
                               Choice<KeepRule>{"preferred", KeepRule::preferred}};

/// Why the options do not fit together; empty if they do.
std::string misfitOf(const KeepOptions& options) {
    const bool prefers = !options.preferred.empty();
    if (options.keep == KeepRule::preferred && !prefers) {
        return "--keep preferred needs a folder: --prefer FOLDER";
    }
    if (prefers && options.keep.value_or(KeepRule::preferred) != KeepRule::preferred) {
        return "--prefer can only be combined with --keep preferred";
    }
    return {};
}

/// Of files given one by one, their folders.
ScanWays scanWaysTo(const std::vector<std::string>& locations, FileSystem& fileSystem) {
    std::set<std::string> folders;
    for (const std::string& location : locations) {
        if (const Result<std::string> path = absolutePath(location)) {
            std::error_code ignored;
            const std::filesystem::path given(*path);
            folders.insert(std::filesystem::is_directory(given, ignored)
                               ? *path
                               : given.parent_path().native());
        }
    }
    return scanWaysOf({folders.begin(), folders.end()}, fileSystem);
}

/// Adds the folders that `option` names. Returns an error message, or nothing.
std::string addFoldersOf(const std::vector<std::string>& given, std::string_view option,
                         const ScanWays& ways, FileSystem& fileSystem,
                         std::vector<RuleFolder>& folders) {
    for (const std::string& path : given) {
        const Result<FoundFolder> folder = ruleFolderAt(path, fileSystem);
        if (!folder) {
            return invalidValueText(path, option, folder.error().text());
        }
        folders.push_back(folderInScan(*folder, ways));
    }
    return {};
}

}  // namespace

void addKeepOptions(CLI::App& command, KeepOptions& options) {
    addChoice(
        command, "--keep", keepRules, [&options](KeepRule keep) { options.keep = keep; },
        "Which file of each set stays [default: first, or\npreferred with --prefer]");
    addFoldersOption(command, "--prefer", options.preferred,
                     "Keep the file in FOLDER or below; the first FOLDER\n"
                     "that has one counts");
    addFoldersOption(command, "--protect", options.protectedFolders,
                     "Keep all files in FOLDER or below");
}

Result<std::optional<MarkingRule>, std::string> markingRuleOf(
    const KeepOptions& options, const std::vector<std::string>& locations, FileSystem& fileSystem) {
    if (std::string misfit = misfitOf(options); !misfit.empty()) {
        return misfit;
    }
    const bool prefers = !options.preferred.empty();
    const bool protects = !options.protectedFolders.empty();
    if (!options.keep && !prefers && !protects) {
        return std::optional<MarkingRule>();
    }
    MarkingRule rule;
    rule.keep = options.keep.value_or(prefers ? KeepRule::preferred : KeepRule::first);
    if (prefers || protects) {
        const ScanWays ways = scanWaysTo(locations, fileSystem);
        std::string error =
            addFoldersOf(options.preferred, "--prefer", ways, fileSystem, rule.preferred);
        if (error.empty()) {
            error = addFoldersOf(options.protectedFolders, "--protect", ways, fileSystem,
                                 rule.protectedFolders);
        }
        if (!error.empty()) {
            return error;
        }
    }
    return std::optional(std::move(rule));
}

}  // namespace tarvin
