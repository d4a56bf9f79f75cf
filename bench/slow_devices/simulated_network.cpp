// Serves a folder as a network does: every call takes a while, many calls may be under way at once,
// and nothing is cached. For measurements and tests: read only, unless --writable is given.
//
//   simulated_network SOURCE FOLDER --delay MILLISECONDS [--jitter | --jitter-inodes |
//       --jitter-dates] [--jitter-folders] [--writable] --statistics FILE
//
// Returns when FOLDER is mounted and serves it in the background. When it is unmounted, FILE
// appears with two lines: the number of calls and how many were under way at most at the same time.

#define FUSE_USE_VERSION 312

#include "random.h"
#include "slow_devices/background.h"

#include <CLI/CLI.hpp>
#include <dirent.h>
#include <fcntl.h>
#include <fuse3/fuse.h>
#include <fuse3/fuse_lowlevel.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <string>
#include <thread>

namespace tarvin::devices {

namespace {

constexpr unsigned mostCalls = 256;  // under way at once

struct Network {
    std::string source;
    std::chrono::nanoseconds delay{};
    bool jittersInodes = false;
    bool jittersDates = false;
    bool jittersFolders = false;
    bool isWritable = false;
    std::atomic<std::uint64_t> calls{0};
    std::atomic<std::uint64_t> underWay{0};
    std::atomic<std::uint64_t> most{0};
};

Network& network() {
    return *static_cast<Network*>(::fuse_get_context()->private_data);
}

/// One call: lasts as long as the delay.
class Call final {
 public:
    Call() : end_(std::chrono::steady_clock::now() + network().delay) {
        ++network().calls;
        const std::uint64_t now = ++network().underWay;
        std::uint64_t most = network().most;
        while (now > most && !network().most.compare_exchange_weak(most, now)) {
        }
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;
    ~Call() {
        std::this_thread::sleep_until(end_);
        --network().underWay;
    }

 private:
    const std::chrono::steady_clock::time_point end_;
};

std::string sourceOf(const char* path) {
    return network().source + path;
}

int resultOf(int status) {
    return status < 0 ? -errno : 0;
}

/// Servers that make up inode numbers, and clocks that are not exact: another answer at each call,
/// of files and, if wanted, of folders.
void jitter(struct stat& attributes) {
    const Network& served = network();
    static std::atomic<std::uint64_t> next{1U << 20U};
    const bool jitters =
        S_ISREG(attributes.st_mode) || (S_ISDIR(attributes.st_mode) && served.jittersFolders);
    if (!jitters) {
        return;
    }
    const std::uint64_t answer = next++;
    if (served.jittersInodes) {
        attributes.st_ino = answer;
    }
    if (served.jittersDates) {
        // To and fro, as when several servers answer. Random, so that they go to and fro for each
        // of several callers, however their calls alternate.
        attributes.st_mtim.tv_nsec = static_cast<long>(bench::Random(answer).below(1000)) * 1000;
        attributes.st_ctim = attributes.st_mtim;
    }
}

int attributes(const char* path, struct stat* result, fuse_file_info* file) {
    const Call call;
    const int status = file != nullptr ? ::fstat(static_cast<int>(file->fh), result)
                                       : ::lstat(sourceOf(path).c_str(), result);
    if (status == 0) {
        jitter(*result);
    }
    return resultOf(status);
}

int readLink(const char* path, char* target, std::size_t size) {
    const Call call;
    const ssize_t length = ::readlink(sourceOf(path).c_str(), target, size - 1);
    if (length < 0) {
        return -errno;
    }
    target[length] = '\0';
    return 0;
}

int openFile(const char* path, fuse_file_info* file) {
    const Call call;
    const int flags = network().isWritable ? file->flags & O_ACCMODE : O_RDONLY;
    const int opened = ::open(sourceOf(path).c_str(), flags | O_CLOEXEC | O_NOFOLLOW);
    file->fh = static_cast<std::uint64_t>(opened);
    return resultOf(opened);
}

int readFile(const char*, char* data, std::size_t length, off_t offset, fuse_file_info* file) {
    const Call call;
    const ssize_t done = ::pread(static_cast<int>(file->fh), data, length, offset);
    return done < 0 ? -errno : static_cast<int>(done);
}

int closeFile(const char*, fuse_file_info* file) {
    ::close(static_cast<int>(file->fh));  // nobody waits for it
    return 0;
}

int list(const char* path, void* buffer, fuse_fill_dir_t add, off_t, fuse_file_info*,
         fuse_readdir_flags) {
    const Call call;
    DIR* folder = ::opendir(sourceOf(path).c_str());
    if (folder == nullptr) {
        return -errno;
    }
    while (const dirent* entry = ::readdir(folder)) {
        struct stat known{};
        known.st_ino = entry->d_ino;
        known.st_mode = static_cast<mode_t>(entry->d_type) << 12U;
        add(buffer, entry->d_name, &known, 0, fuse_fill_dir_flags{});
    }
    ::closedir(folder);
    return 0;
}

int createFile(const char* path, mode_t mode, fuse_file_info* file) {
    const Call call;
    const int opened = ::open(sourceOf(path).c_str(),
                              (file->flags & O_ACCMODE) | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    file->fh = static_cast<std::uint64_t>(opened);
    return resultOf(opened);
}

int writeFile(const char*, const char* data, std::size_t length, off_t offset,
              fuse_file_info* file) {
    const Call call;
    const ssize_t done = ::pwrite(static_cast<int>(file->fh), data, length, offset);
    return done < 0 ? -errno : static_cast<int>(done);
}

int renameEntry(const char* from, const char* to, unsigned flags) {
    const Call call;
    return resultOf(
        ::renameat2(AT_FDCWD, sourceOf(from).c_str(), AT_FDCWD, sourceOf(to).c_str(), flags));
}

int removeFile(const char* path) {
    const Call call;
    return resultOf(::unlink(sourceOf(path).c_str()));
}

int makeFolder(const char* path, mode_t mode) {
    const Call call;
    return resultOf(::mkdir(sourceOf(path).c_str(), mode));
}

int removeFolder(const char* path) {
    const Call call;
    return resultOf(::rmdir(sourceOf(path).c_str()));
}

/// Nothing is kept: not the names, not the attributes, not the contents. Names of one folder may be
/// looked up at the same time, as the clients of networks do.
void* start(fuse_conn_info* connection, fuse_config* config) {
    connection->want |= connection->capable & FUSE_CAP_PARALLEL_DIROPS;
    config->entry_timeout = 0;
    config->attr_timeout = 0;
    config->negative_timeout = 0;
    config->direct_io = 1;
    config->use_ino = network().jittersInodes ? 1 : 0;
    return ::fuse_get_context()->private_data;
}

fuse_operations operations(const Network& served) {
    fuse_operations all{};
    all.getattr = attributes;
    all.readlink = readLink;
    all.open = openFile;
    all.read = readFile;
    all.release = closeFile;
    all.readdir = list;
    all.init = start;
    if (served.isWritable) {
        all.create = createFile;
        all.write = writeFile;
        all.rename = renameEntry;
        all.unlink = removeFile;
        all.mkdir = makeFolder;
        all.rmdir = removeFolder;
    }
    return all;
}

int loop(fuse* served) {
    fuse_loop_config* config = ::fuse_loop_cfg_create();
    ::fuse_loop_cfg_set_clone_fd(config, 0);
    ::fuse_loop_cfg_set_max_threads(config, mostCalls);
    ::fuse_loop_cfg_set_idle_threads(config, mostCalls);
    const int status = ::fuse_loop_mt(served, config);
    ::fuse_loop_cfg_destroy(config);
    return status;
}

int serve(Network& served, const std::string& folder, const std::string& statistics) {
    std::string program = "simulated_network";
    char* arguments[] = {program.data(), nullptr};
    fuse_args given = FUSE_ARGS_INIT(1, arguments);
    const fuse_operations all = operations(served);
    fuse* running = ::fuse_new(&given, &all, sizeof all, &served);
    if (running == nullptr || ::fuse_mount(running, folder.c_str()) != 0) {
        return 1;
    }
    if (::fuse_daemonize(0) != 0) {
        ::fuse_unmount(running);
        return 1;
    }
    const int status = loop(running);
    ::fuse_unmount(running);
    ::fuse_destroy(running);
    if (!statistics.empty()) {
        writeStatistics(statistics, {served.calls, served.most});
    }
    return status;
}

}  // namespace

}  // namespace tarvin::devices

int main(int argc, char** argv) {
    CLI::App app("Serves SOURCE at FOLDER as slowly as a network, until it is unmounted.");
    using tarvin::devices::absolute;
    tarvin::devices::Network network;
    std::string folder;
    std::string statistics;
    double delay = 5;
    app.add_option("SOURCE", network.source)->required()->check(CLI::ExistingDirectory);
    app.add_option("FOLDER", folder)->required()->check(CLI::ExistingDirectory);
    app.add_option("--delay", delay, "of each call, in milliseconds")
        ->check(CLI::NonNegativeNumber);
    bool jitters = false;
    app.add_flag("--jitter", jitters, "other inode numbers and dates of files at each call");
    app.add_flag("--jitter-inodes", network.jittersInodes, "only other inode numbers");
    app.add_flag("--jitter-dates", network.jittersDates, "only other dates");
    app.add_flag("--jitter-folders", network.jittersFolders, "also those of folders");
    app.add_flag("--writable", network.isWritable, "files can be created, renamed and removed");
    app.add_option("--statistics", statistics, "written when FOLDER is unmounted");
    CLI11_PARSE(app, argc, argv);
    network.jittersInodes = network.jittersInodes || jitters;
    network.jittersDates = network.jittersDates || jitters;
    network.delay = std::chrono::nanoseconds(static_cast<std::int64_t>(delay * 1e6));
    network.source = absolute(network.source);
    return tarvin::devices::serve(network, absolute(folder), absolute(statistics));
}
