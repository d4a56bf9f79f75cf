#pragma once

#include "support/temporary_folder.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

namespace tarvin {

/// A small volume of its own with a common file system, mounted for the time of a test. Where the
/// machine does not allow that, the reason is printed and the test goes on without.
class LoopVolume final {
 public:
    LoopVolume() : folder_(place_.makeFolder("volume")) {
        const std::string image = place_.pathOf("image");
        mounted_ = run("truncate -s 8M " + image + " && mkfs.ext4 -q -m 0 " + image +
                       " && mount -o loop " + image + ' ' + folder_);
        if (!mounted_) {
            std::cout << "No volume of its own can be mounted here\n";
        }
    }
    LoopVolume(const LoopVolume&) = delete;
    LoopVolume& operator=(const LoopVolume&) = delete;
    ~LoopVolume() {
        if (mounted_) {
            run("umount " + folder_);
        }
    }

    explicit operator bool() const { return mounted_; }
    [[nodiscard]] std::string pathOf(const std::string& name) const { return folder_ + '/' + name; }

    /// Takes all the room that is left: byte by byte in the end, and again once what was set aside
    /// for writing has been given back.
    void fill() const {
        for (const char* round : {"first", "second", "last"}) {
            run("for block in 64k 1k 1; do dd if=/dev/zero bs=$block 2>/dev/null; done > " +
                pathOf(round) + "; sync");
        }
    }

    /// The same, but for so much.
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
