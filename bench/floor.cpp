// The read floor, a lower bound for the time of a duplicate finder: walks a folder, and reads each
// file whose size is shared by another once, in full, into a reused buffer. It compares nothing, so
// it measures the cost of the system calls alone.

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

namespace {

constexpr std::size_t readBufferBytes = 128 * 1024;
constexpr unsigned maxThreads = 64;

struct Options {
    unsigned threads = 1;
    bool walkOnly = false;
    std::string folder;
};

struct FoundFile {
    std::uint64_t size = 0;
    std::string path;
};

struct Reading {
    std::uint64_t bytes = 0;
    std::uint64_t failures = 0;  ///< files that could not be opened or read to their end
};

struct CloseDirectory {
    void operator()(DIR* directory) const { ::closedir(directory); }
};
using DirectoryHandle = std::unique_ptr<DIR, CloseDirectory>;

/// Opens a folder relative to `parent`. Returns nullptr if it cannot be opened.
DirectoryHandle openDirectory(int parent, const char* name) {
    const int descriptor = ::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (descriptor < 0) {
        return nullptr;
    }
    DirectoryHandle directory(::fdopendir(descriptor));
    if (!directory) {
        ::close(descriptor);
    }
    return directory;
}

bool isDotEntry(std::string_view name) {
    return name == "." || name == "..";
}

/// Collects the regular files at and below `path`, the path of `directory`. Skips folders that
/// cannot be opened.
void walk(DIR* directory, const std::string& path, std::vector<FoundFile>& files) {
    const int descriptor = ::dirfd(directory);
    while (const dirent* entry = ::readdir(directory)) {
        const char* name = static_cast<const char*>(entry->d_name);
        if (isDotEntry(name)) {
            continue;
        }
        struct stat status{};
        if (entry->d_type == DT_DIR) {
            if (const DirectoryHandle child = openDirectory(descriptor, name)) {
                walk(child.get(), path + "/" + name, files);
            }
        } else if (::fstatat(descriptor, name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
                   S_ISREG(status.st_mode)) {
            files.push_back({static_cast<std::uint64_t>(status.st_size), path + "/" + name});
        }
    }
}

/// Returns the files whose size another file has, in the order of the walk.
std::vector<const FoundFile*> candidatesIn(const std::vector<FoundFile>& files) {
    std::vector<std::uint64_t> sizes;
    sizes.reserve(files.size());
    for (const FoundFile& file : files) {
        sizes.push_back(file.size);
    }
    std::sort(sizes.begin(), sizes.end());
    std::vector<const FoundFile*> candidates;
    for (const FoundFile& file : files) {
        const auto [first, last] = std::equal_range(sizes.begin(), sizes.end(), file.size);
        if (file.size > 0 && last - first > 1) {
            candidates.push_back(&file);
        }
    }
    return candidates;
}

void readFile(const FoundFile& file, std::span<char> buffer, Reading& reading) {
    const int descriptor = ::open(file.path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        ++reading.failures;
        return;
    }
    ssize_t length = 0;
    while ((length = ::read(descriptor, buffer.data(), buffer.size())) > 0) {
        reading.bytes += static_cast<std::uint64_t>(length);
    }
    reading.failures += length < 0 ? 1U : 0U;
    ::close(descriptor);
}

Reading readFiles(std::span<const FoundFile* const> files) {
    std::vector<char> buffer(readBufferBytes);
    Reading reading;
    for (const FoundFile* file : files) {
        readFile(*file, buffer, reading);
    }
    return reading;
}

/// Reads the files with `threads` threads, each an equal part of the list.
Reading readInParallel(std::span<const FoundFile* const> files, unsigned threads) {
    std::vector<Reading> readings(threads);
    {
        std::vector<std::jthread> workers;
        for (unsigned i = 0; i < threads; ++i) {
            const std::size_t first = files.size() * i / threads;
            const std::size_t last = files.size() * (i + 1) / threads;
            workers.emplace_back([&readings, i, part = files.subspan(first, last - first)] {
                readings[i] = readFiles(part);
            });
        }
    }
    Reading total;
    for (const Reading& reading : readings) {
        total.bytes += reading.bytes;
        total.failures += reading.failures;
    }
    return total;
}

bool takeThreads(std::string_view text, Options& options) {
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), options.threads);
    return error == std::errc{} && end == text.data() + text.size() && options.threads > 0 &&
           options.threads <= maxThreads;
}

/// Parses options and one folder. Returns nullopt if `arguments` are anything else.
std::optional<Options> parse(std::span<char* const> arguments) {
    Options options;
    for (; arguments.size() > 1; arguments = arguments.subspan(1)) {
        const std::string_view word = arguments.front();
        if (word == "--walk-only") {
            options.walkOnly = true;
        } else if (word == "--threads" && takeThreads(arguments[1], options)) {
            arguments = arguments.subspan(1);
        } else {
            return std::nullopt;
        }
    }
    if (arguments.empty()) {
        return std::nullopt;
    }
    options.folder = arguments.front();
    return options;
}

void print(std::size_t files, std::size_t candidates, const Reading& reading) {
    std::printf("files %zu\ncandidates %zu\nbytes %llu\n", files, candidates,
                static_cast<unsigned long long>(reading.bytes));
}

}  // namespace

int main(int argc, char** argv) {
    const auto options = parse(std::span(argv, static_cast<std::size_t>(argc)).subspan(1));
    if (!options) {
        std::fputs("usage: floor [--threads N] [--walk-only] FOLDER\n", stderr);
        return 2;
    }
    const DirectoryHandle top = openDirectory(AT_FDCWD, options->folder.c_str());
    if (!top) {
        std::perror(options->folder.c_str());
        return 1;
    }
    std::vector<FoundFile> files;
    walk(top.get(), options->folder, files);
    const std::vector<const FoundFile*> candidates = candidatesIn(files);
    const Reading reading =
        options->walkOnly ? Reading{} : readInParallel(candidates, options->threads);
    print(files.size(), candidates.size(), reading);
    if (reading.failures > 0) {
        std::fprintf(stderr, "floor: %llu files could not be read\n",
                     static_cast<unsigned long long>(reading.failures));
        return 1;
    }
    return 0;
}
