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
#include <string_view>
#include <utility>

namespace tarvin {

namespace {

constexpr const char* standardInput = "-";

std::string shownList(const std::string& path) {
    return path == standardInput ? "standard input" : quotedName(path);
}

/// Divides a list that arrives in chunks into paths.
class PathDivider final {
 public:
    PathDivider(char end, const PathListLimits& limits) : end_(end), limits_(limits) {}

    /// Returns why the list cannot be used; empty if it can so far.
    std::string take(std::string_view chunk) {
        bytes_ += chunk.size();
        if (end_ != '\0' && chunk.find('\0') != std::string_view::npos) {
            return "it has null characters; use --null";
        }
        while (!chunk.empty()) {
            if (path_.empty()) {
                chunk.remove_prefix(std::min(chunk.find_first_not_of(end_), chunk.size()));
            }
            const std::size_t length = std::min(chunk.find(end_), chunk.size());
            path_.append(chunk.substr(0, std::min(length, limits_.pathBytes + 1)));
            if (path_.size() > limits_.pathBytes) {
                return "a path in it has more than " + std::to_string(limits_.pathBytes) + " bytes";
            }
            if (length < chunk.size() && !endPath()) {
                return "it has more than " + std::to_string(limits_.paths) + " paths";
            }
            chunk.remove_prefix(std::min(length + 1, chunk.size()));
        }
        return bytes_ > limits_.listBytes
                   ? "it has more than " + std::to_string(limits_.listBytes) + " bytes"
                   : std::string();
    }

    /// Ends the path at which the divider is. Returns false if there are too many.
    bool endPath() {
        if (path_.empty()) {
            return true;
        }
        if (paths_.size() == limits_.paths) {
            return false;
        }
        paths_.push_back(path_);
        path_.clear();
        return true;
    }

    std::vector<std::string>& paths() { return paths_; }

 private:
    const char end_;
    const PathListLimits limits_;
    std::uint64_t bytes_ = 0;
    std::string path_;  // keeps its memory from path to path
    std::vector<std::string> paths_;
};

Result<std::vector<std::string>, PathListFailure> readPaths(int descriptor, char end,
                                                            const PathListLimits& limits) {
    PathDivider divider(end, limits);
    std::array<char, 64 * 1024> chunk{};
    while (true) {
        const ssize_t count = ::read(descriptor, chunk.data(), chunk.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return PathListFailure{"read", SystemError{errno}.text()};
        }
        std::string reason;
        if (count > 0) {
            reason = divider.take({chunk.data(), static_cast<std::size_t>(count)});
        } else if (divider.endPath()) {
            return std::move(divider.paths());
        } else {
            reason = "it has more than " + std::to_string(limits.paths) + " paths";
        }
        if (!reason.empty()) {
            return PathListFailure{"use", std::move(reason)};
        }
    }
}

}  // namespace

Result<std::vector<std::string>, PathListFailure> readPathList(const std::string& list, char end,
                                                               const PathListLimits& limits) {
    if (list == standardInput) {
        return readPaths(STDIN_FILENO, end, limits);
    }
    const UniqueFd file(::open(list.c_str(), O_RDONLY | O_NOCTTY | O_CLOEXEC));
    if (!file) {
        return PathListFailure{"read", SystemError{errno}.text()};
    }
    return readPaths(file.number(), end, limits);
}

bool addListedPaths(ScanOptions& options) {
    const char end = options.listIsNullTerminated ? '\0' : '\n';
    bool hasReadInput = false;
    for (const std::string& list : options.filesFrom) {
        if (list == standardInput && std::exchange(hasReadInput, true)) {
            continue;
        }
        auto read = readPathList(list, end);
        if (!read) {
            const PathListFailure failure = read.error();
            printError(
                failureText(std::string(failure.verb) + " list", shownList(list), failure.reason));
            return false;
        }
        options.folders.insert(options.folders.end(), std::make_move_iterator(read->begin()),
                               std::make_move_iterator(read->end()));
    }
    return true;
}

bool readsStandardInput(const ScanOptions& options) {
    return std::find(options.filesFrom.begin(), options.filesFrom.end(), standardInput) !=
           options.filesFrom.end();
}

}  // namespace tarvin
