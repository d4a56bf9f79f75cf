#pragma once

#include "support/skip.h"
#include "support/temporary_folder.h"
#include "support/waiting.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

namespace tarvin {

/// An ext4 volume for up to 4,000 files on a simulated disk with one arm, which says that it
/// rotates, with the kernel's usual read-ahead of 128 KiB. It counts seeks, but does not wait for
/// them. Unmounted on destruction. Where mounting is refused, the object is false, and the test is
/// reported as skipped.
class SlowDisk final {
 public:
    struct Statistics {
        std::uint64_t transfers = 0;
        std::uint64_t seeks = 0;
        std::uint64_t bytes = 0;
        std::uint64_t seekMilliseconds = 0;  ///< in which the disk transferred nothing
    };

    /// `fill` writes the files below the folder that it is given.
    explicit SlowDisk(const std::function<void(const std::string& folder)>& fill,
                      int mebibytes = 64) {
        mounted_ =
            run("truncate -s " + std::to_string(mebibytes) +
                "M image && "
                // Otherwise the kernel fills tables in the background.
                "mkfs.ext4 -q -m 0 -N 4096 -E lazy_itable_init=0,lazy_journal_init=0 image && "
                "mkdir volume served && mount -o loop image volume");
        if (mounted_) {
            fill(path());
            mounted_ = run("umount volume") && serve();
        }
        if (!mounted_) {
            skipTest("the disk could not be simulated (the message is above)");
        }
    }
    SlowDisk(const SlowDisk&) = delete;
    SlowDisk& operator=(const SlowDisk&) = delete;
    ~SlowDisk() { end(); }

    explicit operator bool() const { return mounted_; }
    [[nodiscard]] std::string path() const { return place_.pathOf("volume"); }

    /// Unmounts the volume. Returns what was counted since it was mounted.
    Statistics end() {
        Statistics statistics;
        if (mounted_) {
            mounted_ = false;
            run("umount volume; losetup -d $(cat device); umount -l served");
            waitUntil([this] { return std::filesystem::exists(place_.pathOf("figures")); });
            std::ifstream(place_.pathOf("figures")) >> statistics.transfers >> statistics.seeks >>
                statistics.bytes >> statistics.seekMilliseconds;
        }
        return statistics;
    }

 private:
    /// Nothing of the volume is in the page cache afterwards: the device is a new one.
    [[nodiscard]] bool serve() const {
        return run(std::string(TARVIN_SIMULATED_DISK) +
                   " image served --fast --statistics figures && "
                   "losetup --find --show served/disk > device && "
                   "queue=/sys/block/$(basename $(cat device))/queue && "
                   "echo 1 > $queue/rotational && echo 128 > $queue/read_ahead_kb && "
                   "mount $(cat device) volume");
    }

    bool run(const std::string& command) const {  // NOLINT(modernize-use-nodiscard)
        const std::string inPlace = "cd '" + place_.path() + "' && " + command;
        return std::system(inPlace.c_str()) == 0;  // NOLINT(concurrency-mt-unsafe)
    }

    const TemporaryFolder place_;
    bool mounted_ = false;
};

}  // namespace tarvin
