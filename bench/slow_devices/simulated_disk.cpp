// Serves an image of a disk as a file that is as slow as a rotating disk with one arm. A file
// system in it is mounted with a loop device, whose queue is then told to rotate:
//
//   simulated_disk IMAGE FOLDER --statistics FILE     (FOLDER/disk is the slow file)
//   device=$(losetup --find --show FOLDER/disk)
//   echo 1 > /sys/block/${device#/dev/}/queue/rotational
//   mount $device MOUNTPOINT
//
// Returns when FOLDER is mounted and serves it in the background. The file answers one request at a
// time. Nothing of it is cached below the loop device. When FOLDER is unmounted, FILE appears with
// four lines: the numbers of transfers, of seeks, of bytes, and of milliseconds in which nothing
// was transferred because the arm moved or the disk turned.

#define FUSE_USE_VERSION 312

#include "slow_devices/background.h"
#include "slow_devices/precise_sleep.h"
#include "slow_devices/seek_model.h"

#include <CLI/CLI.hpp>
#include <fcntl.h>
#include <fuse3/fuse.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>

namespace tarvin::devices {

namespace {

constexpr const char* name = "/disk";
// The time in which the disk fills its buffer: 36 MB at 180 MB/s.
constexpr std::chrono::milliseconds bufferTime{200};

/// The image and its clock. FUSE calls from one thread.
class Disk final {
 public:
    Disk(int image, std::uint64_t bytes, bool isSlow)
        : image_(image), bytes_(bytes), isSlow_(isSlow), model_({.bytes = bytes}) {}

    [[nodiscard]] std::uint64_t bytes() const { return bytes_; }

    int read(char* data, std::size_t length, off_t offset) {
        return transferred(::pread(image_, data, length, offset), offset);
    }
    int write(const char* data, std::size_t length, off_t offset) {
        return transferred(::pwrite(image_, data, length, offset), offset);
    }

    void writeStatistics(const std::string& file) const {
        const auto seekTime =
            std::chrono::duration_cast<std::chrono::milliseconds>(model_.seekTime());
        devices::writeStatistics(file, {transfers_, model_.seeks(), transferredBytes_,
                                        static_cast<std::uint64_t>(seekTime.count())});
    }

 private:
    /// Waits as long as the disk takes. Returns what FUSE expects.
    int transferred(ssize_t length, off_t offset) {
        if (length < 0) {
            return -errno;
        }
        const auto now = std::chrono::steady_clock::now();
        const std::uint64_t seeksBefore = model_.seeks();
        const auto time =
            model_.transfer(static_cast<std::uint64_t>(offset), static_cast<std::uint64_t>(length));
        // While nobody asks, the disk reads on into its buffer, across a gap too.
        const auto ahead =
            model_.seeks() == seeksBefore ? bufferTime : std::chrono::milliseconds(0);
        free_ = std::max(free_, now - ahead) + time;
        ++transfers_;
        transferredBytes_ += static_cast<std::uint64_t>(length);
        if (isSlow_) {
            sleepUntil(free_);
        }
        return static_cast<int>(length);
    }

    const int image_;
    const std::uint64_t bytes_;
    const bool isSlow_;
    SeekModel model_;
    std::chrono::steady_clock::time_point free_;
    std::uint64_t transfers_ = 0;
    std::uint64_t transferredBytes_ = 0;
};

Disk& disk() {
    return *static_cast<Disk*>(::fuse_get_context()->private_data);
}

bool isDisk(const char* path) {
    return std::strcmp(path, name) == 0;
}

int attributesInFolder(const char* path, struct stat* result, fuse_file_info*) {
    *result = {};
    if (isDisk(path)) {
        result->st_mode = S_IFREG | 0600;
        result->st_nlink = 1;
        result->st_size = static_cast<off_t>(disk().bytes());
        return 0;
    }
    result->st_mode = S_IFDIR | 0700;
    result->st_nlink = 2;
    return std::strcmp(path, "/") == 0 ? 0 : -ENOENT;
}

int listFolder(const char*, void* buffer, fuse_fill_dir_t add, off_t, fuse_file_info*,
               fuse_readdir_flags) {
    add(buffer, name + 1, nullptr, 0, fuse_fill_dir_flags{});
    return 0;
}

int openDisk(const char* path, fuse_file_info* file) {
    file->direct_io = 1;  // the page cache above the loop device is the only one, as for a disk
    return isDisk(path) ? 0 : -ENOENT;
}

int readDisk(const char*, char* data, std::size_t length, off_t offset, fuse_file_info*) {
    return disk().read(data, length, offset);
}

int writeDisk(const char*, const char* data, std::size_t length, off_t offset, fuse_file_info*) {
    return disk().write(data, length, offset);
}

int flushDisk(const char*, int, fuse_file_info*) {
    return 0;
}

/// Keeps the context: without this, FUSE replaces it by a null pointer.
void* startDisk(fuse_conn_info*, fuse_config*) {
    return ::fuse_get_context()->private_data;
}

int serve(const std::string& image, const std::string& folder, const std::string& statistics,
          bool isSlow) {
    const int file = ::open(image.c_str(), O_RDWR | O_CLOEXEC);
    struct stat attributesOfImage{};
    if (file < 0 || ::fstat(file, &attributesOfImage) != 0) {
        std::perror(image.c_str());
        return 1;
    }
    Disk served(file, static_cast<std::uint64_t>(attributesOfImage.st_size), isSlow);
    fuse_operations operations{};
    operations.getattr = attributesInFolder;
    operations.readdir = listFolder;
    operations.open = openDisk;
    operations.read = readDisk;
    operations.write = writeDisk;
    operations.fsync = flushDisk;
    operations.init = startDisk;
    std::string program = "simulated_disk";
    std::string oneThread = "-s";
    std::string place = folder;
    char* arguments[] = {program.data(), oneThread.data(), place.data(), nullptr};
    const int status = ::fuse_main(3, arguments, &operations, &served);
    if (!statistics.empty()) {
        served.writeStatistics(statistics);
    }
    ::close(file);
    return status;
}

}  // namespace

}  // namespace tarvin::devices

int main(int argc, char** argv) {
    CLI::App app(
        "Serves an image as FOLDER/disk, as slow as a rotating disk, until it is unmounted.");
    std::string image;
    std::string folder;
    std::string statistics;
    bool isFast = false;
    app.add_option("IMAGE", image)->required()->check(CLI::ExistingFile);
    app.add_option("FOLDER", folder)->required()->check(CLI::ExistingDirectory);
    app.add_option("--statistics", statistics, "written when FOLDER is unmounted");
    app.add_flag("--fast", isFast, "count, but do not wait");
    CLI11_PARSE(app, argc, argv);
    using tarvin::devices::absolute;
    return tarvin::devices::serve(image, absolute(folder), absolute(statistics), !isFast);
}
