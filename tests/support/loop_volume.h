#pragma once

#include "support/file_content.h"
#include "support/skip.h"
#include "support/temporary_folder.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvin {

/// Runs a command of the shell. Returns whether it succeeded.
[[nodiscard]] inline bool runOnImage(const std::string& command) {
    return std::system(command.c_str()) == 0;  // NOLINT(concurrency-mt-unsafe)
}

/// Makes an image of 8 MiB with an empty ext4 volume.
[[nodiscard]] inline bool makeVolumeImage(const std::string& image) {
    return runOnImage("truncate -s 8M " + image + " && mkfs.ext4 -q -m 0 " + image);
}

/// Replaces bytes of a file of an unmounted volume by as many others, so that none of its metadata
/// change. If several files have the bytes, the last on the volume is changed.
[[nodiscard]] inline bool replaceInImage(const std::string& image, const std::string& bytes,
                                         const std::string& by) {
    const std::size_t at = contentOf(image).rfind(bytes);
    std::fstream file(image, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(static_cast<std::streamoff>(at));
    file << by;
    return at != std::string::npos && bytes.size() == by.size() && file.flush();
}

/// The mount of an image, unmounted on destruction. Where mounting is refused, the object is false,
/// and the test is reported as skipped.
class LoopMount final {
 public:
    LoopMount(const std::string& image, std::string folder) : folder_(std::move(folder)) {
        mounted_ = runOnImage("mount -o loop " + image + ' ' + folder_);
        if (!mounted_) {
            skipTest("an image cannot be mounted (the message is above)");
        }
    }
    LoopMount(const LoopMount&) = delete;
    LoopMount& operator=(const LoopMount&) = delete;
    ~LoopMount() {
        if (mounted_) {
            static_cast<void>(runOnImage("umount " + folder_));
        }
    }

    explicit operator bool() const { return mounted_; }

 private:
    const std::string folder_;
    bool mounted_ = false;
};

/// A loop-mounted ext4 volume of 8 MiB, unmounted on destruction. Where mounting is refused, the
/// object is false, and the test is reported as skipped.
class LoopVolume final {
 public:
    LoopVolume() : image_(place_.pathOf("image")), folder_(place_.makeFolder("volume")) {
        if (makeVolumeImage(image_)) {
            mount_.emplace(image_, folder_);
        } else {
            skipTest("an image cannot be made (the message is above)");
        }
    }

    /// Unmounts the volume and mounts it again at the same place.
    [[nodiscard]] bool remount() {
        mount_.reset();
        return mount_.emplace(image_, folder_).operator bool();
    }

    /// Sets all dates of files of the volume to 2024-01-01, even the date of change, which no
    /// running system sets. That one may be another date, "20240102" for instance. Unmounts the
    /// volume meanwhile.
    [[nodiscard]] bool age(const std::vector<std::string>& names,
                           const std::string& changed = "20240101") {
        mount_.reset();
        std::string commands;
        for (const std::string& name : names) {
            for (const std::string& date : {std::string("mtime 20240101"), "ctime " + changed,
                                            std::string("crtime 20240101")}) {
                commands.append("sif /").append(name).append(" ").append(date).append("\\n");
            }
        }
        return runOnImage("printf '" + commands + "' | debugfs -w -f /dev/stdin " + image_ +
                          " > /dev/null 2>&1") &&
               remount();
    }

    /// replaceInImage() while the volume is unmounted.
    [[nodiscard]] bool replaceBytes(const std::string& bytes, const std::string& by) {
        mount_.reset();
        return replaceInImage(image_, bytes, by) && remount();
    }

    explicit operator bool() const { return mount_ && *mount_; }
    [[nodiscard]] const std::string& path() const { return folder_; }
    [[nodiscard]] std::string pathOf(const std::string& name) const { return folder_ + '/' + name; }

    /// Fills the volume to the last byte. Three rounds: ext4 frees blocks that it had reserved for
    /// delayed writes.
    void fill() const {
        for (const char* round : {"first", "second", "last"}) {
            static_cast<void>(runOnImage(
                "for block in 64k 1k 1; do dd if=/dev/zero bs=$block 2>/dev/null; done > " +
                pathOf(round) + "; sync"));
        }
    }

    /// Fills the volume except for about `bytes`.
    void fillBut(std::uintmax_t bytes) const {
        const std::string room = pathOf("room");
        std::ofstream(room) << std::string(bytes, ' ');
        fill();
        std::filesystem::remove(room);
        static_cast<void>(runOnImage("sync"));
    }

 private:
    TemporaryFolder place_;
    const std::string image_;
    const std::string folder_;
    std::optional<LoopMount> mount_;
};

}  // namespace tarvin
