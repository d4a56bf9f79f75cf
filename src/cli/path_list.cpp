#include "cli/path_list.h"

#include "cli/messages.h"
#include "platform/unique_fd.h"
#include "text/shown_name.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <iterator>

namespace tarvin {

namespace {

constexpr const char* standardInput = "-";

std::string shownList(const std::string& path) {
    return path == standardInput ? "standard input" : quotedName(path);
}

Result<std::string> readToTheEnd(int descriptor) {
    std::string content;
    std::array<char, 64 * 1024> chunk{};
    while (true) {
        const ssize_t count = ::read(descriptor, chunk.data(), chunk.size());
        if (count < 0 && errno != EINTR) {
            return SystemError{errno};
        }
        if (count == 0) {
            return content;
        }
        if (count > 0) {
            content.append(chunk.data(), static_cast<std::size_t>(count));
        }
    }
}

}  // namespace

std::vector<std::string> pathsIn(std::string_view list, char end) {
    std::vector<std::string> paths;
    while (!list.empty()) {
        const std::size_t length = std::min(list.find(end), list.size());
        if (length > 0) {
            paths.emplace_back(list.substr(0, length));
        }
        list.remove_prefix(std::min(length + 1, list.size()));
    }
    return paths;
}

Result<std::string> contentOfList(const std::string& path) {
    if (path == standardInput) {
        return readToTheEnd(STDIN_FILENO);
    }
    const UniqueFd file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    return file ? readToTheEnd(file.number()) : SystemError{errno};
}

bool addListedPaths(ScanOptions& options) {
    if (!options.filesFrom) {
        return true;
    }
    const Result<std::string> list = contentOfList(*options.filesFrom);
    if (!list) {
        printError(failureText("read list", shownList(*options.filesFrom), list.error().text()));
        return false;
    }
    if (!options.listIsNullTerminated && list->find('\0') != std::string::npos) {
        // Each path would end at its first null character and could name another file.
        printError(failureText("use list", shownList(*options.filesFrom),
                               "it has null characters; use --null"));
        return false;
    }
    std::vector<std::string> paths = pathsIn(*list, options.listIsNullTerminated ? '\0' : '\n');
    options.folders.insert(options.folders.end(), std::make_move_iterator(paths.begin()),
                           std::make_move_iterator(paths.end()));
    return true;
}

bool readsStandardInput(const ScanOptions& options) {
    return options.filesFrom == standardInput;
}

}  // namespace tarvin
