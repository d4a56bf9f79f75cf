#include "controller/command_line.h"

#include "platform/file_paths.h"
#include "text/shown_name.h"

#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace tarvin {

namespace {

bool isDisplayOption(std::string_view word) {
    return word == "-platform" || word == "--platform" || word == "-display" || word == "--display";
}

}  // namespace

CommandLine readCommandLine(std::span<const char* const> arguments) {
    CommandLine line;
    bool optionsAreOver = false;
    for (const char* const argument : arguments.subspan(arguments.empty() ? 0 : 1)) {
        const std::string_view word = argument;
        line.choosesDisplay |= !optionsAreOver && isDisplayOption(word);
        if (optionsAreOver || !word.starts_with('-') || word == "-") {
            line.folders.emplace_back(word);
        } else if (word == "--") {
            optionsAreOver = true;
        } else if (word == "-h" || word == "--help") {
            line.help = true;
        } else if (word == "--version") {
            line.version = true;
        } else if (line.unknownOption.empty()) {
            line.unknownOption = word;
        }
    }
    return line;
}

std::string helpText() {
    return "Find byte-for-byte identical files and move copies to the Trash.\n"
           "\n"
           "Usage: tarvin-duplicate-file-remover [OPTION]... [FOLDER]...\n"
           "\n"
           "Adds each FOLDER to the list of locations, checked.\n"
           "\n"
           "Options:\n"
           "  -h, --help   Print help and exit\n"
           "  --version    Print the version and exit\n"
           "\n"
           "Qt options such as -platform and -style are also accepted.\n"
           "'tarvin' does the same work in a terminal.\n";
}

std::string unknownOptionText(const std::string& option) {
    const std::string name = programName;
    return name + ": unknown option " + quotedName(option) + "\nTry '" + name + " --help'.\n";
}

std::vector<std::string> givenFolders(const std::vector<std::string>& folders,
                                      std::string& errors) {
    std::vector<std::string> paths;
    for (const std::string& folder : folders) {
        const Result<std::string> path = absolutePath(folder);
        std::error_code failure;
        if (path && std::filesystem::is_directory(*path, failure)) {
            paths.push_back(*path);
            continue;
        }
        const std::string reason = !path     ? path.error().text()
                                   : failure ? failure.message()
                                             : SystemError{ENOTDIR}.text();
        errors +=
            std::string(programName) + ": cannot add " + quotedName(folder) + ": " + reason + '\n';
    }
    return paths;
}

}  // namespace tarvin
