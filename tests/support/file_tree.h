#pragma once

#include "support/temporary_folder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace tarvin {

/// A tree in a temporary folder, of any depth, with links, pipes and sockets. Names are relative to
/// the tree and may contain slashes; missing folders are made. Aborts if an entry cannot be made.
class FileTree final {
 public:
    FileTree() = default;
    FileTree(const FileTree&) = delete;
    FileTree& operator=(const FileTree&) = delete;
    /// Removes the tree level by level: it may be deeper than the descriptor limit.
    ~FileTree() { removeTree(folder_.path()); }

    /// The root of the tree: absolute, without a trailing slash.
    [[nodiscard]] const std::string& path() const { return folder_.path(); }
    [[nodiscard]] std::string pathOf(std::string_view name) const { return folder_.pathOf(name); }

    // Each makes an entry and returns its absolute path.

    std::string makeFolder(std::string_view name) const { return folder_.makeFolder(name); }

    std::string writeFile(std::string_view name, std::string_view content = {}) const {
        return folder_.writeFile(name, content);
    }

    std::string makeLink(std::string_view name, const std::string& target) const {
        return folder_.makeLink(name, target);
    }

    std::string makePipe(std::string_view name) const {
        std::string path = pathOf(name);
        check(::mkfifo(path.c_str(), 0600), path);
        return path;
    }

    std::string makeSocket(std::string_view name) const {
        std::string path = pathOf(name);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof(address.sun_path) - 1);
        const int number = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        check(number, path);
        const void* const any = &address;
        check(::bind(number, static_cast<const sockaddr*>(any), sizeof(address)), path);
        ::close(number);
        return path;
    }

    /// Makes `depth` nested folders called `name`, the outermost in the folder `in` of the tree.
    /// Each, from level `from` on, contains the `files`, with `content`. Returns the path of the
    /// innermost, which may be longer than PATH_MAX.
    std::string makeChain(std::string_view in, std::string_view name, std::size_t depth,
                          const std::vector<std::string>& files = {}, std::string_view content = {},
                          std::size_t from = 0) const {
        const std::string step(name);
        std::string path = in.empty() ? this->path() : makeFolder(in);
        int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        check(folder, path);
        for (std::size_t level = 0; level < depth; ++level) {
            check(::mkdirat(folder, step.c_str(), 0700), path);
            folder = moveTo(folder, step.c_str());
            path.append("/").append(step);
            for (const std::string& file : files) {
                if (level >= from) {
                    makeFileAt(folder, file, content);
                }
            }
        }
        ::close(folder);
        return path;
    }

    /// Makes `count` empty files in the folder `in` of the tree: "0", "1" and so on, plus `ending`.
    void makeFiles(std::string_view in, std::size_t count, std::string_view ending = ".txt") const {
        const std::string path = makeFolder(in);
        const int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        check(folder, path);
        for (std::size_t number = 0; number < count; ++number) {
            makeFileAt(folder, std::to_string(number).append(ending));
        }
        ::close(folder);
    }

    /// Removes the folder at `path` with everything in it, at any depth.
    static void removeTree(const std::string& path) {
        int folder = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (folder < 0) {
            return;
        }
        // The folders still to be removed, by level; the last one of each level is the current one.
        std::vector<std::vector<std::string>> levels;
        levels.push_back(removeFiles(folder));
        while (true) {
            if (!levels.back().empty()) {
                folder = moveTo(folder, levels.back().back().c_str());
                levels.push_back(removeFiles(folder));
                continue;
            }
            levels.pop_back();
            if (levels.empty()) {
                break;
            }
            folder = moveTo(folder, "..");
            check(::unlinkat(folder, levels.back().back().c_str(), AT_REMOVEDIR), path);
            levels.back().pop_back();
        }
        ::close(folder);
        check(::rmdir(path.c_str()), path);
    }

 private:
    static void check(int answer, const std::string& path) {
        if (answer < 0) {
            std::cerr << "cannot build or remove the test's tree at '" << path
                      << "': " << std::strerror(errno) << '\n';
            std::abort();
        }
    }

    /// Closes `from` and opens a folder relative to it.
    static int moveTo(int from, const char* name) {
        const int to = ::openat(from, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        check(to, name);
        ::close(from);
        return to;
    }

    static void makeFileAt(int folder, const std::string& name, std::string_view content = {}) {
        check(::mknodat(folder, name.c_str(), S_IFREG | 0600, 0), name);
        if (!content.empty()) {
            const int file = ::openat(folder, name.c_str(), O_WRONLY | O_CLOEXEC);
            check(file, name);
            const bool whole = ::write(file, content.data(), content.size()) == std::ssize(content);
            check(whole ? 0 : -1, name);
            ::close(file);
        }
    }

    /// Removes all entries except folders. Returns the names of the folders.
    static std::vector<std::string> removeFiles(int folder) {
        std::vector<std::string> folders;
        std::vector<std::string> others;
        DIR* const listing = ::fdopendir(::dup(folder));
        while (const dirent* const entry = ::readdir(listing)) {
            const std::string name = entry->d_name;
            if (name != "." && name != "..") {
                (entry->d_type == DT_DIR ? folders : others).push_back(name);
            }
        }
        ::closedir(listing);
        for (const std::string& name : others) {
            const int answer = ::unlinkat(folder, name.c_str(), 0);
            // Some file systems list entries without their types.
            if (answer < 0 && errno == EISDIR) {
                folders.push_back(name);
            } else {
                check(answer, name);
            }
        }
        return folders;
    }

    TemporaryFolder folder_;
};

}  // namespace tarvin
