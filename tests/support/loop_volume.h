#pragma once

#include "support/skip.h"
#include "support/temporary_folder.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace tarvin {

/// A loop-mounted ext4 volume of 8 MiB, unmounted on destruction. Where mounting is refused, the
/// object is false, and the test is reported as skipped.
class LoopVolume final {
 public:
    LoopVolume() : folder_(place_.makeFolder("volume")) {
        const std::string image = place_.pathOf("image");
        mounted_ = run("truncate -s 8M " + image + " && mkfs.ext4 -q -m 0 " + image +
                       " && mount -o loop " + image + ' ' + folder_);
        if (!mounted_) {
            skipTest("an image cannot be mounted (the message is above)");
        }
    }
    LoopVolume(const LoopVolume&) = delete;
    LoopVolume& operator=(const LoopVolume&) = delete;
    ~LoopVolume() {
        if (mounted_) {
            run("umount " + folder_);
        }
    }

    /// Unmounts the volume and mounts it again at the same place.
    [[nodiscard]] bool remount() const {
        return run("umount " + folder_ + " && mount -o loop " + place_.pathOf("image") + ' ' +
                   folder_);
    }

    explicit operator bool() const { return mounted_; }
    [[nodiscard]] const std::string& path() const { return folder_; }
    [[nodiscard]] std::string pathOf(const std::string& name) const { return folder_ + '/' + name; }

    /// Fills the volume to the last byte. Three rounds: ext4 frees blocks that it had reserved for
    /// delayed writes.
    void fill() const {
        for (const char* round : {"first", "second", "last"}) {
            run("for block in 64k 1k 1; do dd if=/dev/zero bs=$block 2>/dev/null; done > " +
                pathOf(round) + "; sync");
        }
    }

    /// Fills the volume except for about `bytes`.
    void fillBut(std::uintmax_t bytes) const {
        const std::string room = pathOf("room");
        std::ofstream(room) << std::string(bytes, ' ');
        fill();
        std::filesystem::remove(room);
        run("sync");
    }

 private:
    static bool run(const std::string& command) {
        return std::system(command.c_str()) == 0;  // NOLINT(concurrency-mt-unsafe)
    }

    TemporaryFolder place_;
    std::string folder_;
    bool mounted_ = false;
};

}  // namespace tarvin
